// What the hero carries: a strip of glass at the top of the screen, which comes down when the pointer is near.
#pragma once

#include <cstdint>

#include "frame.h"
#include "language.h"
#include "layout.h"

namespace moon {

void load_things();
void name_carried(int thing, const Both &name);

// The picture of a thing, an image block of 48 x 48 pixels.
const std::uint8_t *thing_image(int thing);

// Draws the strip as far as it is down, and the thing in the hand beside the pointer.
void draw_inventory(const Input &input);

// Takes a click on the strip, which puts a thing into the hand or back; false when it was not for the strip.
bool click_inventory(const Input &input);

// Where a thing lies in the strip when it is down.
Point place_in_strip(int thing);

}  // namespace moon
