#include "painting_tools.h"

#include <inkstone/inkstone.h>

#include <iterator>

#include "frame.h"
#include "language.h"
#include "light.h"
#include "panel.h"
#include "text.h"
#include "words.h"

namespace moon {
namespace {

struct Box {
    int left, top, right, bottom;
    bool holds(int x, int y) const { return x >= left && x <= right && y >= top && y <= bottom; }
    int middle_x() const { return (left + right) / 2; }
    int middle_y() const { return (top + bottom) / 2; }
    Point middle() const { return {middle_x(), middle_y()}; }
};

constexpr int kColours[] = {kInkBlack, kGrey, kVermilion, kGold, kJade, 9, 10, kWhite};
constexpr int kRadii[] = {1, 4, 9};
constexpr ToolClick kButtons[] = {ToolClick::kUndo, ToolClick::kWipe, ToolClick::kDone};

// Two columns of four tools at the left, with three thicknesses below; colours and buttons at the right.
Box tool_box(int i) {
    const int x = 28 + i % 2 * 60, y = 84 + i / 2 * 60;
    return {x, y, x + 51, y + 51};
}
Box radius_box(int i) {
    const int x = 28 + i * 40;
    return {x, 222, x + 31, 261};
}
Box colour_box(int i) {
    const int x = 494 + i % 4 * 32, y = 84 + i / 4 * 36;
    return {x, y, x + 25, y + 27};
}
Box button_box(int i) {
    return {494, 178 + i * 60, 616, 178 + i * 60 + 45};
}

void draw_box(const Box &box, bool chosen) {
    BUF_glass_bar(box.left, box.top, box.right, box.bottom, kDarkGlass, screen());
    BUF_box(box.left, box.top, box.right, box.bottom, chosen ? kBrightGold : kGrey, screen());
    if (chosen) BUF_box(box.left + 1, box.top + 1, box.right - 1, box.bottom - 1, kGold, screen());
}

// A disc, from a row above or below its middle on.
void draw_disc(int x, int y, int radius, int first_row, int colour) {
    for (int row = first_row; row <= radius; ++row) {
        int half = 0;
        while ((half + 1) * (half + 1) + row * row <= radius * radius + radius) ++half;
        BUF_line(x - half, y + row, x + half, y + row, colour, screen());
    }
}

// What the tool does, drawn with it.
void draw_sign(Tool tool, const Box &box) {
    const int x = box.middle_x(), y = box.middle_y();
    switch (tool) {
        case Tool::kBrush:
            for (int i = 0; i < 5; ++i) {
                BUF_line(x + 2 + i, y - 16, x - 8 + i, y + 4, 11, screen());
                BUF_line(x - 8 + i, y + 5, x - 12, y + 17, kPaperWhite, screen());
            }
            break;
        case Tool::kLine:
            for (int i = 0; i < 3; ++i)
                BUF_line(x - 15, y + 12 + i, x + 15, y - 14 + i, kPaperWhite, screen());
            break;
        case Tool::kCircle:
            for (int r = 13; r < 16; ++r) BUF_circle(x, y, r, r, 0, 0, kPaperWhite, screen());
            break;
        case Tool::kFill:
            BUF_circle(x, y, 15, 15, 0, 0, kPaperWhite, screen());
            draw_disc(x, y, 13, 0, kVermilion);
            break;
    }
}

}  // namespace

void draw_tools(const Tools &tools) {
    for (int i = 0; i < 4; ++i) {
        draw_box(tool_box(i), static_cast<int>(tools.tool) == i);
        draw_sign(static_cast<Tool>(i), tool_box(i));
    }
    for (int i = 0; i < 3; ++i) {
        const Box box = radius_box(i);
        draw_box(box, tools.radius == kRadii[i]);
        draw_disc(box.middle_x(), box.middle_y(), kRadii[i], -kRadii[i], kPaperWhite);
    }
    for (int i = 0; i < static_cast<int>(std::size(kColours)); ++i) {
        const Box box = colour_box(i);
        BUF_bar(box.left, box.top, box.right, box.bottom, kColours[i], screen());
        const bool chosen = tools.colour == kColours[i];
        BUF_box(box.left - 1, box.top - 1, box.right + 1, box.bottom + 1, kInkBlack, screen());
        if (chosen) BUF_box(box.left - 3, box.top - 3, box.right + 3, box.bottom + 3, kBrightGold, screen());
    }
    const Both names[] = {{UNDO_ZH, UNDO_EN}, {WIPE_ZH, WIPE_EN}, {DONE_ZH, DONE_EN}};
    const TextStyle style{kPaperWhite, kInkBlack, kBrightGold, false};
    for (int i = 0; i < 3; ++i) {
        const Box box = button_box(i);
        draw_box(box, kButtons[i] == ToolClick::kDone);
        print_centred(box.middle_x(), box.middle_y() - kTextHeight / 2, in_language(names[i]), style);
    }
    print_centred(INK_SCREEN_WIDTH / 2, 400, in_language(PAINT_HINT_ZH, PAINT_HINT_EN), style);
}

ToolClick click_tools(Tools &tools, int x, int y) {
    for (int i = 0; i < 3; ++i)
        if (button_box(i).holds(x, y)) return kButtons[i];
    const Tools before = tools;
    for (int i = 0; i < 4; ++i)
        if (tool_box(i).holds(x, y)) tools.tool = static_cast<Tool>(i);
    for (int i = 0; i < 3; ++i)
        if (radius_box(i).holds(x, y)) tools.radius = kRadii[i];
    for (int i = 0; i < static_cast<int>(std::size(kColours)); ++i)
        if (colour_box(i).holds(x, y)) tools.colour = kColours[i];
    const bool same =
        before.tool == tools.tool && before.radius == tools.radius && before.colour == tools.colour;
    return same ? ToolClick::kNothing : ToolClick::kChosen;
}

std::vector<Point> clicks_between(const Tools &now, const Tools &wanted) {
    std::vector<Point> clicks;
    if (now.tool != wanted.tool) clicks.push_back(tool_box(static_cast<int>(wanted.tool)).middle());
    for (int i = 0; i < 3; ++i)
        if (now.radius != wanted.radius && wanted.radius == kRadii[i])
            clicks.push_back(radius_box(i).middle());
    for (int i = 0; i < static_cast<int>(std::size(kColours)); ++i)
        if (now.colour != wanted.colour && wanted.colour == kColours[i])
            clicks.push_back(colour_box(i).middle());
    return clicks;
}

Point done_button() {
    return button_box(2).middle();
}

}  // namespace moon
