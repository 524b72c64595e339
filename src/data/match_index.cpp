#include "data/match_index.h"

#include <bit>

namespace ink::data {

void MatchIndex::Occupied::set(unsigned treap) {
    const unsigned word = treap / 64;
    words_[word] |= std::uint64_t{1} << treap % 64;
    any_[word / 64] |= std::uint64_t{1} << word % 64;
}

void MatchIndex::Occupied::reset(unsigned treap) {
    const unsigned word = treap / 64;
    words_[word] &= ~(std::uint64_t{1} << treap % 64);
    if (words_[word] == 0) any_[word / 64] &= ~(std::uint64_t{1} << word % 64);
}

unsigned MatchIndex::Occupied::next(unsigned treap) const {
    constexpr std::uint64_t kAbove = ~std::uint64_t{1};
    const unsigned word = treap / 64;
    if (const auto rest = words_[word] & kAbove << treap % 64; rest != 0)
        return word * 64 + static_cast<unsigned>(std::countr_zero(rest));
    unsigned group = word / 64;
    for (auto rest = any_[group] & kAbove << word % 64;; rest = any_[group]) {
        if (rest != 0) {
            const unsigned found = group * 64 + static_cast<unsigned>(std::countr_zero(rest));
            return found * 64 + static_cast<unsigned>(std::countr_zero(words_[found]));
        }
        if (++group == any_.size()) return kTreaps;
    }
}

MatchIndex::Link &MatchIndex::link_to(unsigned position) {
    const unsigned parent = entries_[position].parent;
    if (parent == 0) return roots_[treap_of(position)];
    return entries_[parent].child[entries_[parent].child[1] == position];
}

unsigned MatchIndex::equal_bytes(const WindowString &string, unsigned neighbour) const {
    return neighbour != 0 ? string.equal_bytes(window_.at(neighbour)) : 0;
}

Match MatchIndex::longer_match(const WindowString &string, unsigned before, unsigned after) const {
    const unsigned with_before = equal_bytes(string, before), with_after = equal_bytes(string, after);
    const bool after_wins =
        with_after != with_before ? with_after > with_before : ages_[after] > ages_[before];
    return after_wins ? Match{with_after, after} : Match{with_before, before};
}

Match MatchIndex::insert(unsigned position) {
    if (position == 0) return {};
    const unsigned treap = treap_of(position);
    unsigned node = roots_[treap];
    if (node == 0) {
        insert_alone(position, treap);
        return {};  // with a neighbour it has one byte in common at most, too few for a match
    }
    const WindowString string(window_.at(position));
    for (;;) {
        bool equal = false;
        const bool greater = string.is_after(window_.at(node), equal);
        if (equal) {
            replace(node, position);
            return {kLongestMatch, node};
        }
        Link &child = entries_[node].child[greater];
        if (child != 0) {
            node = child;
            continue;
        }
        child = static_cast<Link>(position);
        entries_[position].parent = static_cast<Link>(node);
        const unsigned before = greater ? node : entries_[node].before;
        const unsigned after = greater ? entries_[node].after : node;
        insert_in_list(position, before, after);
        raise(position);
        return longer_match(string, before, after);
    }
}

void MatchIndex::replace(unsigned old, unsigned position) {
    const auto link = static_cast<Link>(position);
    link_to(old) = link;
    const Entry &entry = entries_[position] = entries_[old];
    for (const Link child : entry.child)
        if (child != 0) entries_[child].parent = link;
    entries_[entry.before].after = link;
    entries_[entry.after].before = link;
    ages_[position] = ages_[old];
    ages_[old] = 0;
}

void MatchIndex::insert_in_list(unsigned position, unsigned before, unsigned after) {
    const auto link = static_cast<Link>(position);
    Entry &entry = entries_[position];
    entry.before = static_cast<Link>(before);
    entry.after = static_cast<Link>(after);
    entry.child[0] = entry.child[1] = 0;
    random_ = random_ * 1664525 + 1013904223;
    entry.rank = static_cast<std::uint16_t>(random_ >> 16);
    entries_[before].after = link;
    entries_[after].before = link;
    ages_[position] = ++youngest_;
}

void MatchIndex::insert_alone(unsigned position, unsigned treap) {
    unsigned after = 0;
    if (const unsigned next = occupied_.next(treap); next != kTreaps) {
        after = roots_[next];
        while (entries_[after].child[0] != 0) after = entries_[after].child[0];
    }
    insert_in_list(position, entries_[after].before, after);
    entries_[position].parent = 0;
    roots_[treap] = static_cast<Link>(position);
    occupied_.set(treap);
}

void MatchIndex::raise(unsigned position) {
    Entry &entry = entries_[position];
    while (entry.parent != 0 && entries_[entry.parent].rank < entry.rank) {
        const Link parent = entry.parent;
        Entry &above = entries_[parent];
        link_to(parent) = static_cast<Link>(position);
        const bool side = above.child[1] == position;
        const Link inner = entry.child[!side];
        above.child[side] = inner;
        if (inner != 0) entries_[inner].parent = parent;
        entry.child[!side] = parent;
        entry.parent = above.parent;
        above.parent = static_cast<Link>(position);
    }
}

void MatchIndex::remove(unsigned position) {
    const Age age = ages_[position];
    if (age == 0) return;
    const unsigned before = entries_[position].before, after = entries_[position].after;
    if (ages_[before] > age && ages_[after] > age) ages_[before] = age;
    ages_[position] = 0;
    entries_[before].after = static_cast<Link>(after);
    entries_[after].before = static_cast<Link>(before);
    remove_from_treap(position);
}

void MatchIndex::remove_from_treap(unsigned position) {
    Link *link = &link_to(position);
    Link parent = entries_[position].parent;
    Link branch[2] = {entries_[position].child[0], entries_[position].child[1]};
    // What hangs below it becomes one: the higher in rank comes up, time and again.
    while (branch[0] != 0 && branch[1] != 0) {
        const bool up = entries_[branch[1]].rank > entries_[branch[0]].rank;
        *link = branch[up];
        entries_[*link].parent = parent;
        parent = *link;
        link = &entries_[parent].child[!up];
        branch[up] = *link;
    }
    *link = branch[0] | branch[1];
    if (*link != 0)
        entries_[*link].parent = parent;
    else if (parent == 0)
        occupied_.reset(treap_of(position));
}

void MatchIndex::clear() {
    while (entries_[0].after != 0) remove(entries_[0].after);
}

}  // namespace ink::data
