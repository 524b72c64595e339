// The basic copies, fills and pixels, and what the view does with a finished screen.
#include "inkstone/draw.h"

#include "call.h"
#include "drawing_peers.h"
#include "inkstone/view.h"

using namespace bench;

namespace {

const Rival kStoreRow{"limit stores", [](Stage &s, int x, int y) {
                          for (int i = 0; i < s.w; ++i) {
                              s.screen[y * kWidth + x + i] = 3;
                              benchmark::ClobberMemory();
                          }
                      }};
const Rival kLoadRow{"limit loads", [](Stage &s, int x, int y) {
                         for (int i = 0; i < s.w; ++i) benchmark::DoNotOptimize(s.screen[y * kWidth + x + i]);
                     }};

const Rivals kPut = beside(kCopy, kPutPeers), kPest = beside(kMerge, kPestPeers),
             kGet = beside(kCopy, kGetPeers);

#define EACH_PIXEL(call) CALL(for (int i = 0; i < s.w; ++i) call)

[[maybe_unused]] const bool registered = add(
    "Drawing",
    {{"BUF_put_pixel", EACH_PIXEL(BUF_put_pixel(x + i, y, 3, s.screen)), beside(kStoreRow, kPutPixelPeers)},
     {"MEM_put_pixel", EACH_PIXEL(MEM_put_pixel(x + i, y, 3, MEMORY)), beside(kStoreRow, kPutPixelPeers)},
     {"BUF_get_pixel", EACH_PIXEL(benchmark::DoNotOptimize(BUF_get_pixel(x + i, y, s.screen))),
      beside(kLoadRow, kGetPixelPeers)},
     {"MEM_get_pixel", EACH_PIXEL(benchmark::DoNotOptimize(MEM_get_pixel(x + i, y, MEMORY))),
      beside(kLoadRow, kGetPixelPeers)},
     {"BUF_bar", CALL(BUF_bar(RECTANGLE, 3, s.screen)), beside(kFill, kBarPeers)},
     {"BUF_mesh_bar", CALL(BUF_mesh_bar(RECTANGLE, 3, s.screen)), beside(kUpdate, kMeshBarPeers)},
     {"BUF_box", CALL(BUF_box(RECTANGLE, 3, s.screen)), beside(kStores, kBoxPeers)},
     {"MEM_box", CALL(MEM_box(RECTANGLE, 3, MEMORY)), beside(kStores, kBoxPeers)},
     {"BUF_dash_box", CALL(BUF_dash_box(RECTANGLE, 3, 4, s.screen)), beside(kStores)},
     {"MEM_draw_point_cross", CALL(MEM_draw_point_cross(x + 8, y + 8, 3, MEMORY)), beside(kStores)},
     {"BUF_change_color", CALL(BUF_change_color(RECTANGLE, 1, 1, s.screen)), beside(kUpdate)},
     {"BUF_put_image", CALL(BUF_put_image(x, y, s.image, s.screen)), kPut},
     {"BUF_put_bitmap", CALL(BUF_put_bitmap(SPRITE, s.screen)), kPut},
     {"MEM_put_image", CALL(MEM_put_image(x, y, s.image, s.screen, kWidth, kHeight)), kPut},
     {"MEM_put_bitmap", CALL(MEM_put_bitmap(SPRITE, s.screen, kWidth, kHeight)), kPut},
     {"IMG_put_image", CALL(IMG_put_image(x, y, s.image, s.work)), kPut},
     {"BUF_pest_image", CALL(BUF_pest_image(x, y, s.image, s.screen)), kPest},
     {"BUF_pest_bitmap", CALL(BUF_pest_bitmap(SPRITE, s.screen)), kPest},
     {"MEM_pest_image", CALL(MEM_pest_image(x, y, s.image, s.screen, kWidth, kHeight)), kPest},
     {"MEM_pest_bitmap", CALL(MEM_pest_bitmap(SPRITE, s.screen, kWidth, kHeight)), kPest},
     {"IMG_pest_image", CALL(IMG_pest_image(x, y, s.image, s.work)), kPest},
     {"BUF_get_image", CALL(BUF_get_image(x, y, s.w, s.h, s.image, s.screen)), kGet},
     {"BUF_get_bitmap", CALL(BUF_get_bitmap(x, y, s.w, s.h, s.pixels, s.screen)), kGet},
     {"MEM_get_image", CALL(MEM_get_image(x, y, s.w, s.h, s.image, s.screen, kWidth, kHeight)), kGet},
     {"MEM_operate_image_size", CALL(int edges[] = {0, 0, s.w, s.h}; MEM_operate_image_size(
                                         &edges[0], &edges[1], &edges[2], &edges[3], s.w, s.h, s.pixels))},
     {"IMG_get_image_size", CALL(int w, h; IMG_get_image_size(s.image, &w, &h))}});

// The view in front of the screen, enabled once.
void enable_view(Stage &s) {
    WViewInit(nullptr, 0, 0, kWidth, kHeight, s.screen);
    static const bool enabled = (WViewEnable(), true);
    (void)enabled;
}

[[maybe_unused]] const bool presented =
    add("Drawing",
        {{"WViewMoveBuffer2Screen",
          CALL(WViewMoveBuffer2Screen(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
                                      static_cast<std::int16_t>(s.w), static_cast<std::int16_t>(s.h))),
          beside(kCopy), enable_view}}) &&
    add_whole("Drawing",
              {{"WViewBuffer2Screen", CALL(WViewBuffer2Screen()), beside(kCopy), enable_view},
               {"WViewRedrawScreen", CALL(WViewRedrawScreen()), beside(kCopy), enable_view},
               {"SCR_memory_to_screen", CALL(SCR_memory_to_screen(s.screen)), beside(kCopy), enable_view}});

}  // namespace
