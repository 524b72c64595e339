#include "platform/wave/riff.h"

#include <algorithm>

#include "core/reader.h"

namespace ink::wave {
namespace {

constexpr std::uint64_t kHeader = 8, kForm = 4;

bool named(const std::uint8_t *letters, std::string_view name) {
    return std::equal(name.begin(), name.end(), letters);
}

}  // namespace

RiffReader::RiffReader(std::FILE *file) : file_(file) {
    if (std::fseek(file_, 0, SEEK_END) != 0) return;
    size_ = static_cast<std::uint64_t>(std::max(std::ftell(file_), 0L));
}

std::optional<RiffReader::Chunk> RiffReader::find(std::uint64_t from, std::uint64_t end,
                                                  std::string_view name, std::string_view form) {
    std::uint8_t header[kHeader + kForm];
    end = std::min(end, size_);
    while (from < end && read(from, header, kHeader)) {
        Chunk chunk{from + kHeader, from + kHeader + get_u32(header + 4)};
        if (named(header, name)) {
            if (form.empty()) return chunk;
            if (chunk.size() >= kForm && read(chunk.begin, header + kHeader, kForm) &&
                named(header + kHeader, form)) {
                chunk.begin += kForm;
                return chunk;
            }
        }
        from = chunk.end + chunk.end % 2;
    }
    return std::nullopt;
}

std::optional<std::uint64_t> RiffReader::after(const Chunk &chunk) const {
    if (chunk.end > size_) return std::nullopt;
    return chunk.end + chunk.end % 2;
}

bool RiffReader::read(std::uint64_t from, void *bytes, std::uint64_t size) {
    return holds(from, size) && std::fseek(file_, static_cast<long>(from), SEEK_SET) == 0 &&
           std::fread(bytes, 1, size, file_) == size;
}

}  // namespace ink::wave
