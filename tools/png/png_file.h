// Pictures as PNG files, for the tools, the examples and the tests.
#pragma once

#include <array>
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

// The same as bytes of a file, with entry 0 as a colour that is not there when transparent says so.
std::vector<std::uint8_t> encode_png(int width, int height, std::span<const std::uint8_t> indices,
                                     std::span<const std::uint8_t, 768> palette, bool transparent = false);

struct RgbPicture {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;  // width x height x 3 bytes
};

// Reads a file of any PNG kind as red, green and blue. Throws std::runtime_error when it cannot.
RgbPicture read_png_rgb(const std::filesystem::path &name);

// A picture as its file has it: palette indices with their colours, or a colour for every pixel. Colours are
// red, green, blue and opacity, 0 to 255 each.
struct PngPicture {
    using Colour = std::array<std::uint8_t, 4>;
    int width = 0, height = 0;
    std::vector<std::uint8_t> indices;  // width x height; empty when the file has no palette
    std::vector<Colour> palette;        // up to 256, of indices
    std::vector<Colour> colours;        // width x height; empty when there are indices
};

bool is_png(std::span<const std::uint8_t> file);

// Throws std::runtime_error, whose message is the reason alone, for a file that is damaged or no PNG file,
// and for a picture of more than 2^26 pixels.
PngPicture decode_png(std::span<const std::uint8_t> file);

}  // namespace ink::tool
