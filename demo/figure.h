// Figures: animations that stand in a scene on their feet, smaller the farther off they are.
#pragma once

#include <inkstone/can.h>

#include <cstdint>
#include <string>
#include <vector>

namespace moon {

class Figure {
  public:
    Figure() = default;
    ~Figure();
    Figure(const Figure &) = delete;
    Figure &operator=(const Figure &) = delete;

    // Reads a CAN animation whose positions count from the feet.
    void load(const std::string &name);

    struct Look {
        int frame = 0;
        int percent = 100;  // of its full size
        bool mirrored = false;
        int outline = 0;  // colour of its outline, 0 for none
        int key = 0;      // what the mask is given where it stands
    };
    // Draws it into the screen buffer with its feet at (x, y), after its shadow.
    void draw(int x, int y, const Look &look, std::uint8_t *mask) const;

  private:
    ANI_DATA_STRUCT *animation_ = nullptr;
    std::vector<const ANI_DATA_STRUCT *> frames_;
};

}  // namespace moon
