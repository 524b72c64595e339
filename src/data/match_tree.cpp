#include "data/match_tree.h"

namespace ink::data {

void MatchTree::reset() {
    nodes_.fill({});
    nodes_[kRoot].child[1] = kFirstPosition;
    nodes_[kFirstPosition].parent = kRoot;
}

void MatchTree::hang_in_place_of(unsigned old, unsigned node) {
    Node &parent = nodes_[nodes_[old].parent];
    parent.child[parent.child[1] == old] = static_cast<Link>(node);
    if (node != 0) nodes_[node].parent = nodes_[old].parent;
    nodes_[old].parent = 0;
}

void MatchTree::take_children_of(unsigned old, unsigned node) {
    for (unsigned side = 0; side < 2; ++side) {
        const Link child = nodes_[old].child[side];
        nodes_[node].child[side] = child;
        if (child != 0) nodes_[child].parent = static_cast<Link>(node);
    }
}

Match MatchTree::insert(unsigned position) {
    if (position == 0) return {};
    const WindowString string(window_.at(position));
    Match best;
    unsigned node = nodes_[kRoot].child[1];
    for (;;) {
        const auto [equal, greater] = string.compare(window_.at(node));
        best.position = equal >= best.length ? node : best.position;
        best.length = equal >= best.length ? equal : best.length;
        if (equal == kLongestMatch) {
            hang_in_place_of(node, position);
            take_children_of(node, position);
            return best;
        }
        Link &child = nodes_[node].child[greater];
        if (child == 0) {
            child = static_cast<Link>(position);
            nodes_[position] = {static_cast<Link>(node), {0, 0}};
            return best;
        }
        node = child;
    }
}

void MatchTree::remove(unsigned position) {
    const Node &node = nodes_[position];
    if (node.parent == 0) return;
    if (node.child[0] == 0 || node.child[1] == 0) {
        hang_in_place_of(position, node.child[0] | node.child[1]);
        return;
    }
    unsigned before = node.child[0];
    while (nodes_[before].child[1] != 0) before = nodes_[before].child[1];
    hang_in_place_of(before, nodes_[before].child[0]);
    hang_in_place_of(position, before);
    take_children_of(position, before);
}

}  // namespace ink::data
