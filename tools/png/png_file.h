// Pictures as PNG files, for the tools, the examples and the tests.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace ink::tool {

// Writes width x height palette indices, row by row, with a palette of 256 x 3 bytes (red, green, blue, 0 to
// 255 each). Throws std::runtime_error when the file cannot be written.
void write_png(const std::filesystem::path &name, int width, int height,
               std::span<const std::uint8_t> indices, std::span<const std::uint8_t, 768> palette);

// The same for width x height x 3 bytes, red, green, blue.
void write_png_rgb(const std::filesystem::path &name, int width, int height,
                   std::span<const std::uint8_t> rgb);

struct RgbPicture {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;  // width x height x 3 bytes
};

// Reads a file of any PNG kind as red, green and blue. Throws std::runtime_error when it cannot.
RgbPicture read_png_rgb(const std::filesystem::path &name);

}  // namespace ink::tool
