#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "page.h"

namespace demo {

// A scholar's desk: the things on it are told apart by a mask, answer to the pointer and do something when
// clicked.
class DeskPage : public Page {
  public:
    void draw(Game &game) override;
    void frame(Game &game, const Events &events) override;
    bool has_image_cursor() const override { return true; }

  private:
    // The things' numbers in the mask; 0 is the bare desk.
    enum Thing : std::uint8_t { kNothing, kInkstone, kBrush, kPaperSheet, kLamp, kSeal, kThings };

    void draw_desk();
    void draw_thing(Thing thing);
    void compose(Game &game);
    void use(Game &game, Thing thing, const Events &events);

    std::vector<std::uint8_t> desk_;             // the picture without the cursor
    std::vector<std::uint8_t> mask_;             // for each pixel, which thing was drawn there last
    std::vector<std::uint8_t> work_;             // scratch for the outlines
    std::vector<std::uint8_t> images_[kThings];  // image blocks
    std::int32_t lefts_[kThings]{}, tops_[kThings]{};
    Thing hovered_ = kNothing;
    bool lamp_lit_ = true;
    bool inked_ = false;  // the brush was dipped
    std::int32_t ripple_ = 0;
    std::vector<std::pair<std::int32_t, std::int32_t>> strokes_, seals_;
};

}  // namespace demo
