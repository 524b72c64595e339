#include "data/match_index.h"

#include <bit>

namespace ink::data {

void MatchIndex::Occupied::set(unsigned tree) {
    const unsigned word = tree / 64;
    words_[word] |= std::uint64_t{1} << tree % 64;
    any_[word / 64] |= std::uint64_t{1} << word % 64;
}

void MatchIndex::Occupied::reset(unsigned tree) {
    const unsigned word = tree / 64;
    words_[word] &= ~(std::uint64_t{1} << tree % 64);
    if (words_[word] == 0) any_[word / 64] &= ~(std::uint64_t{1} << word % 64);
}

unsigned MatchIndex::Occupied::next(unsigned tree) const {
    constexpr std::uint64_t kAbove = ~std::uint64_t{1};
    const unsigned word = tree / 64;
    if (const auto rest = words_[word] & kAbove << tree % 64; rest != 0)
        return word * 64 + static_cast<unsigned>(std::countr_zero(rest));
    unsigned group = word / 64;
    for (auto rest = any_[group] & kAbove << word % 64;; rest = any_[group]) {
        if (rest != 0) {
            const unsigned found = group * 64 + static_cast<unsigned>(std::countr_zero(rest));
            return found * 64 + static_cast<unsigned>(std::countr_zero(words_[found]));
        }
        if (++group == any_.size()) return kTrees;
    }
}

MatchIndex::Link &MatchIndex::link_to(unsigned position) {
    const unsigned parent = entries_[position].parent;
    if (parent == 0) return roots_[tree_of(position)];
    return entries_[parent].child[entries_[parent].child[1] == position];
}

void MatchIndex::put_in_place_of(unsigned old, unsigned position) {
    link_to(old) = static_cast<Link>(position);
    if (position != 0) entries_[position].parent = entries_[old].parent;
}

void MatchIndex::take_children_of(unsigned old, unsigned position) {
    for (unsigned side = 0; side < 2; ++side) {
        const Link child = entries_[old].child[side];
        entries_[position].child[side] = child;
        if (child != 0) entries_[child].parent = static_cast<Link>(position);
    }
}

MatchIndex::Neighbours MatchIndex::insert(unsigned position) {
    if (position == 0) return {};
    const unsigned tree = tree_of(position);
    unsigned node = roots_[tree];
    if (node == 0) {
        insert_alone(position, tree);
        return {};
    }
    const WindowString string(window.at(position));
    bool is_after = false;
    unsigned depth = 0;
    for (unsigned next = node; next != 0; ++depth) {
        node = next;
        const unsigned smaller = entries_[node].child[0], larger = entries_[node].child[1];
        bool equal = false;
        is_after = string.is_after(window.at(node), equal);
        if (equal) {
            replace(node, position);
            return {node, node};
        }
        // The way is as good as random: chosen without a branch, which would be mispredicted at every other
        // node.
        next = smaller ^ ((smaller ^ larger) & -unsigned{is_after});
    }
    entries_[node].child[is_after] = static_cast<Link>(position);
    entries_[position].parent = static_cast<Link>(node);
    const Neighbours neighbours =
        is_after ? Neighbours{node, entries_[node].after} : Neighbours{entries_[node].before, node};
    insert_in_list(position, neighbours);
    if (depth > kDeepest) balance(tree);
    return neighbours;
}

Match MatchIndex::longest_match(unsigned position, Neighbours neighbours) const {
    const auto [before, after] = neighbours;
    if (before == after) return {before != 0 ? kLongestMatch : 0, before};
    const WindowString string(window.at(position));
    const unsigned with_before = before != 0 ? string.equal_bytes(window.at(before)) : 0;
    const unsigned with_after = after != 0 ? string.equal_bytes(window.at(after)) : 0;
    const bool after_wins =
        with_after != with_before ? with_after > with_before : ages_[after] > ages_[before];
    return after_wins ? Match{with_after, after} : Match{with_before, before};
}

void MatchIndex::replace(unsigned old, unsigned position) {
    const Link before = entries_[old].before, after = entries_[old].after;
    put_in_place_of(old, position);
    take_children_of(old, position);
    entries_[position].before = before;
    entries_[position].after = after;
    entries_[before].after = entries_[after].before = static_cast<Link>(position);
    ages_[position] = ages_[old];
    ages_[old] = 0;
}

void MatchIndex::insert_in_list(unsigned position, Neighbours neighbours) {
    const auto [before, after] = neighbours;
    Entry &entry = entries_[position];
    entry.before = static_cast<Link>(before);
    entry.after = static_cast<Link>(after);
    entry.child[0] = entry.child[1] = 0;
    entries_[before].after = entries_[after].before = static_cast<Link>(position);
    ages_[position] = ++youngest_;
}

void MatchIndex::insert_alone(unsigned position, unsigned tree) {
    unsigned after = 0;
    if (const unsigned next = occupied_.next(tree); next != kTrees) {
        after = roots_[next];
        while (entries_[after].child[0] != 0) after = entries_[after].child[0];
    }
    insert_in_list(position, {entries_[after].before, after});
    entries_[position].parent = 0;
    roots_[tree] = static_cast<Link>(position);
    occupied_.set(tree);
}

MatchIndex::Link MatchIndex::balanced(Link &next, unsigned count, Link parent) {
    if (count == 0) return 0;
    // The entry is known only after those before it are placed.
    const Link smaller = balanced(next, count / 2, 0);
    const Link middle = next;
    next = entries_[middle].after;
    entries_[middle].parent = parent;
    entries_[middle].child[0] = smaller;
    if (smaller != 0) entries_[smaller].parent = middle;
    entries_[middle].child[1] = balanced(next, count - count / 2 - 1, middle);
    return middle;
}

void MatchIndex::balance(unsigned tree) {
    Link first = roots_[tree];
    while (entries_[first].child[0] != 0) first = entries_[first].child[0];
    unsigned count = 0;
    for (unsigned entry = first; entry != 0 && tree_of(entry) == tree; entry = entries_[entry].after) ++count;
    roots_[tree] = balanced(first, count, 0);
}

void MatchIndex::remove(unsigned position) {
    const Age age = ages_[position];
    if (age == 0) return;
    const unsigned before = entries_[position].before, after = entries_[position].after;
    if (ages_[before] > age && ages_[after] > age) ages_[before] = age;
    ages_[position] = 0;
    entries_[before].after = static_cast<Link>(after);
    entries_[after].before = static_cast<Link>(before);
    remove_from_tree(position);
}

void MatchIndex::remove_from_tree(unsigned position) {
    const Entry &entry = entries_[position];
    if (entry.child[0] != 0 && entry.child[1] != 0) {
        const unsigned before = entry.before;
        put_in_place_of(before, entries_[before].child[0]);
        put_in_place_of(position, before);
        take_children_of(position, before);
        return;
    }
    const unsigned child = entry.child[0] | entry.child[1];
    put_in_place_of(position, child);
    if (entry.parent == 0 && child == 0) occupied_.reset(tree_of(position));
}

void MatchIndex::clear() {
    while (entries_[0].after != 0) remove(entries_[0].after);
}

}  // namespace ink::data
