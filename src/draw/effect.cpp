// The copies with an effect: each is the placing of blit.h with another kernel.
#include "inkstone/effect.h"

#include <algorithm>
#include <array>

#include "draw/blit.h"
#include "draw/glass.h"

using namespace ink::draw;

namespace {

void silhouette(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite,
                std::uint8_t colour) {
    place(target, x, y, sprite, [=](const Blit &blit, const Clip &) { kernels.fill_nonzero(blit, colour); });
}

void meshed(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite, std::uint8_t mask) {
    place(target, x, y, sprite, [=](const Blit &blit, const Clip &clip) {
        kernels.copy_nonzero_mesh(blit, mesh_phase(clip.x, clip.y), mask);
    });
}

void mirrored(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite) {
    place<Facing::mirrored>(target, x, y, sprite,
                            [](const Blit &blit, const Clip &) { kernels.copy_nonzero_mirrored(blit); });
}

void glass(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite, std::int32_t number) {
    const std::uint8_t *table = glass_table(number);
    if (table == nullptr) return;
    place(target, x, y, sprite, [=](const Blit &blit, const Clip &) { kernels.remap_nonzero(blit, table); });
}

// The picture that an outlined sprite needs room for; one of less than no width when its size cannot be
// meant.
Surface enlarged(std::uint8_t *pixels, std::int64_t w, std::int64_t h, std::int64_t distance) {
    const std::int64_t width = w + 2 * distance, height = h + 2 * distance;
    if (w < 0 || h < 0 || distance < 0 || !plausible(width, height)) return {nullptr, -1, -1};
    return {pixels, width, height};
}

// Fills work with the picture that an outlined sprite is and draws it, pass by pass: for any distance.
void outlined_far(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite,
                  std::uint8_t colour, std::int64_t distance, const Surface &work) {
    fill(work, {0, 0, work.width - 1, work.height - 1}, 0);
    silhouette(work, distance, 0, sprite, colour);
    silhouette(work, distance, 2 * distance, sprite, colour);
    silhouette(work, 0, distance, sprite, colour);
    silhouette(work, 2 * distance, distance, sprite, colour);
    pest(work, distance, distance, sprite);
    pest(target, x - distance, y - distance, {work.pixels, work.width, work.height});
}

// The same in one pass, band of rows by band. A band is made from a copy of the sprite with empty margins all
// around it, where the four neighbours of every pixel lie at fixed distances; the copy is kept small enough
// for the fastest cache. Bands of fewer rows than their margins have are not worth it.
void outlined(const Surface &target, std::int64_t x, std::int64_t y, const Sprite &sprite,
              std::uint8_t colour, std::int64_t distance, const Surface &work) {
    if (work.width < 1 || work.height < 1) return;
    std::array<std::uint8_t, 12288> copy;
    const auto rows = static_cast<std::int64_t>(copy.size()) / work.width - 2 * distance;
    if (rows < std::max<std::int64_t>(2 * distance, 1))
        return outlined_far(target, x, y, sprite, colour, distance, work);
    for (std::int64_t top = 0; top < work.height; top += rows) {
        const Surface band{work.at(0, top), work.width, std::min(rows, work.height - top)};
        const Surface padded{copy.data(), band.width, band.height + 2 * distance};
        std::fill_n(padded.pixels, padded.width * padded.height, std::uint8_t{0});
        put(padded, distance, 2 * distance - top, sprite);
        // Rows without gaps, taken as one.
        const Surface row{band.pixels, band.width * band.height, 1};
        kernels.outline(make_blit(row, 0, 0, row.width, 1, padded.at(0, distance)),
                        static_cast<std::ptrdiff_t>(distance),
                        static_cast<std::ptrdiff_t>(distance * band.width), colour);
        pest(target, x - distance, y - distance + top, {band.pixels, band.width, band.height});
    }
}

}  // namespace

void BUF_mask_pest_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf, int32_t colour) {
    silhouette(screen(buf), x, y, image(picture), low_byte(colour));
}

void BUF_outline_pest_image(int32_t x, int32_t y, const uint8_t *picture, int32_t colour, int32_t distance,
                            uint8_t *buf, uint8_t *work) {
    const Sprite sprite = image(picture);
    const Surface room = enlarged(work + kImageHeader, sprite.width, sprite.height, distance);
    if (room.width < 0 || room.width > kLargestImage || room.height > kLargestImage) return;
    put_image_header(work, static_cast<std::uint32_t>(room.width), static_cast<std::uint32_t>(room.height));
    outlined(screen(buf), x, y, sprite, low_byte(colour), distance, room);
}

void BUF_outline_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels,
                             int32_t colour, int32_t distance, uint8_t *buf, uint8_t *work) {
    outlined(screen(buf), x, y, bitmap(pixels, w, h), low_byte(colour), distance,
             enlarged(work, w, h, distance));
}

void BUF_mesh_pest_image(int32_t x, int32_t y, const uint8_t *picture, int32_t mask, uint8_t *buf) {
    meshed(screen(buf), x, y, image(picture), low_byte(mask));
}

void BUF_mesh_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, int32_t mask,
                          uint8_t *buf) {
    meshed(screen(buf), x, y, bitmap(pixels, w, h), low_byte(mask));
}

void BUF_glass_bar(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t n, uint8_t *buf) {
    const std::uint8_t *table = glass_table(n);
    const Box bar = clamp_bar({x1, y1, x2, y2}, kScreenWidth, kScreenHeight);
    if (table != nullptr && !bar.empty()) kernels.remap(area(screen(buf), bar), table);
}

void BUF_glass_box(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t n, uint8_t *buf) {
    const std::uint8_t *table = glass_table(n);
    if (table == nullptr) return;
    for_each_edge(clamp_box({x1, y1, x2, y2}, kScreenWidth, kScreenHeight),
                  [&](const Box &edge) { kernels.remap(area(screen(buf), edge), table); });
}

void BUF_glass_mask_pest_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf, int32_t n) {
    glass(screen(buf), x, y, image(picture), n);
}

void BUF_glass_mask_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels,
                                uint8_t *buf, int32_t n) {
    glass(screen(buf), x, y, bitmap(pixels, w, h), n);
}

void BUF_key_put_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf, int32_t key,
                       uint8_t *keybuf) {
    place(screen(buf), x, y, image(picture), [=](Blit blit, const Clip &clip) {
        kernels.copy(blit);
        blit.to = screen(keybuf).at(clip.x, clip.y);
        kernels.fill(blit, low_byte(key));
    });
}

void BUF_key_pest_image(int32_t x, int32_t y, const uint8_t *picture, uint8_t *buf, int32_t key,
                        uint8_t *keybuf) {
    place(screen(buf), x, y, image(picture), [=](Blit blit, const Clip &clip) {
        kernels.copy_nonzero(blit);
        blit.to = screen(keybuf).at(clip.x, clip.y);
        kernels.fill_nonzero(blit, low_byte(key));
    });
}

void MEM_reverse_pest_image(int32_t x, int32_t y, const uint8_t *picture, int32_t bw, int32_t bh,
                            uint8_t *mem) {
    pest(memory(mem, bw, bh), x, y, upside_down(image(picture)));
}

void MEM_reverse_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, int32_t bw,
                             int32_t bh, uint8_t *mem) {
    pest(memory(mem, bw, bh), x, y, upside_down(bitmap(pixels, w, h)));
}

void MEM_turn_pest_image(int32_t x, int32_t y, const uint8_t *picture, int32_t bw, int32_t bh, uint8_t *mem) {
    mirrored(memory(mem, bw, bh), x, y, image(picture));
}

void MEM_turn_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, int32_t bw,
                          int32_t bh, uint8_t *mem) {
    mirrored(memory(mem, bw, bh), x, y, bitmap(pixels, w, h));
}

void MEM_shadow_mask_pest_image(int32_t colour, int32_t x, int32_t y, const uint8_t *picture, int32_t bw,
                                int32_t bh, uint8_t *mem) {
    silhouette(memory(mem, bw, bh), x, y, upside_down(image(picture)), low_byte(colour));
}

void MEM_shadow_mask_pest_bitmap(int32_t colour, int32_t x, int32_t y, int32_t w, int32_t h,
                                 const uint8_t *pixels, int32_t bw, int32_t bh, uint8_t *mem) {
    silhouette(memory(mem, bw, bh), x, y, upside_down(bitmap(pixels, w, h)), low_byte(colour));
}

void BUF_shadow_pest_bitmap(int32_t x, int32_t y, int32_t w, int32_t h, const uint8_t *pixels, uint8_t *buf,
                            uint8_t *work) {
    const Sprite sprite = bitmap(pixels, w, h);
    const Surface shadow{work, sprite.width + sprite.width / 4, 3 * sprite.height / 4};
    fill(shadow, {0, 0, shadow.width - 1, shadow.height - 1}, 0);
    for (std::int64_t row = 0; row < shadow.height; ++row) {
        const Sprite source{sprite.at(0, 4 * row / 3), sprite.width, 1};
        put(shadow, row * sprite.width / shadow.height / 4, row, source);
    }
    meshed(screen(buf), std::int64_t{x} - w / 4, std::int64_t{y} + h / 4, {work, shadow.width, shadow.height},
           0);
}
