// The search for the longest match.
//
// What is coded is defined by a plain binary search tree of the strings in the window: the search compares
// the new string with every node on its way down and takes the longest match, of equally long ones the last;
// the new string then becomes a leaf there. A string that is in the tree already gives up its place to the
// new one. Out of the middle of the tree a string is taken by putting the one before it in order into its
// place.
//
// Such a tree may be as deep as it has strings, and all that matters of its shape is known without it:
//   - The longest match is always with the string next before or next after the new one in order, for both
//   lie
//     on the way down and no other is closer.
//   - Of these two the deeper is the one whose place is the younger: a new leaf has the youngest place of
//   all,
//     and places change hands but never move up or down past each other.
//   - A string has a smaller child exactly when the string before it in order has a younger place, and a
//   larger
//     child exactly when the string after it has.
// So this index keeps the strings in order as a list, remembers the age of each one's place, and finds the
// place of a new string in whatever way is fast: through its first two bytes, and then in a treap, a search
// tree that random ranks keep shallow for any data.
#pragma once

#include <array>
#include <cstdint>

#include "data/lzss_window.h"

namespace ink::data {

struct Match {
    unsigned length = 0, position = 0;
};

// A string goes by the position in the window where it starts. None starts at position 0 for the index;
// there, 0 stands for none, and as an entry for both ends of the list.
class MatchIndex {
  public:
    explicit constexpr MatchIndex(const Window &window) : window_(window) {}

    // Inserts the string at a position, which must not be in the index, and returns its longest match with
    // those that were.
    Match insert(unsigned position);

    // Takes the string at a position out, if it is there. Its bytes may not have changed since it was
    // inserted.
    void remove(unsigned position);

    // Takes all strings out.
    void clear();

  private:
    using Link = std::uint16_t;
    using Age = std::uint64_t;

    struct Entry {
        Link before = 0, after = 0;  // in order
        Link parent = 0;             // in the treap of those that begin with the same two bytes
        Link child[2] = {0, 0};      // smaller, larger
        std::uint16_t rank = 0;      // no higher than its parent's
    };

    // Which treaps are not empty, so that the nearest one is found.
    class Occupied {
      public:
        void set(unsigned treap);
        void reset(unsigned treap);
        // The first one after treap, or kTreaps.
        unsigned next(unsigned treap) const;

      private:
        std::array<std::uint64_t, 1024> words_{};
        std::array<std::uint64_t, 16> any_{};  // a bit for each word that is not 0
    };

    static constexpr unsigned kTreaps = 1 << 16;

    unsigned treap_of(unsigned position) const {
        return static_cast<unsigned>(window_.at(position)[0] << 8 | window_.at(position)[1]);
    }
    // The link that names an entry, in its parent or as the root of its treap.
    Link &link_to(unsigned position);
    // How many bytes the string has in common with that of a neighbour.
    unsigned equal_bytes(const WindowString &string, unsigned neighbour) const;
    Match longer_match(const WindowString &string, unsigned before, unsigned after) const;

    void replace(unsigned old, unsigned position);
    void insert_in_list(unsigned position, unsigned before, unsigned after);
    void insert_alone(unsigned position, unsigned treap);
    void raise(unsigned position);
    void remove_from_treap(unsigned position);

    const Window &window_;
    std::array<Entry, kWindowSize> entries_{};
    std::array<Age, kWindowSize> ages_{};  // of the places in the plain tree; 0 for what is not in the index
    std::array<Link, kTreaps> roots_{};
    Occupied occupied_;
    Age youngest_ = 0;
    std::uint32_t random_ = 1;
};

}  // namespace ink::data
