// Failing allocations: the test program's operator new, which the library uses too, can be told to refuse.
#pragma once

#include <cstddef>

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

// How many blocks are allocated and not freed.
std::size_t living_allocations();

}  // namespace test
