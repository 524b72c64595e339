// Failing allocations: the test program's operator new, which the library uses too, can be told to refuse.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <limits>

namespace test {

// While armed, allocation number failing (counted from 0) is refused, and with all_after every later one too.
class FailingAllocation {
  public:
    explicit FailingAllocation(std::size_t failing, bool all_after = false);
    ~FailingAllocation() { disarm(); }
    FailingAllocation(const FailingAllocation &) = delete;
    FailingAllocation &operator=(const FailingAllocation &) = delete;

    // Ends it; whether an allocation was refused.
    bool disarm();
};

// Whether the library's allocations can be refused at all: not where it carries an operator new of its own.
#if defined(_WIN32)
inline constexpr bool kAllocationsCanFail = false;
#else
inline constexpr bool kAllocationsCanFail = true;
#endif

// Calls operation with its first allocation refused, then with its second, ... and check after each, until it
// comes through without asking for more; then the same with all later allocations refused as well.
// operation's last call is one that succeeded. Returns how many allocations a call makes.
template <class Operation, class Check>
std::size_t fail_each_allocation(Operation operation, Check check) {
    std::size_t count = 0;
    if (!kAllocationsCanFail) {
        operation();
        return std::numeric_limits<std::size_t>::max();  // as many as one likes
    }
    for (const bool all_after : {true, false}) {
        for (count = 0;; ++count) {
            FailingAllocation failing(count, all_after);
            operation();
            if (!failing.disarm()) break;
            check();
        }
    }
    return count;
}

}  // namespace test
