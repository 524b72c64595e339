// The fuzzed bytes taken apart into numbers, for fuzzers of calls.
#pragma once

#include <cstdint>

namespace fuzz {

class Numbers {
  public:
    Numbers(const std::uint8_t *data, std::size_t size) : data_(data), size_(size) {}

    bool left() const { return size_ != 0; }
    // 0 after the end.
    std::uint8_t byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    // From -32768 to 32767.
    std::int32_t number() {
        const int low = byte();
        return static_cast<std::int16_t>(low | byte() << 8);
    }
    // Mostly near a screen, else as far beyond it as numbers go.
    std::int32_t place() {
        const std::int32_t number = this->number();
        return number < -30000 || number > 30000 ? number * 65536 : number % 1024;
    }

  private:
    const std::uint8_t *data_;
    std::size_t size_;
};

}  // namespace fuzz
