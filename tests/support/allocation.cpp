#include "support/allocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

bool armed = false, refuse_all_after = false, refused = false;
std::size_t until_refusal = 0;
std::atomic<std::size_t> living = 0;  // a machine with a real disc reads ahead in a thread of its own

void *allocate(std::size_t size) {
    if (armed) {
        const bool refuse = refused ? refuse_all_after : until_refusal-- == 0;
        if (refuse) {
            refused = true;
            return nullptr;
        }
    }
    void *memory = std::malloc(size != 0 ? size : 1);
    if (memory != nullptr) ++living;
    return memory;
}

void release(void *memory) {
    if (memory != nullptr) --living;
    std::free(memory);
}

void *allocate_or_throw(std::size_t size) {
    void *memory = allocate(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

void *operator new(std::size_t size) {
    return allocate_or_throw(size);
}
void *operator new[](std::size_t size) {
    return allocate_or_throw(size);
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return allocate(size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return allocate(size);
}
void operator delete(void *memory) noexcept {
    release(memory);
}
void operator delete[](void *memory) noexcept {
    release(memory);
}
void operator delete(void *memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void *memory, std::size_t) noexcept {
    release(memory);
}

namespace test {

FailingAllocation::FailingAllocation(std::size_t failing, bool all_after) {
    until_refusal = failing;
    refuse_all_after = all_after;
    refused = false;
    armed = true;
}

bool FailingAllocation::disarm() {
    armed = false;
    return refused;
}

std::size_t living_allocations() {
    return living;
}

}  // namespace test
