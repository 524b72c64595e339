// A page of the gallery: a title, and a grid of cells with a caption under each picture.
#pragma once

#include <string>
#include <vector>

#include "art.h"

namespace gallery {

inline constexpr int kWidth = 640, kHeight = 480;
inline constexpr int kPageTop = 50;  // where the cells begin

// Where an exhibit draws: a rectangle of the screen buffer that is its own.
struct Cell {
    int x, y, width, height;
    std::uint8_t *screen;

    int right() const { return x + width - 1; }
    int bottom() const { return y + height - 1; }
    int middle_x() const { return x + width / 2; }
    int middle_y() const { return y + height / 2; }
};

// One operation: its name, and a procedure that shows it in a cell.
struct Exhibit {
    const char *caption;
    void (*draw)(const Cell &);
};

struct Page {
    const char *name;  // of the file
    const char *title;
    int columns, rows, caption_lines;
    std::vector<Exhibit> exhibits;
};

// Draws the page into a screen buffer.
Bytes draw_page(const Page &page);

// A text line in a palette index, with its middle at x.
void print(int x, int y, const std::string &text, int colour, std::uint8_t *screen);

// Grounds to draw on: a plain one, a checkerboard that shows what is transparent, and the landscape.
void plain_ground(const Cell &cell);
void checkered_ground(const Cell &cell);
void landscape_ground(const Cell &cell);

// A memory buffer of a cell's size, which starts as what the cell shows and is put back into it at the end.
class Memory {
  public:
    explicit Memory(const Cell &cell);
    ~Memory();
    Memory(const Memory &) = delete;
    Memory &operator=(const Memory &) = delete;

    int width() const { return cell_.width; }
    int height() const { return cell_.height; }
    std::uint8_t *data() { return pixels_.data(); }

  private:
    Cell cell_;
    Bytes pixels_;
};

// The pages.
Page screen_page();
Page memory_page();
Page effects_page();
Page mirrors_page();
Page scaling_page();
Page figures_page();
Page palettes_page();

}  // namespace gallery
