#include "plain/figures.h"

#include <inkstone/draw.h>
#include <inkstone/line.h>

#include "plain/page.h"

namespace plain {
namespace {

constexpr int kMiddle = 60, kFeet = 130;

// What moves: the feet apart, the arm out, the eyes and the mouth.
struct Pose {
    int stride = 0, arm = 0, breath = 0;
    bool blink = false, mouth = false;
};

void head(Page &page, const Person &person, int x, int y, int size, const Pose &pose) {
    page.ellipse(x, y, size, size + size / 8, kSkin + 6);
    page.ellipse(x - size / 4, y - size / 2, size, size * 3 / 4, kInk + 2);
    page.ellipse(x + size / 4, y + size / 8, size * 3 / 4, size * 3 / 4, kSkin + 6);
    page.ellipse(x - size / 2, y - size - size / 4, size / 3, size / 3, kInk + 2);
    const int eye = size > 20 ? 3 : 1;
    for (const int side : {x, x + size / 2}) {
        if (pose.blink)
            BUF_line(side - eye, y, side + eye, y, kInk, page.pixels());
        else
            page.bar(side - eye / 2, y - eye, side + eye / 2, y + eye, kInk);
    }
    page.bar(x + size / 8, y + size / 2, x + size / 2, y + size / 2 + (pose.mouth ? size / 5 : 0),
             kVermilion + 5);
    if (person.beard)
        page.trapeze(y + size / 2 + 2, x - size / 8, x + size * 2 / 3, y + size * 2, x + size / 4,
                     x + size / 3, kPaper + 14);
    if (person.hat)
        page.trapeze(y - size - size / 2, x - 2, x + 2, y - size / 3, x - size * 2, x + size * 2, kStraw + 4);
    if (person.buns)
        for (const int side : {x - size, x + size * 2 / 3})
            page.ellipse(side, y - size, size / 2, size / 2, kInk + 2);
}

ink::tool::IndexedPicture frame(const Person &person, const Pose &pose) {
    Page page;
    const int top = kFeet - person.height, size = 11, neck = top + 2 * size;
    for (const int side : {-1, 1})
        page.trapeze(kFeet - 26, kMiddle + side * 4 - 3, kMiddle + side * 4 + 4, kFeet,
                     kMiddle + side * (4 + pose.stride) - 4, kMiddle + side * (4 + pose.stride) + 6,
                     kInk + 3);
    page.trapeze(neck, kMiddle - 9, kMiddle + 9, kFeet - 8, kMiddle - 17 - pose.stride / 2,
                 kMiddle + 17 + pose.stride / 2, person.cloth + 3);
    page.trapeze(neck, kMiddle + 2, kMiddle + 9, kFeet - 8, kMiddle + 6, kMiddle + 17 + pose.stride / 2,
                 person.cloth + 5);
    page.bar(kMiddle - 12, neck + person.height / 3, kMiddle + 12, neck + person.height / 3 + 3,
             person.cloth + 1);
    const int hand = neck + 34 - pose.arm;
    page.trapeze(neck + 3, kMiddle - 6, kMiddle + 5, hand, kMiddle + pose.arm / 2 - 3,
                 kMiddle + pose.arm / 2 + 9, person.cloth + 6);
    page.ellipse(kMiddle + pose.arm / 2 + 3, hand + 2, 3, 3, kSkin + 5);
    head(page, person, kMiddle + 2, top + size + pose.breath, size, pose);
    if (person.hat) page.bar(kMiddle - 24, top - 14, kMiddle - 22, kFeet, kWood + 8);
    if (person.cat) {
        page.ellipse(kMiddle + 30, kFeet - 12, 9, 11, kInk + 4);
        page.ellipse(kMiddle + 34, kFeet - 25, 7, 6, kInk + 4);
        page.trapeze(kFeet - 34, kMiddle + 29, kMiddle + 30, kFeet - 27, kMiddle + 28, kMiddle + 34,
                     kInk + 4);
        page.trapeze(kFeet - 34, kMiddle + 38, kMiddle + 39, kFeet - 27, kMiddle + 34, kMiddle + 40,
                     kInk + 4);
        page.bar(kMiddle + 36, kFeet - 26, kMiddle + 37, kFeet - 26, pose.blink ? kInk : kGold + 13);
    }
    return cut(page.pixels(), 20, 0, 84, kFeet + 2, 20 - kMiddle, -kFeet);
}

}  // namespace

ink::tool::IndexedPicture cut(std::uint8_t *page, int left, int top, int width, int height, int x, int y) {
    ink::tool::IndexedPicture picture;
    picture.width = width;
    picture.height = height;
    picture.x = x;
    picture.y = y;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            picture.pixels.push_back(
                static_cast<std::uint8_t>(BUF_get_pixel(left + column, top + row, page)));
    return picture;
}

std::vector<ink::tool::IndexedPicture> walking(const Person &person) {
    std::vector<ink::tool::IndexedPicture> frames;
    for (const int stride : {0, 4, 7, 4, 0, -4, -7, -4})
        frames.push_back(frame(person, {stride, stride, stride == 0}));
    frames.push_back(frame(person, {}));
    frames.push_back(frame(person, {0, 0, 0, true}));
    frames.push_back(frame(person, {0, 14}));
    frames.push_back(frame(person, {0, 24}));
    return frames;
}

std::vector<ink::tool::IndexedPicture> standing(const Person &person) {
    return {frame(person, {}),
            frame(person, {0, 0, 1}),
            frame(person, {0, 0, 1, true}),
            frame(person, {0, 0, 0}),
            frame(person, {0, 6, 0, false, true}),
            frame(person, {0, 10, 1})};
}

ink::tool::IndexedPicture portrait(const Person &person) {
    Page page;
    page.shade(0, 0, 111, 135, kPaper + 9, kPaper + 13);
    page.ellipse(56, 150, 54, 60, person.cloth + 3);
    page.trapeze(96, 50, 64, 128, 56, 58, kPaper + 14);
    head(page, person, 56, person.hat ? 66 : 62, person.hat ? 28 : 32, {});
    BUF_box(0, 0, 111, 135, kInk + 1, page.pixels());
    BUF_box(1, 1, 110, 134, kGold + 8, page.pixels());
    return cut(page.pixels(), 0, 0, 112, 136, 0, 0);
}

}  // namespace plain
