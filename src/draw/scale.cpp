// Scaling: which source pixel each destination column shows is worked out once, then each source row is
// picked once for all the rows that show it.
#include "draw/scale.h"

#include "draw/blit.h"
#include "inkstone/scale.h"

namespace ink::draw {
namespace {

// The source pixels of one destination pixel after another, by addition of the step.
class Walk {
  public:
    Walk(const Scale &scale, std::int64_t first) : part_(scale.step), unit_(scale.unit) {
        // An enlarged picture drawn from its edge on needs none of the divisions.
        if (scale.step >= scale.unit) {
            whole_ = scale.step / scale.unit;
            part_ = scale.step % scale.unit;
        }
        if (first != 0) {
            source_ = first * scale.step / scale.unit;
            remainder_ = first * scale.step % scale.unit;
        }
    }

    std::int64_t source() const { return source_; }
    void next() {
        remainder_ += part_;
        const bool carry = remainder_ >= unit_;
        remainder_ -= carry ? unit_ : 0;
        source_ += whole_ + (carry ? 1 : 0);
    }

  private:
    std::int64_t whole_ = 0, part_, unit_;
    std::int64_t source_ = 0, remainder_ = 0;
};

// Works out where the visible columns are picked from, counted from the place of the first, which is
// returned.
std::int64_t plan(Picks &picks, const Scale &scale, std::int64_t first, int columns) {
    Walk walk(scale, first);
    const std::int64_t start = walk.source();
    for (int i = 0; i < columns; ++i, walk.next())
        picks.places[i] = static_cast<std::uint32_t>(walk.source() - start);

    for (int x = 0; columns >= Picks::kBlock && x < columns; x += Picks::kBlock) {
        // The last block ends with the row, overlapping the one before.
        Picks::Block &block = picks.blocks[picks.blocks_used++];
        block.at = std::min(x, columns - Picks::kBlock);
        const std::uint32_t *places = picks.places + block.at;
        block.base = places[0];
        block.reach = places[Picks::kBlock - 1] - places[0] + 1;
        for (int i = 0; i < Picks::kBlock; ++i)
            block.lanes[i] = static_cast<std::uint8_t>(places[i] - block.base);
    }
    return start;
}

}  // namespace

void draw_scaled(const Surface &target, std::int64_t x, std::int64_t y, const Scale &columns,
                 const Scale &rows, const Sprite &sprite, Transparency transparency) {
    const Clip clip = clip_image(x, y, columns.length, rows.length, target.width, target.height);
    if (clip.empty() || clip.columns > Picks::kColumns) return;
    Blit blit = make_blit(target, clip.x, clip.y, clip.columns, 0);
    const std::uint8_t *end = sprite.at(sprite.width, sprite.height - 1);
    if (overlapping(sprite.pixels, end, blit.to, target.at(clip.x + clip.columns, clip.y + clip.rows - 1)))
        [[unlikely]] {
        Blit whole = make_blit({}, 0, 0, sprite.width, sprite.height, sprite.pixels, sprite.step);
        const std::unique_ptr<std::uint8_t[]> copy = detach(whole);
        if (copy != nullptr)
            draw_scaled(target, x, y, columns, rows, {copy.get(), sprite.width, sprite.height}, transparency);
        return;
    }

    Picks picks;
    const std::int64_t left = plan(picks, columns, clip.source_x, static_cast<int>(clip.columns));
    const auto pick = transparency == Transparency::none ? kernels.pick : kernels.pick_nonzero;

    // A source row is scaled once and drawn in all the rows that show it.
    Walk walk(rows, clip.source_y);
    for (std::int64_t row = 0; row < clip.rows; row += blit.rows) {
        const std::int64_t source = walk.source();
        blit.from = sprite.at(left, source);
        blit.rows = 0;
        do {
            ++blit.rows;
            walk.next();
        } while (row + blit.rows < clip.rows && walk.source() == source);
        pick(blit, end, picks);
        blit.to += blit.rows * blit.to_step;
    }
}

}  // namespace ink::draw

using namespace ink::draw;

namespace {

void scale(std::int32_t x, std::int32_t y, std::int32_t dw, std::int32_t dh, const Sprite &sprite,
           std::uint8_t *buf, Transparency transparency) {
    if (dw <= 0 || dh <= 0 || sprite.width <= 0 || sprite.height <= 0) return;
    draw_scaled(screen(buf), x, y, {dw, sprite.width, dw}, {dh, sprite.height, dh}, sprite, transparency);
}

}  // namespace

void BUF_scale_put_image(int32_t x, int32_t y, int32_t dw, int32_t dh, const uint8_t *picture, uint8_t *buf) {
    scale(x, y, dw, dh, image(picture), buf, Transparency::none);
}

void BUF_scale_pest_image(int32_t x, int32_t y, int32_t dw, int32_t dh, const uint8_t *picture,
                          uint8_t *buf) {
    scale(x, y, dw, dh, image(picture), buf, Transparency::colour_0);
}

void BUF_scale_put_bitmap(int32_t x, int32_t y, int32_t dw, int32_t dh, int32_t sw, int32_t sh,
                          const uint8_t *pixels, uint8_t *buf) {
    scale(x, y, dw, dh, bitmap(pixels, sw, sh), buf, Transparency::none);
}

void BUF_scale_pest_bitmap(int32_t x, int32_t y, int32_t dw, int32_t dh, int32_t sw, int32_t sh,
                           const uint8_t *pixels, uint8_t *buf) {
    scale(x, y, dw, dh, bitmap(pixels, sw, sh), buf, Transparency::colour_0);
}
