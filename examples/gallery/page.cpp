#include "page.h"

#include <algorithm>

#include "inkstone/ascii.h"
#include "inkstone/draw.h"

namespace gallery {
namespace {

constexpr int kBarHeight = 40, kMargin = 6, kLine = 16, kGlyph = 8;

// Breaks a caption that is too wide for the page's cells behind the last underscore that leaves the first
// line narrow enough.
std::vector<std::string> lines_of(const std::string &caption, const Page &page) {
    const auto most = static_cast<std::size_t>(kWidth / page.columns / kGlyph);
    const std::size_t gap = caption.rfind('_', most - 1);
    if (page.caption_lines == 1 || caption.size() <= most || gap == std::string::npos) return {caption};
    return {caption.substr(0, gap + 1), caption.substr(gap + 1)};
}

void draw_title(const char *title, std::uint8_t *screen) {
    BUF_bar(0, 0, kWidth - 1, kBarHeight - 1, kInk + 3, screen);
    BUF_bar(0, kBarHeight, kWidth - 1, kBarHeight + 1, kGold + 8, screen);
    set_ascii16_color(0, kPaper + 15);
    print_ascii16(12, 4, "~C0~Z1", 1, screen);
    print_ascii16(12, 4, title, 1, screen);
    print_ascii16(12, 4, "~Z0", 1, screen);
}

}  // namespace

void print(int x, int y, const std::string &text, int colour, std::uint8_t *screen) {
    set_ascii16_color(0, colour);
    print_ascii16(x - static_cast<int>(text.size()) * kGlyph / 2, y, text.c_str(), 1, screen);
}

Bytes draw_page(const Page &page) {
    Bytes screen(kWidth * kHeight, kInk + 1);
    draw_title(page.title, screen.data());
    const int cell_width = kWidth / page.columns, cell_height = (kHeight - kPageTop) / page.rows;
    const int picture_height = cell_height - page.caption_lines * kLine - kMargin;
    const int count = static_cast<int>(page.exhibits.size());
    for (int i = 0; i < count; ++i) {
        const int row = i / page.columns, column = i % page.columns;
        // What does not fill the last row stands in its middle.
        const int in_row = std::min(page.columns, count - row * page.columns);
        const int left = (kWidth - in_row * cell_width) / 2 + column * cell_width;
        const Cell cell{left + kMargin, kPageTop + row * cell_height, cell_width - 2 * kMargin,
                        picture_height, screen.data()};
        plain_ground(cell);
        const Exhibit &exhibit = page.exhibits[static_cast<std::size_t>(i)];
        exhibit.draw(cell);
        BUF_box(cell.x - 1, cell.y - 1, cell.right() + 1, cell.bottom() + 1, kInk + 8, screen.data());
        int y = cell.bottom() + 2;
        for (const std::string &line : lines_of(exhibit.caption, page)) {
            print(left + cell_width / 2, y, line, kPaper + 12, screen.data());
            y += kLine - 2;
        }
    }
    return screen;
}

void plain_ground(const Cell &cell) {
    BUF_bar(cell.x, cell.y, cell.right(), cell.bottom(), kInk + 4, cell.screen);
}

void checkered_ground(const Cell &cell) {
    constexpr int kSquare = 8;
    for (int y = 0; y < cell.height; y += kSquare)
        for (int x = 0; x < cell.width; x += kSquare)
            BUF_bar(cell.x + x, cell.y + y, std::min(cell.x + x + kSquare - 1, cell.right()),
                    std::min(cell.y + y + kSquare - 1, cell.bottom()), kJade + 3 + (x + y) / kSquare % 2,
                    cell.screen);
}

void landscape_ground(const Cell &cell) {
    const Bytes picture = landscape(cell.width, cell.height);
    BUF_put_bitmap(cell.x, cell.y, cell.width, cell.height, picture.data(), cell.screen);
}

Memory::Memory(const Cell &cell) : cell_(cell), pixels_(static_cast<std::size_t>(cell.width * cell.height)) {
    BUF_get_bitmap(cell.x, cell.y, cell.width, cell.height, pixels_.data(), cell.screen);
}

Memory::~Memory() {
    BUF_put_bitmap(cell_.x, cell_.y, cell_.width, cell_.height, pixels_.data(), cell_.screen);
}

}  // namespace gallery
