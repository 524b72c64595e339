#pragma once

#include "page.h"

namespace demo {

// A page of Traditional Chinese text in both sizes with every effect.
class PoemPage : public Page {
  public:
    PoemPage();
    ~PoemPage() override;
    PoemPage(const PoemPage &) = delete;
    PoemPage &operator=(const PoemPage &) = delete;

    Palette palette(const Game &game) const override;
    void draw(Game &game) override;
    void frame(Game &, const Events &) override {}

  private:
    bool has_fonts_;
};

}  // namespace demo
