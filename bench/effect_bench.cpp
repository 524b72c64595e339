// The copies with an effect.
#include "inkstone/effect.h"

#include <algorithm>
#include <utility>

#include "call.h"
#include "drawing_peers.h"
#include "inkstone/draw.h"

using namespace bench;

namespace {

constexpr std::uint8_t kNoTable[256] = {};

// Glass with nothing around it.
const Rival kTable{"limit table", [](Stage &s, int x, int y) {
                       const std::uint8_t *table = kNoTable;
                       benchmark::DoNotOptimize(table);
                       for (int row = 0; row < s.h; ++row) {
                           std::uint8_t *to = s.screen + (y + row) * kWidth + x;
                           for (int column = 0; column < s.w; ++column) to[column] = table[to[column]];
                       }
                   }};
// An outline cannot be faster than the transparent copy of the picture it has enlarged.
const Rivals kOutline{{"limit BUF_pest_image", CALL(BUF_pest_image(x - 1, y - 1, s.work, s.screen))}};
void enlarge(Stage &s) {
    BUF_outline_pest_image(0, 0, s.image, 3, 1, s.screen, s.work);
}

const Rival kKeyCopy{"limit memcpy, memset", [](Stage &s, int x, int y) {
                         kCopy.draw(s, x, y);
                         std::swap(s.screen, s.keys);
                         kFill.draw(s, x, y);
                         std::swap(s.screen, s.keys);
                     }};
// A shadow is cleared, filled row by row and drawn.
const Rival kShadow{"limit memset, memcpy, read 2, write", [](Stage &s, int x, int y) {
                        const int w = s.w + s.w / 4, h = 3 * s.h / 4, left = std::max(0, x - s.w / 4);
                        std::memset(s.work, 0, static_cast<std::size_t>(w * h));
                        for (int row = 0; row < h; ++row) {
                            std::uint8_t *shadow = s.work + row * w;
                            std::memcpy(shadow, s.pixels + row * s.w, static_cast<std::size_t>(s.w));
                            loops().merge(s.screen + (y + row) * kWidth + left, shadow, nullptr,
                                          std::min(w, x + s.w - left));
                        }
                    }};

const Rivals kMask = beside(kMerge, kMaskPeers), kMesh = beside(kMerge), kTurn = beside(kMerge, kTurnPeers),
             kReverse = beside(kMerge, kReversePeers), kGlassMask = beside(kTable, kGlassMaskPeers);

[[maybe_unused]] const bool registered = add(
    "Effects",
    {{"BUF_mask_pest_image", CALL(BUF_mask_pest_image(x, y, s.image, s.screen, 3)), kMask},
     {"MEM_shadow_mask_pest_image", CALL(MEM_shadow_mask_pest_image(3, x, y, s.image, MEMORY)), kMask},
     {"MEM_shadow_mask_pest_bitmap", CALL(MEM_shadow_mask_pest_bitmap(3, SPRITE, MEMORY)), kMask},
     {"BUF_mesh_pest_image", CALL(BUF_mesh_pest_image(x, y, s.image, 255, s.screen)), kMesh},
     {"BUF_mesh_pest_bitmap", CALL(BUF_mesh_pest_bitmap(SPRITE, 255, s.screen)), kMesh},
     {"MEM_turn_pest_image", CALL(MEM_turn_pest_image(x, y, s.image, MEMORY)), kTurn},
     {"MEM_turn_pest_bitmap", CALL(MEM_turn_pest_bitmap(SPRITE, MEMORY)), kTurn},
     {"MEM_reverse_pest_image", CALL(MEM_reverse_pest_image(x, y, s.image, MEMORY)), kReverse},
     {"MEM_reverse_pest_bitmap", CALL(MEM_reverse_pest_bitmap(SPRITE, MEMORY)), kReverse},
     {"BUF_key_put_image", CALL(BUF_key_put_image(x, y, s.image, s.screen, 3, s.keys)), beside(kKeyCopy)},
     {"BUF_key_pest_image", CALL(BUF_key_pest_image(x, y, s.image, s.screen, 3, s.keys)),
      beside(kKeyed, kPestPeers)},
     {"BUF_shadow_pest_bitmap", CALL(BUF_shadow_pest_bitmap(SPRITE, s.screen, s.work)), beside(kShadow)},
     {"BUF_glass_bar", CALL(BUF_glass_bar(RECTANGLE, 0, s.screen)), beside(kTable, kGlassBarPeers)},
     {"BUF_glass_box", CALL(BUF_glass_box(RECTANGLE, 0, s.screen))},
     {"BUF_glass_mask_pest_image", CALL(BUF_glass_mask_pest_image(x, y, s.image, s.screen, 0)), kGlassMask},
     {"BUF_glass_mask_pest_bitmap", CALL(BUF_glass_mask_pest_bitmap(SPRITE, s.screen, 0)), kGlassMask},
     {"BUF_outline_pest_image", CALL(BUF_outline_pest_image(x, y, s.image, 3, 1, s.screen, s.work)), kOutline,
      enlarge},
     {"BUF_outline_pest_bitmap", CALL(BUF_outline_pest_bitmap(SPRITE, 3, 1, s.screen, s.work)), kOutline,
      enlarge}});

}  // namespace
