// LZSS between two blocks of memory: groups of a flag byte and up to eight tokens.
#include <bit>
#include <functional>
#include <span>

#include "data/lzss_coder.h"
#include "data/lzss_output.h"
#include "inkstone/lzss.h"

namespace ink::data {
namespace {

constexpr unsigned kGroup = 8;
constexpr unsigned kAllFlags = 0xFF;

// Input behind a group that is sure to expand to as many bytes as the group may write too far: but for its
// flags, and half a match at its end, a byte gives at least a byte. So nothing is left of them where the
// input ends early.
constexpr std::size_t kRest = LzssOutput::kSlack + 8;
static_assert(kGroup == LzssOutput::kWord);

class MemorySource {
  public:
    explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
    int next() { return at_ < bytes_.size() ? bytes_[at_++] : -1; }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
};

class GroupWriter {
  public:
    explicit GroupWriter(std::uint8_t *destination) : begin_(destination), at_(destination) {}

    void literal(std::uint8_t byte) {
        const unsigned flag = start_token();
        *flags_ = static_cast<std::uint8_t>(*flags_ | flag);
        *at_++ = byte;
    }
    void match(Match match) {
        start_token();
        *at_++ = static_cast<std::uint8_t>((match.length - kShortestMatch) << 4 | match.position >> 8);
        *at_++ = static_cast<std::uint8_t>(match.position);
    }
    std::size_t size() const { return static_cast<std::size_t>(at_ - begin_); }

  private:
    // The token's flag, for the flag byte of its group.
    unsigned start_token() {
        const unsigned index = tokens_++ % kGroup;
        if (index == 0) {
            flags_ = at_++;
            *flags_ = 0;
        }
        return 1u << index;
    }

    std::uint8_t *begin_, *at_, *flags_ = nullptr;
    unsigned tokens_ = 0;
};

class GroupReader {
  public:
    // Code that stands where the output goes is read byte by byte, just before it is written over.
    GroupReader(std::span<const std::uint8_t> bytes, bool is_apart)
        : at_(bytes.data()), end_(at_ + bytes.size()), is_apart_(is_apart) {}

    // Expands one group; false when it is the last that the input or the output has room for.
    bool expand(LzssOutput &output) {
        if (left() == 0 || output.room() == 0) return false;
        unsigned flags = *at_++;
        if (is_apart_ && left() >= 2 * kGroup + kRest &&
            output.room() >= kGroup * kLongestMatch + LzssOutput::kSlack) {
            // From match to match, with the literals between two at once.
            unsigned done = 0;
            for (unsigned matches = ~flags & kAllFlags; matches != 0; matches &= matches - 1) {
                const auto index = static_cast<unsigned>(std::countr_zero(matches));
                take_literals(output, index - done);
                output.copy_with_slack(take_match());
                done = index + 1;
            }
            take_literals(output, kGroup - done);
            return true;
        }
        for (unsigned i = 0; i < kGroup && output.room() > 0; ++i, flags >>= 1) {
            if (left() < (flags & 1 ? 1 : 2)) return false;
            if (flags & 1)
                output.literal(*at_++);
            else
                output.copy(take_match());
        }
        return true;
    }

  private:
    std::size_t left() const { return static_cast<std::size_t>(end_ - at_); }

    void take_literals(LzssOutput &output, unsigned count) {
        output.literals_with_slack(at_, count);
        at_ += count;
    }

    Match take_match() {
        const unsigned high = at_[0], low = at_[1];
        at_ += 2;
        return {(high >> 4) + kShortestMatch, (high & 15) << 8 | low};
    }

    const std::uint8_t *at_, *end_;
    bool is_apart_;
};

bool are_apart(const std::uint8_t *one, std::size_t size, const std::uint8_t *other, std::size_t other_size) {
    const std::less_equal<> before;
    return before(one + size, other) || before(other + other_size, one);
}

}  // namespace
}  // namespace ink::data

using namespace ink::data;

int32_t LZSS_compress_data(const uint8_t *source, uint8_t *destination, const uint32_t *source_length,
                           uint32_t *compressed_length) {
    if (source_length == nullptr || compressed_length == nullptr) return 0;
    MemorySource bytes({source, *source_length});
    GroupWriter groups(destination);
    compress(bytes, groups);
    *compressed_length = static_cast<uint32_t>(groups.size());
    return 0;
}

int32_t LZSS_expand_data(const uint8_t *source, uint8_t *destination, const uint32_t *compressed_length,
                         uint32_t *expanded_length) {
    if (compressed_length == nullptr || expanded_length == nullptr) return 0;
    GroupReader groups({source, *compressed_length},
                       are_apart(source, *compressed_length, destination, *expanded_length));
    LzssOutput output({destination, *expanded_length}, lzss.window);
    while (groups.expand(output)) {
    }
    output.close();
    return 0;
}
