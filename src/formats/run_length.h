// The run-length code of compressed images and PCX files. A byte of 0x00 to 0xBF is one pixel of that value;
// a byte of 0xC0 or above carries a count in its low 6 bits, and the byte after it is written so many times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ink::formats {

// Codes one row and returns the number of code bytes. Two bytes a pixel is the most there can be, and is what
// code must have room for.
std::size_t encode_row(std::span<const std::uint8_t> pixels, std::uint8_t *code);

// Expands code piece by piece: a run that reaches beyond one piece goes on in the next.
class RunDecoder {
  public:
    // No byte of the code is read that no pixel asks for, so more may be stated than is there.
    explicit RunDecoder(std::span<const std::uint8_t> code)
        : next_(code.data()), end_(code.data() + code.size()) {}

    // Writes the next count pixels, or as many as the code still has, and returns how many.
    std::size_t decode(std::uint8_t *pixels, std::size_t count);

  private:
    template <std::ptrdiff_t ahead, class Step>
    std::uint8_t *expand(std::uint8_t *to, const std::uint8_t *end, Step step);

    const std::uint8_t *next_, *end_;
    std::size_t run_ = 0;  // what is left of the run begun
    std::uint8_t value_ = 0;
};

}  // namespace ink::formats
