#include "lzss/stream.h"

#include <algorithm>
#include <stdexcept>

#include "files/workshop.h"
#include "info/report.h"
#include "inkstone/lzss.h"

namespace ink::tool {
namespace {

constexpr std::int64_t kWindow = 4096;

class Bits {
  public:
    explicit Bits(std::span<const std::uint8_t> data) : data_(data) {}

    bool ok() const { return !failed_; }
    unsigned take(int count) {
        unsigned value = 0;
        for (; count > 0; --count, ++at_) {
            failed_ = failed_ || at_ / 8 >= data_.size();
            value = value << 1 | (failed_ ? 0U : data_[at_ / 8] >> (7 - at_ % 8) & 1U);
        }
        return value;
    }
    // Whether nothing is left but the zeros that fill the byte.
    bool at_end() {
        const std::size_t left = data_.size() * 8 - at_;
        return left < 8 && take(static_cast<int>(left)) == 0;
    }

  private:
    std::span<const std::uint8_t> data_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

}  // namespace

std::optional<std::int64_t> lzss_stream_length(std::span<const std::uint8_t> data) {
    Bits bits(data);
    for (std::int64_t length = 0; bits.ok();) {
        if (bits.take(1) == 1) {
            bits.take(8);
            ++length;
            continue;
        }
        const std::int64_t place = bits.take(12);
        if (place == 0) return bits.ok() && bits.at_end() ? std::optional(length) : std::nullopt;
        // The first byte stands at place 1.
        if (length < kWindow && place > length) return std::nullopt;
        length += bits.take(4) + 2;
    }
    return std::nullopt;
}

std::int64_t lzss_memory_length(std::span<const std::uint8_t> data) {
    std::int64_t length = 0;
    for (std::size_t at = 0; at < data.size();) {
        const unsigned flags = data[at++];
        for (int token = 0; token < 8 && at < data.size(); ++token) {
            if ((flags >> token & 1U) != 0) {
                ++length, ++at;
            } else {
                if (data.size() - at < 2) return length;
                length += (data[at] >> 4) + 2;
                at += 2;
            }
        }
    }
    return length;
}

Bytes expand_lzss(std::span<const std::uint8_t> data) {
    const Workshop workshop;
    workshop.put("input", data);
    if (LZSS_expand_file("input", "output") != 0)
        throw std::runtime_error("cannot be expanded: " + workshop.log());
    return workshop.take("output");
}

std::optional<Report> describe_lzss(const Bytes &file, const std::filesystem::path &name) {
    const auto length = lzss_stream_length(file);
    if (!length) return std::nullopt;
    Report report("LZSS file");
    report.add("expands to", *length);
    report.add("percent",
               *length > 0 ? 100.0 * static_cast<double>(file.size()) / static_cast<double>(*length) : 0.0);
    if (*length > 0)
        if (const auto inner = describe(expand_lzss(file), name)) report.add("holds", inner->format);
    return report;
}

}  // namespace ink::tool
