// One page of the demo.
#pragma once

#include <cstdint>

#include "game.h"

namespace demo {

// What the frame loop read from the keyboard and the mouse.
struct Events {
    std::uint8_t key = 0;    // of read_data_key, once for each press
    std::uint8_t mouse = 0;  // of MOUSE_get_key, once for each event
    std::int32_t x = 0, y = 0;
};

class Page {
  public:
    virtual ~Page() = default;
    // The palette the page is faded in with.
    virtual Palette palette(const Game &game) const { return game.palette(); }
    // Draws the whole page into the screen buffer; the loop presents it.
    virtual void draw(Game &game) = 0;
    // One frame: answers the events, and presents what it changed.
    virtual void frame(Game &game, const Events &events) = 0;
    // Whether the page shows the image cursor.
    virtual bool has_image_cursor() const { return false; }
};

}  // namespace demo
