// Where expanded bytes go: a block of memory, in which matches find what they repeat.
#pragma once

#include <cstring>
#include <span>

#include "data/lzss_coder.h"

namespace ink::data {

class LzssOutput {
  public:
    static constexpr std::size_t kWord = 8;
    // How far behind the match itself copy_with_slack() may write.
    static constexpr std::size_t kSlack = 2 * kWord;

    explicit LzssOutput(std::span<std::uint8_t> block)
        : begin_(block.data()), at_(begin_), end_(begin_ + block.size()) {}

    std::size_t room() const { return static_cast<std::size_t>(end_ - at_); }
    std::span<const std::uint8_t> written() const { return {begin_, at_}; }

    void literal(std::uint8_t byte) { *at_++ = byte; }

    // Copies kWord literals.
    void literals(const std::uint8_t *bytes) {
        copy_word(at_, bytes);
        at_ += kWord;
    }

    // Copies a match, or as much of it as there is room for.
    void copy(Match match) {
        match.length = static_cast<unsigned>(std::min<std::size_t>(match.length, room()));
        const std::size_t distance = distance_to(match.position);
        for (; match.length > 0; --match.length, ++at_) *at_ = byte_back(distance);
    }

    // The same where there is room for kLongestMatch + kSlack bytes.
    void copy_with_slack(Match match) {
        std::size_t distance = distance_to(match.position);
        if (distance > written().size()) {
            copy(match);
            return;
        }
        std::uint8_t *const next = at_ + match.length;
        if (distance == 1) {
            std::memset(at_, at_[-1], kLongestMatch);
            at_ = next;
            return;
        }
        // What repeats at a short distance also repeats at twice that distance.
        for (; distance < kWord; distance *= 2) {
            copy_word(at_, at_ - distance);
            at_ += distance;
        }
        for (; at_ < next; at_ += kWord) copy_word(at_, at_ - distance);
        at_ = next;
    }

    // Keeps the last bytes, which matches may still name, and makes room for more behind them.
    void slide() {
        const std::size_t kept = std::min<std::size_t>(written().size(), kWindowSize);
        begin_position_ += static_cast<unsigned>(written().size() - kept);
        std::memmove(begin_, at_ - kept, kept);
        at_ = begin_ + kept;
    }

    // Leaves the last bytes in the window.
    void close() const {
        const std::size_t size = written().size(), kept = std::min<std::size_t>(size, kWindowSize);
        lzss.window.put(wrap(begin_position_ + static_cast<unsigned>(size - kept)), written().last(kept));
    }

  private:
    static void copy_word(std::uint8_t *to, const std::uint8_t *from) {
        std::uint64_t word;  // the two may overlap
        static_assert(sizeof word == kWord);
        std::memcpy(&word, from, kWord);
        std::memcpy(to, &word, kWord);
    }

    // How far back a position lies; the next one to be written is the farthest.
    std::size_t distance_to(unsigned position) const {
        const auto here = begin_position_ + static_cast<unsigned>(written().size());
        return wrap(here - position - 1) + 1;
    }
    // A position that was not written yet is one that an earlier call left in the window.
    std::uint8_t byte_back(std::size_t distance) const {
        const std::size_t size = written().size();
        if (distance <= size) return *(at_ - distance);
        return *lzss.window.at(wrap(begin_position_ + static_cast<unsigned>(size - distance)));
    }

    std::uint8_t *begin_, *at_, *end_;
    unsigned begin_position_ = kFirstPosition;  // not wrapped
};

}  // namespace ink::data
