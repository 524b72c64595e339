#include "plain/things.h"

#include <inkstone/draw.h>
#include <inkstone/line.h>

#include "plain/figures.h"
#include "plain/page.h"

namespace plain {

std::vector<ink::tool::IndexedPicture> things() {
    Page stone, tea, kite_page, oil, brush, paper, ink, moon;
    stone.ellipse(24, 26, 20, 15, kInk + 5);
    stone.ellipse(24, 24, 17, 12, kInk + 8);
    stone.ellipse(27, 25, 11, 8, kInk + 3);
    tea.ellipse(22, 28, 14, 12, kStone + 7);
    tea.ellipse(20, 25, 8, 6, kStone + 11);
    tea.trapeze(22, 40, 44, 30, 34, 38, kStone + 7);
    tea.bar(18, 12, 26, 16, kStone + 5);
    kite_page.trapeze(8, 24, 24, 22, 6, 42, kVermilion + 9);
    kite_page.trapeze(22, 6, 42, 42, 22, 26, kVermilion + 6);
    kite_page.ellipse(24, 18, 3, 3, kPaper + 15);
    oil.trapeze(10, 20, 28, 18, 20, 28, kWood + 10);
    oil.ellipse(24, 30, 13, 13, kWood + 6);
    oil.bar(16, 27, 32, 35, kVermilion + 8);
    for (int i = 0; i < 5; ++i) BUF_line(8 + i, 6, 30 + i, 30, kWood + 8 + i, brush.pixels());
    brush.trapeze(30, 29, 36, 43, 40, 41, kPaper + 13);
    paper.trapeze(10, 8, 36, 38, 12, 42, kPaper + 14);
    for (int y = 15; y < 36; y += 5) BUF_line(14, y, 36, y, kPaper + 11, paper.pixels());
    ink.trapeze(8, 16, 26, 40, 22, 34, kInk + 3);
    ink.trapeze(8, 16, 19, 40, 22, 25, kInk + 7);
    ink.bar(23, 20, 28, 30, kGold + 11);
    moon.bar(6, 6, 42, 42, kPaper + 14);
    moon.ellipse(24, 24, 14, 14, kGold + 12);
    std::vector<ink::tool::IndexedPicture> all;
    for (Page *page : {&stone, &tea, &kite_page, &oil, &brush, &paper, &ink, &moon})
        all.push_back(cut(page->pixels(), 0, 0, 48, 48, 0, 0));
    return all;
}

ink::tool::IndexedPicture kite() {
    Page page;
    page.trapeze(2, 20, 20, 14, 2, 38, kVermilion + 9);
    page.trapeze(14, 2, 38, 34, 18, 22, kVermilion + 6);
    BUF_line(20, 34, 14, 58, kVermilion + 4, page.pixels());
    return cut(page.pixels(), 0, 0, 40, 60, 0, 0);
}

ink::tool::IndexedPicture boat() {
    Page page;
    page.ellipse(56, 22, 26, 18, kStraw + 3);
    page.bar(30, 24, 82, 46, 0);
    page.trapeze(24, 4, 116, 46, 22, 98, kWood + 4);
    page.trapeze(24, 4, 116, 28, 6, 114, kWood + 9);
    return cut(page.pixels(), 0, 0, 120, 48, 0, 0);
}

std::vector<ink::tool::IndexedPicture> pointer(int kind) {
    constexpr int kColours[] = {15, 7, 14, 6};
    std::vector<ink::tool::IndexedPicture> frames;
    for (const int breath : {0, 1, 2, 1}) {
        Page page;
        page.trapeze(0, 0, 1, 16, 0, 12, 1);
        page.trapeze(2, 1, 2, 14, 1, 9, kColours[kind]);
        page.ellipse(14, 16, 2 + breath, 2 + breath, kColours[kind]);
        frames.push_back(cut(page.pixels(), 0, 0, 22, 22, 0, 0));
    }
    return frames;
}

}  // namespace plain
