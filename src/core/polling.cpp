#include "inkstone/polling.h"

#include <array>
#include <cstdint>
#include <new>

#include "core/log.h"

namespace {

// A chain that ends in a node without a procedure, the open end, into which the next one is appended.
struct Node {
    Node *previous = nullptr, *next = nullptr;
    INK_PROCEDURE procedure = nullptr;
};

std::array<Node *, 8> lists;

// Where a call of PollingExecute stands, for each of those under way. Removing the entry that one stands at moves
// it on to the entry behind.
class Execution {
  public:
    explicit Execution(Node *first) : current_(first), outer_(innermost_) { innermost_ = this; }
    // Also when a procedure throws.
    ~Execution() { innermost_ = outer_; }
    Execution(const Execution &) = delete;
    Execution &operator=(const Execution &) = delete;

    void run() {
        while (current_ != nullptr) {
            moved_on_ = false;
            if (current_->procedure != nullptr) current_->procedure();
            if (!moved_on_) current_ = current_->next;
        }
    }

    static void forget(const Node *node) {
        for (Execution *execution = innermost_; execution != nullptr; execution = execution->outer_) {
            if (execution->current_ != node) continue;
            execution->current_ = node->next;
            execution->moved_on_ = true;
        }
    }

  private:
    static inline Execution *innermost_ = nullptr;

    Node *current_;
    bool moved_on_ = false;
    Execution *outer_;
};

// Null for a number that no list can have.
Node **find_list(std::int32_t number) {
    return number >= 0 && number < static_cast<std::int32_t>(lists.size())
               ? &lists[static_cast<std::size_t>(number)]
               : nullptr;
}

// The first node with the procedure; null when the list has none or does not exist. The open end is none.
Node *find(Node **list, INK_PROCEDURE procedure) {
    if (list == nullptr || procedure == nullptr) return nullptr;
    for (Node *node = *list; node != nullptr; node = node->next)
        if (node->procedure == procedure) return node;
    return nullptr;
}

void free_node(Node *node) {
    Execution::forget(node);
    delete node;
}

}  // namespace

int32_t PollingInit(int32_t list) {
    Node **first = find_list(list);
    if (first == nullptr) return -2;
    *first = new (std::nothrow) Node;
    if (*first != nullptr) return 0;
    ink::log_error_format("PollingInit(%d) error", list);
    return -2;
}

int32_t PollingAppend(int32_t list, INK_PROCEDURE procedure) {
    Node **first = find_list(list);
    // A null procedure would be taken for the open end.
    if (first == nullptr || *first == nullptr || procedure == nullptr) return -2;
    Node *end = *first;
    while (end->next != nullptr) end = end->next;
    Node *open = new (std::nothrow) Node{end, nullptr, nullptr};
    if (open == nullptr) return -2;
    end->procedure = procedure;
    end->next = open;
    return 0;
}

int32_t PollingInsert(int32_t list, INK_PROCEDURE procedure, INK_PROCEDURE anchor) {
    Node *before = find(find_list(list), anchor);
    if (before == nullptr || procedure == nullptr) return -2;
    Node *node = new (std::nothrow) Node{before, before->next, procedure};
    if (node == nullptr) return -2;
    before->next->previous = node;
    before->next = node;
    return 0;
}

int32_t PollingDelete(int32_t list, INK_PROCEDURE procedure) {
    Node **first = find_list(list);
    Node *node = find(first, procedure);
    if (node == nullptr) return -2;
    (node->previous != nullptr ? node->previous->next : *first) = node->next;
    node->next->previous = node->previous;
    free_node(node);
    return 0;
}

int32_t PollingClear(int32_t list) {
    Node **first = find_list(list);
    if (first == nullptr || *first == nullptr) return -2;
    for (Node *node = *first; node != nullptr;) {
        Node *next = node->next;
        free_node(node);
        node = next;
    }
    *first = nullptr;
    return 0;
}

int32_t PollingExecute(int32_t list) {
    Node **first = find_list(list);
    if (first == nullptr) return -2;
    Execution(*first).run();
    return 0;
}
