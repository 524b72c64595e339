#include "host/sound/riff.h"

#include <algorithm>

#include "core/reader.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kHeader = 8, kForm = 4;

bool named(const std::uint8_t *letters, std::string_view name) {
    return std::equal(name.begin(), name.end(), letters);
}

}  // namespace

std::optional<RiffReader::Chunk> RiffReader::find(std::uint64_t from, std::uint64_t end,
                                                  std::string_view name, std::string_view form) {
    std::uint8_t header[kHeader + kForm];
    end = std::min(end, file_.size());
    while (from < end && read(from, header, kHeader)) {
        Chunk chunk{from + kHeader, from + kHeader + get_u32(header + 4)};
        chunk.unfinished = chunk.size() == 0;
        if (named(header, name)) {
            if (form.empty()) return chunk;
            if (chunk.unfinished) chunk.end = file_.size();
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
    if (chunk.end > file_.size()) return std::nullopt;
    return chunk.end + chunk.end % 2;
}

bool RiffReader::read(std::uint64_t from, std::uint8_t *bytes, std::size_t size) {
    return file_.read(from, {bytes, size}) == size;
}

}  // namespace ink::host
