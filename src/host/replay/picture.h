// The pictures that a record keeps: what every window shows and the palette through which it is seen, each
// written as the difference to the one before.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "host/host.h"
#include "host/replay/range_coder.h"

namespace ink::host {

struct Pane {
    std::int32_t width = 0, height = 0;
    std::vector<std::uint8_t> pixels;  // palette indices
    bool operator==(const Pane &) const = default;
};

struct Picture {
    // Larger ones, all windows together, are not kept.
    static constexpr std::size_t kMostPixels = 1 << 24;

    std::vector<Pane> panes;  // of the windows, in the order in which they were opened
    std::array<Color, 256> palette{};
    bool operator==(const Picture &) const = default;
};

// As a file that every system shows. False when it cannot be written.
bool write_bitmap(const char *name, const Pane &pane, const std::array<Color, 256> &palette);

class PictureModel {
  public:
    // Makes old, the picture before, the next one: an encoder writes fresh, a decoder does not look at it.
    // Throws std::bad_alloc.
    template <class Coder>
    void code(Coder &coder, Picture &old, const Picture &fresh);

  private:
    template <class Coder>
    void code_layout(Coder &coder, Picture &old, const Picture &fresh);
    template <class Coder>
    void code_palette(Coder &coder, Picture &old, const Picture &fresh);
    template <class Coder>
    void code_pane(Coder &coder, Pane &old, const Pane &fresh);
    template <class Coder>
    std::uint8_t code_pixel(Coder &coder, std::uint8_t left, std::uint8_t above, std::uint8_t pixel);

    Chance new_layout_, new_palette_;
    NumberModel count_, side_;
    std::array<Chance, 2> entry_changes_, row_changes_;  // by whether the one before did
    std::array<Tree<8>, 3> components_;
    std::array<Chance, 8> changes_;  // by whether the pixels to the left, above and behind that one did
    std::array<Chance, 8> is_left_;  // by whether left and above are alike, and the two pixels before
    Chance is_above_;
    std::array<Tree<8>, 256> colours_;  // by the pixel to the left
    std::uint32_t history_ = 0;
};

extern template void PictureModel::code(Encoder &, Picture &, const Picture &);
extern template void PictureModel::code(Decoder &, Picture &, const Picture &);

}  // namespace ink::host
