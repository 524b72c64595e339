// The painting of the moon: a sheet of paper, brushes and colours, lines, circles and fills.
#pragma once

#include <cstdint>
#include <vector>

namespace moon {

// The sheet is a square bitmap; the moon is what is painted in the circle in its middle.
constexpr int kSheetSize = 288, kMoonRadius = 120;
constexpr int kSheetX = 176, kSheetY = 72;  // on the screen

// Zooms into the desk and lets the player paint until the painting is done; it is kept as MOON.PCX.
void paint_moon();

// The painting that was kept; an empty sheet when there is none.
std::vector<std::uint8_t> read_painting();

// The moon out of a painting: an image block, round, with the bare paper shining.
std::vector<std::uint8_t> cut_moon(const std::vector<std::uint8_t> &painting);

}  // namespace moon
