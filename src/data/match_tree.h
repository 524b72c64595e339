// The search for the longest match: a binary tree of the strings in the window, ordered by their bytes.
#pragma once

#include <array>
#include <cstdint>

#include "data/lzss_window.h"

namespace ink::data {

struct Match {
    unsigned length = 0, position = 0;
};

// The node of the string at a position is the entry of that number. No string starts at position 0 for the
// tree: as a link it means none.
class MatchTree {
  public:
    explicit constexpr MatchTree(const Window &window) : window_(window) {}

    // Empties the tree but for the string at kFirstPosition.
    void reset();

    // Inserts the string at a position and returns the longest match with those that were there; of equally
    // long ones, the last on the way down. A string that is there already is replaced by the new one.
    Match insert(unsigned position);

    // Takes the string at a position out, if it is there.
    void remove(unsigned position);

  private:
    using Link = std::uint16_t;
    struct Node {
        Link parent = 0;
        Link child[2] = {0, 0};  // smaller, larger
    };
    static constexpr unsigned kRoot = kWindowSize;

    // Puts node, or nothing, where old hangs.
    void hang_in_place_of(unsigned old, unsigned node);
    void take_children_of(unsigned old, unsigned node);

    const Window &window_;
    std::array<Node, kWindowSize + 1> nodes_{};
};

}  // namespace ink::data
