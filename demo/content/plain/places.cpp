// The places of the game in plain shapes, each with the mask that says what is where.
#include "plain/places.h"

#include <inkstone/draw.h>
#include <inkstone/line.h>

#include <array>

namespace plain {
namespace {

constexpr int kFloorKey = 1, kLeftKey = 2, kRightKey = 3;

void moon_window(Page &page) {
    // The lake, seen through a round hole in the wall.
    Page view;
    view.shade(0, 60, 639, 190, kSky + 10, kSky + 31);
    view.ridge(11, 190, 214, 70, kMountain + 7);
    view.water(0, 214, 639, 260);
    page.ellipse(320, 165, 92, 92, kWood + 3);
    page.ellipse(320, 165, 88, 88, kWood + 7);
    for (int y = -80; y <= 80; ++y)
        for (int x = -80; x <= 80; ++x)
            if (x * x + y * y <= 80 * 80)
                BUF_put_pixel(320 + x, 165 + y, BUF_get_pixel(320 + x, 165 + y, view.pixels()),
                              page.pixels());
    for (const int x : {280, 320, 360}) BUF_line(x, 90, x, 240, kWood + 4, page.pixels());
}

void roof(Page &page, int left, int right, int top, int height) {
    page.trapeze(top, left + height, right - height, top + height, left - 14, right + 14, kInk + 4);
    for (int x = left; x < right; x += 10)
        BUF_line(x + height - (x - left) * height * 2 / (right - left), top, x, top + height, kInk + 7,
                 page.pixels());
    page.bar(left - 16, top + height, right + 16, top + height + 4, kInk + 2);
}

}  // namespace

Place study() {
    Place place;
    Page &page = place.picture, &mask = place.mask;
    page.shade(0, 0, 639, 335, kPaper + 4, kPaper + 12);
    for (int x = 0; x < 640; x += 128) page.bar(x, 0, x + 7, 335, kWood + 5);
    page.bar(0, 0, 639, 18, kWood + 3);
    page.bar(0, 325, 639, 335, kWood + 4);
    page.boards(336, 479, kWood + 6, kWood + 12);
    moon_window(page);
    mask.bar(0, 345, 639, 479, kFloorKey);
    mask.ellipse(320, 165, 88, 88, 15);
    // The shelf and its scrolls.
    page.bar(30, 100, 142, 330, kWood + 3);
    for (int y = 110; y < 320; y += 52) {
        page.bar(36, y, 136, y + 42, kWood + 1);
        for (int x = 44; x < 130; x += 17)
            page.ellipse(x, y + 30 - (x * 7 + y) % 12, 8, 8, (x + y) % 3 == 0 ? kVermilion + 9 : kPaper + 13);
    }
    mask.bar(30, 100, 142, 330, 12);
    // The stove with the kettle.
    page.trapeze(285, 168, 222, 345, 176, 214, kStone + 4);
    page.ellipse(195, 286, 28, 6, kStone + 2);
    page.ellipse(195, 268, 20, 16, kInk + 5);
    page.bar(186, 312, 204, 330, kGold + 11);
    mask.bar(166, 250, 224, 345, 13);
    // The bed under the window.
    page.bar(246, 292, 404, 350, kWood + 4);
    page.bar(250, 284, 400, 312, kIndigo + 4);
    page.ellipse(272, 282, 22, 9, kPaper + 14);
    mask.bar(246, 275, 404, 350, 14);
    // The screen, and the desk before it.
    page.bar(436, 120, 574, 300, kWood + 4);
    page.shade(442, 126, 568, 292, kPaper + 14, kPaper + 9);
    for (int i = 0; i < 5; ++i)
        BUF_line(455 + i * 22, 260 - i % 2 * 40, 480 + i * 20, 285, kMountain + 3, page.pixels());
    mask.bar(436, 120, 574, 264, 16);
    page.bar(424, 268, 580, 284, kWood + 6);
    page.bar(432, 284, 444, 356, kWood + 3);
    page.bar(560, 284, 572, 356, kWood + 3);
    page.bar(470, 260, 530, 267, kPaper + 14);
    mask.bar(424, 264, 580, 352, 11);
    // The way out.
    page.bar(598, 120, 639, 352, kInk + 3);
    page.shade(606, 128, 639, 352, kSky + 24, kSky + 31);
    mask.bar(596, 120, 639, 470, kRightKey);
    return place;
}

Place market() {
    Place place;
    Page &page = place.picture, &mask = place.mask;
    page.shade(0, 0, 639, 300, kSky + 2, kSky + 31);
    page.ridge(3, 250, 300, 90, kMountain + 9);
    page.water(0, 290, 639, 350);
    mask.bar(0, 300, 639, 350, 25);
    // The houses on the other bank.
    for (int x = 120; x < 420; x += 96) {
        page.bar(x + 8, 214, x + 86, 292, kPaper + 9 - x % 3);
        roof(page, x + 4, x + 90, 190, 24);
        page.bar(x + 36, 240, x + 58, 292, kWindow + 4);
    }
    // The bridge: half a circle, the water has the other half.
    page.ellipse(232, 352, 142, 88, kStone + 9);
    page.ellipse(232, 356, 76, 62, kStone + 4);
    page.ellipse(232, 358, 70, 58, kWater + 6);
    page.bar(0, 352, 639, 479, kStone + 8);
    page.shade(0, 352, 639, 479, kStone + 7, kStone + 12);
    for (int y = 360, gap = 14; y < 480; y += gap, gap += 5) {
        BUF_line(0, y, 639, y, kStone + 5, page.pixels());
        for (int x = y * 53 % 90; x < 640; x += 92) BUF_line(x, y, x - 6, y + gap, kStone + 5, page.pixels());
    }
    mask.bar(0, 360, 639, 479, kFloorKey);
    mask.ellipse(232, 352, 142, 88, 26);
    mask.bar(0, 352, 639, 360, kFloorKey);
    mask.ellipse(232, 358, 70, 58, 25);
    mask.bar(0, 360, 639, 479, kFloorKey);
    // The paper shop with its awning and its lanterns.
    page.bar(420, 150, 610, 356, kPaper + 7);
    roof(page, 416, 614, 110, 42);
    page.bar(436, 236, 600, 356, kInk + 3);
    page.shade(440, 240, 596, 320, kWindow + 2, kWindow + 6);
    for (int x = 446; x < 590; x += 24) page.bar(x, 276, x + 17, 316, kPaper + 13);
    page.bar(430, 316, 606, 358, kWood + 6);
    page.trapeze(206, 426, 610, 240, 406, 622, kVermilion + 8);
    for (int x = 420; x < 610; x += 40) page.trapeze(206, x + 10, x + 26, 240, x, x + 20, kPaper + 13);
    mask.bar(416, 110, 622, 358, 22);
    for (const int x : {440, 592}) {
        page.bar(x, 240, x + 1, 250, kInk + 2);
        page.ellipse(x, 266, 13, 16, kVermilion + 9);
        page.ellipse(x, 266, 6, 16, kVermilion + 11);
        mask.ellipse(x, 266, 13, 16, 21);
    }
    // The willow.
    page.trapeze(120, 40, 62, 360, 30, 72, kWood + 3);
    for (int i = 0; i < 60; ++i) {
        const int x = i * 13 % 130, y = 60 + i * 7 % 40;
        BUF_line(x, y, x + i % 9 - 4, y + 120 + i * 31 % 100, kJade + 4 + i % 7, page.pixels());
        BUF_line(x + 1, y, x + i % 9 - 3, y + 120 + i * 31 % 100, kJade + 4 + i % 7, page.pixels());
    }
    mask.bar(20, 60, 110, 352, 23);
    mask.bar(0, 352, 18, 479, kLeftKey);
    mask.bar(622, 352, 639, 479, kRightKey);
    return place;
}

Place lake() {
    Place place;
    Page &page = place.picture, &mask = place.mask;
    page.shade(0, 0, 639, 300, kSky, kSky + 31);
    page.ridge(3, 235, 300, 110, kMountain + 10);
    page.ridge(11, 262, 300, 90, kMountain + 7);
    page.ridge(29, 285, 300, 60, kMountain + 3);
    mask.bar(140, 200, 520, 299, 35);
    page.water(0, 300, 639, 388);
    mask.bar(0, 300, 639, 388, 34);
    // The pavilion, on stilts.
    for (const int x : {44, 150}) page.bar(x, 210, x + 8, 372, kVermilion + 6);
    page.bar(30, 290, 176, 300, kWood + 7);
    page.bar(34, 262, 172, 266, kVermilion + 7);
    roof(page, 24, 180, 150, 54);
    page.bar(98, 140, 106, 152, kGold + 9);
    page.bar(78, 206, 126, 222, kInk + 2);
    mask.bar(14, 140, 190, 372, 33);
    // The jetty and the shore.
    page.boards(386, 479, kWood + 4, kWood + 10);
    page.bar(0, 384, 639, 388, kWood + 2);
    mask.bar(0, 392, 639, 479, kFloorKey);
    // The pine.
    page.trapeze(150, 572, 590, 392, 560, 606, kWood + 2);
    for (const auto &[x, y, w] :
         {std::array{560, 190, 66}, std::array{600, 150, 60}, std::array{540, 240, 56},
          std::array{590, 110, 44}, std::array{610, 215, 50}}) {
        page.ellipse(x, y, w, 17, kJade + 2);
        page.ellipse(x - 4, y - 5, w * 3 / 4, 9, kJade + 5);
    }
    mask.bar(490, 92, 639, 384, 32);
    mask.bar(316, 322, 436, 384, 31);
    mask.bar(0, 392, 18, 479, kLeftKey);
    return place;
}

Page title() {
    Page page;
    page.shade(0, 0, 639, 330, kSky, kSky + 31);
    page.ridge(3, 235, 330, 120, kMountain + 9);
    page.ridge(11, 270, 330, 110, kMountain + 6);
    page.ridge(29, 305, 330, 90, kMountain + 2);
    page.water(0, 330, 639, 479);
    return page;
}

Page desk() {
    Page page;
    page.boards(0, 479, kWood + 4, kWood + 7);
    page.bar(168, 64, 474, 370, kWood + 2);
    page.bar(176, 72, 463, 359, kPaper + 14);
    return page;
}

Page last_page() {
    Page page;
    page.shade(0, 0, 639, 479, kPaper + 14, kPaper + 11);
    BUF_box(24, 24, 615, 455, kVermilion + 8, page.pixels());
    BUF_box(28, 28, 611, 451, kVermilion + 8, page.pixels());
    return page;
}

}  // namespace plain
