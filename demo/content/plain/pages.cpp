#include "plain/pages.h"

#include <inkstone/draw.h>

namespace plain {

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
