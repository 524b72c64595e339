// Where expanded bytes go: a block of memory, in which matches find what they repeat.
#pragma once

#include <cstring>
#include <span>

#include "data/match_index.h"

namespace ink::data {

class LzssOutput {
  public:
    static constexpr std::size_t kWord = 8;
    // How far behind the match itself copy_with_slack() may write.
    static constexpr std::size_t kSlack = 2 * kWord;

    // What earlier calls left in the window can be named by matches, too.
    LzssOutput(std::span<std::uint8_t> block, Window &window)
        : window_(window), begin_(block.data()), at_(begin_), end_(begin_ + block.size()) {}

    std::size_t room() const { return static_cast<std::size_t>(end_ - at_); }
    std::span<const std::uint8_t> written() const { return {begin_, at_}; }

    void literal(std::uint8_t byte) { *at_++ = byte; }

    // Up to kWord literals, where kWord bytes can be read and there is room for as many.
    void literals_with_slack(const std::uint8_t *bytes, unsigned count) {
        copy_word(at_, bytes);
        at_ += count;
    }

    // Copies a match, or as much of it as there is room for.
    void copy(Match match) {
        const auto length = static_cast<unsigned>(std::min<std::size_t>(match.length, room()));
        copy_bytes(distance_to(match.position), length);
    }

    // The same where there is room for kLongestMatch + kSlack bytes.
    void copy_with_slack(Match match) {
        std::size_t distance = distance_to(match.position);
        if (distance == 1 && at_ != begin_) {
            std::memset(at_, at_[-1], kLongestMatch);
        } else if (distance > written().size()) {
            copy_bytes(distance, match.length);
            return;
        } else {
            // What repeats at a short distance also repeats at twice that distance.
            std::uint8_t *to = at_;
            for (; distance < kWord; to += distance, distance *= 2) copy_word(to, to - distance);
            for (; to < at_ + match.length; to += kWord) copy_word(to, to - distance);
        }
        at_ += match.length;
    }

    // Keeps the last bytes, which matches may still name, and makes room for more behind them.
    void slide() {
        const std::size_t kept = std::min<std::size_t>(written().size(), kWindowSize);
        begin_position_ += static_cast<unsigned>(written().size() - kept);
        std::memmove(begin_, at_ - kept, kept);
        at_ = begin_ + kept;
    }

    // Leaves the last bytes in the window.
    void close() {
        const std::size_t size = written().size(), kept = std::min<std::size_t>(size, kWindowSize);
        window_.put(wrap(begin_position_ + static_cast<unsigned>(size - kept)), written().last(kept));
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

    void copy_bytes(std::size_t distance, unsigned length) {
        for (; length > 0; --length, ++at_) {
            const std::size_t size = written().size();
            // A position that was not written yet holds what an earlier call left in the window.
            *at_ = distance <= size
                       ? *(at_ - distance)
                       : *window_.at(wrap(begin_position_ + static_cast<unsigned>(size - distance)));
        }
    }

    Window &window_;
    std::uint8_t *begin_, *at_, *end_;
    unsigned begin_position_ = kFirstPosition;  // not wrapped
};

}  // namespace ink::data
