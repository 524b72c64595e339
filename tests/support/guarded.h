// A block of memory with filled margins before and after it: a write outside the block is seen by intact(), a
// read outside it by the address sanitizer where it leaves the margins.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace test {

class Guarded {
  public:
    explicit Guarded(std::size_t size, std::uint8_t fill = 0)
        : bytes_(size + 2 * kMargin, kGuard), size_(size) {
        std::fill_n(data(), size, fill);
    }
    std::uint8_t *data() { return bytes_.data() + kMargin; }
    const std::uint8_t *data() const { return bytes_.data() + kMargin; }
    operator std::uint8_t *() { return data(); }
    std::size_t size() const { return size_; }
    std::vector<std::uint8_t> contents() const { return {data(), data() + size_}; }
    bool intact() const {
        const auto guard = [](std::uint8_t byte) { return byte == kGuard; };
        return std::all_of(bytes_.begin(), bytes_.begin() + kMargin, guard) &&
               std::all_of(bytes_.end() - kMargin, bytes_.end(), guard);
    }

  private:
    static constexpr std::ptrdiff_t kMargin = 4096;
    static constexpr std::uint8_t kGuard = 0xA5;
    std::vector<std::uint8_t> bytes_;
    std::size_t size_;
};

}  // namespace test
