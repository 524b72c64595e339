// Compressed image blocks, for the readers that hold one in memory.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ink::formats {

inline constexpr std::size_t kCompressedHeader = 16;

// The size of the image block that a compressed block says it expands to.
std::size_t expanded_size(const std::uint8_t *block);

// Gives the image block the width and height of the compressed block.
void copy_image_size(const std::uint8_t *block, std::uint8_t *image);

// Expands a compressed block of which code_present code bytes are there, however many its header states.
// False and a log line when it is none; nothing is written then.
bool expand_image(const std::uint8_t *block, std::size_t code_present, std::uint8_t *image);

}  // namespace ink::formats
