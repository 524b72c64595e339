#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "page.h"

namespace demo {

// The title over the landscape, all that the built-in text can do, and a line to type into.
class TitlePage : public Page {
  public:
    void draw(Game &game) override;
    void frame(Game &game, const Events &events) override;

  private:
    void draw_typing(Game &game);

    std::string typed_;
    std::vector<std::uint8_t> under_typing_;  // the image block below the typing line
    bool caret_ = false;
};

}  // namespace demo
