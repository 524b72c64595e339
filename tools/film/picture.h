// Pictures of palette indices, as the tools read, show and put together.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace ink::tool {

using Bytes = std::vector<std::uint8_t>;

struct IndexedPicture {
    int width = 0, height = 0;
    Bytes pixels = Bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    std::array<std::uint8_t, 768> palette{};  // components 0 to 63
    int x = 0, y = 0;                         // where the picture's file places it

    const std::uint8_t *row(int y_of_row) const {
        return pixels.data() + static_cast<std::ptrdiff_t>(y_of_row) * width;
    }
    std::uint8_t *row(int y_of_row) { return pixels.data() + static_cast<std::ptrdiff_t>(y_of_row) * width; }
};

// Appends a span of bytes.
void append(Bytes &to, std::span<const std::uint8_t> bytes);

// Reads a PCX file. Throws std::runtime_error when it cannot be read or has no pixels.
IndexedPicture read_picture(const std::filesystem::path &name);

// The palette with components of 0 to 255, the brightest 63 becoming 255.
std::array<std::uint8_t, 768> bright_palette(const std::array<std::uint8_t, 768> &palette);

// Reads and writes whole files; both throw std::runtime_error.
Bytes read_bytes(const std::filesystem::path &name);
void write_bytes(const std::filesystem::path &name, const Bytes &bytes);

}  // namespace ink::tool
