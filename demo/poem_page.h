#pragma once

#include "page.h"

namespace demo {

// A page of Traditional Chinese text in both sizes with every effect.
class PoemPage : public Page {
  public:
    void draw(Game &game) override;
    void frame(Game &, const Events &) override {}
};

}  // namespace demo
