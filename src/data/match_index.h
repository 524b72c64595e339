// The search for the longest match.
//
// What is coded is defined by a plain binary search tree of the strings in the window: the search compares
// the new string with every node on its way down and takes the longest match, of equally long ones the last;
// the new string then becomes a leaf there. A string that is in the tree already gives up its place to the
// new one. Out of the middle of the tree a string is taken by putting the one before it in order into its
// place.
//
// Such a tree may be as deep as it has strings, and all that matters of its shape is known without it.
//
// The longest match is always with the string next before or next after the new one in order, for both lie on
// the way down and no other is closer.
//
// Of these two the deeper is the one whose place is the younger: a new leaf has the youngest place of all,
// and places change hands but never move up or down past each other.
//
// A string has a smaller child exactly when the string before it in order has a younger place, and a larger
// child exactly when the string after it has.
//
// So this index keeps the strings in order as a list, remembers the age of each one's place, and is free to
// find the place of a new string in a way that is fast for any data: through its first two bytes, and then in
// a search tree of those that share them, which is balanced when it gets too deep.
#pragma once

#include <array>
#include <cstdint>

#include "data/lzss_window.h"

namespace ink::data {

struct Match {
    unsigned length = 0, position = 0;
};

// A string goes by the position in the window where it starts. None starts at position 0 for the index:
// there, 0 stands for none, and as an entry for both ends of the list.
class MatchIndex {
  public:
    // The strings a new one came between, as far as they begin with the same two bytes; twice the same when
    // it is equal to that one and took its place.
    struct Neighbours {
        unsigned before = 0, after = 0;
    };

    Window window;

    // Inserts the string at a position, which must not be in the index.
    Neighbours insert(unsigned position);

    // The longest match of the string that was just inserted, if it has one that is not too short to be
    // coded.
    Match longest_match(unsigned position, Neighbours neighbours) const;

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
        Link parent = 0;             // in the tree of those that begin with the same two bytes
        Link child[2] = {0, 0};      // smaller, larger
    };

    // Which trees are not empty, so that the next one is found.
    class Occupied {
      public:
        void set(unsigned tree);
        void reset(unsigned tree);
        // The first one after tree, or kTrees.
        unsigned next(unsigned tree) const;

      private:
        std::array<std::uint64_t, 1024> words_{};
        std::array<std::uint64_t, 16> any_{};  // a bit for each word that is not 0
    };

    static constexpr unsigned kTrees = 1 << 16;
    static constexpr unsigned kDeepest = 64;  // random strings hardly ever make a tree of half this depth

    unsigned tree_of(unsigned position) const {
        return static_cast<unsigned>(window.at(position)[0] << 8 | window.at(position)[1]);
    }
    // The link that names an entry, in its parent or as the root of its tree.
    Link &link_to(unsigned position);
    void put_in_place_of(unsigned old, unsigned position);
    void take_children_of(unsigned old, unsigned position);

    void replace(unsigned old, unsigned position);
    void insert_in_list(unsigned position, Neighbours neighbours);
    void insert_alone(unsigned position, unsigned tree);
    void balance(unsigned tree);
    Link balanced(Link &next, unsigned count, Link parent);
    void remove_from_tree(unsigned position);

    std::array<Entry, kWindowSize> entries_{};
    std::array<Age, kWindowSize> ages_{};  // of the places in the plain tree; 0 for what is not in the index
    std::array<Link, kTrees> roots_{};
    Occupied occupied_;
    Age youngest_ = 0;
};

}  // namespace ink::data
