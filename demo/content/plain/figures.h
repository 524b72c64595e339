// The people of the game in plain shapes: animations that stand on their feet, and portraits.
#pragma once

#include <vector>

#include "picture/picture.h"

namespace plain {

struct Person {
    int cloth;   // base of the ramp of the robe
    int height;  // pixels
    bool beard, hat, buns, cat;
};
inline constexpr Person kHero{184, 108, false, false, false, false};
inline constexpr Person kMaster{192, 100, true, false, false, false};
inline constexpr Person kSeller{200, 104, false, false, false, false};
inline constexpr Person kGirl{208, 76, false, false, true, true};
inline constexpr Person kBoatman{160, 110, false, true, false, false};

// Eight frames of walking, two of standing and two of reaching; or four of standing and two of talking.
std::vector<ink::tool::IndexedPicture> walking(const Person &person);
std::vector<ink::tool::IndexedPicture> standing(const Person &person);

// 112 x 136 pixels.
ink::tool::IndexedPicture portrait(const Person &person);

// A part of a page as a picture, placed at (x, y).
ink::tool::IndexedPicture cut(std::uint8_t *page, int left, int top, int width, int height, int x, int y);

}  // namespace plain
