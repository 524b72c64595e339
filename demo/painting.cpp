#include "painting.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstdlib>

#include "frame.h"
#include "language.h"
#include "light.h"
#include "painting_tools.h"
#include "picture.h"
#include "play.h"
#include "pointer.h"
#include "sheet.h"
#include "sound.h"
#include "text.h"

namespace moon {
namespace {

constexpr int kPaperColour = kPaperRamp + 14;
constexpr const char *kFile = "MOON.PCX";

bool on_sheet(const Input &input) {
    return input.x >= kSheetX && input.x < kSheetX + kSheetSize && input.y >= kSheetY &&
           input.y < kSheetY + kSheetSize;
}

// From the whole room to the sheet on the desk, by a window that closes upon it.
void zoom_in() {
    const std::vector<std::uint8_t> room(screen(), screen() + INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT);
    const Point desk = layout_point("study", "desk", {320, 330});
    for_milliseconds(900, [&](int progress) {
        const int left = 1000 - progress * 3 / 4;  // a quarter of the room remains
        const int x = 320 + (desk.x - 320) * progress / 1000, y = 240 + (desk.y - 240) * progress / 1000;
        MEM_zoom_control(320 * left / 1000, 240 * left / 1000, x, y);
        MEM_scale_bitmap(screen(), room.data());
    });
}

void draw_desk(const std::vector<std::uint8_t> &desk, const Sheet &sheet, const Tools &tools) {
    std::copy(desk.begin(), desk.end(), screen());
    BUF_put_bitmap(kSheetX, kSheetY, kSheetSize, kSheetSize, sheet.pixels().data(), screen());
    // Where the moon goes; it is not part of the painting.
    const int x = kSheetX + kSheetSize / 2, y = kSheetY + kSheetSize / 2;
    BUF_circle(x, y, kMoonRadius, kMoonRadius, 0, 0, kPaperRamp + 10, screen());
    draw_tools(tools);
}

// One stroke, from where the button went down to where it is now.
void stroke(Sheet &sheet, const Tools &tools, Point from, Point last, Point now) {
    sheet.take(tools.colour, tools.radius);
    switch (tools.tool) {
        case Tool::kBrush: sheet.line(last, now); break;
        case Tool::kLine:
            sheet.restore();
            sheet.line(from, now);
            break;
        case Tool::kCircle:
            sheet.restore();
            sheet.circle(from, now);
            break;
        case Tool::kFill: break;
    }
}

void paint(Sheet &sheet, const std::vector<std::uint8_t> &desk) {
    Tools tools;
    Point from, last;
    bool painting = false;
    show_pointer(Pointer::kHand);
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kPainting);
        const Point now{input.x - kSheetX, input.y - kSheetY};
        if (input.click && on_sheet(input)) {
            sheet.remember();
            from = last = now;
            painting = true;
            sheet.take(tools.colour, tools.radius);
            if (tools.tool == Tool::kFill) sheet.fill(now);
        }
        if (painting) stroke(sheet, tools, from, last, now);
        last = now;
        painting = painting && input.held;
        draw_desk(desk, sheet, tools);
        end_frame();
        if (!input.click || on_sheet(input)) continue;
        switch (click_tools(tools, input.x, input.y)) {
            case ToolClick::kDone: return;
            case ToolClick::kUndo: sheet.undo(); break;
            case ToolClick::kWipe:
                sheet.remember();
                sheet.wipe();
                break;
            case ToolClick::kChosen: break;
            case ToolClick::kNothing: continue;
        }
        play(Sound::kClick);
    }
}

}  // namespace

void paint_moon() {
    Sheet sheet(kSheetSize, kPaperColour);
    play_music(kPaintingMusic);
    zoom_in();
    fade_out();
    prepare(Light::kDay);
    const std::vector<std::uint8_t> desk = read_screen("paper.pcx");
    draw_desk(desk, sheet, {});
    WViewBuffer2Screen();
    fade_to(Light::kDay);
    paint(sheet, desk);
    PCX_inport_palette(palette());
    PCX_save_file(kFile, 0, 0, kSheetSize, kSheetSize, sheet.pixels().data(), kSheetSize, 0);
    play(Sound::kBell);
    fade_out();
    prepare(get(kNight) != 0 ? Light::kNight : Light::kDay);
    show_place();
}

std::vector<std::uint8_t> read_painting() {
    std::vector<std::uint8_t> pixels(kSheetSize * kSheetSize, kPaperColour);
    std::int32_t width = 0, height = 0;
    if (check_file_exist(kFile) == 0 && PCX_get_image_size(kFile, &width, &height) >= 0 &&
        width == kSheetSize && height == kSheetSize)
        PCX_read_file(kFile, pixels.data());
    return pixels;
}

std::vector<std::uint8_t> cut_moon(const std::vector<std::uint8_t> &painting) {
    constexpr int kSize = kMoonRadius * 2 + 1, kFirst = kSheetSize / 2 - kMoonRadius;
    std::vector<std::uint8_t> moon(kSize * kSize + 4);
    MEM_get_image(kFirst, kFirst, kSize, kSize, moon.data(), painting.data(), kSheetSize, kSheetSize);
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            const int dx = x - kMoonRadius, dy = y - kMoonRadius, square = dx * dx + dy * dy;
            std::uint8_t &pixel = moon[static_cast<std::size_t>(y * kSize + x) + 4];
            if (square > kMoonRadius * kMoonRadius)
                pixel = 0;
            else if (pixel == kPaperColour)  // bright in the middle, and a little less so towards the edge
                pixel = static_cast<std::uint8_t>(kMoonRamp + 7 - square * 3 / (kMoonRadius * kMoonRadius));
        }
    }
    return moon;
}

}  // namespace moon
