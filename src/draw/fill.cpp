#include <array>
#include <cstring>

#include "draw/surface.h"
#include "inkstone/line.h"

namespace ink::draw {
namespace {

// A run of a row that is filled, columns left to right, and the direction in which its neighbouring row has
// still to be examined.
struct Segment {
    std::int32_t y, left, right, direction;
};

// The segments still to be examined. What is pushed beyond the limit is dropped, so that an area too ragged
// for it stays unfilled in places, always the same ones.
class Stack {
  public:
    explicit Stack(std::int32_t last_row) : last_row_(last_row) {}

    void push(std::int32_t y, std::int32_t left, std::int32_t right, std::int32_t direction) {
        const std::int32_t next = y + direction;
        if (count_ < kLimit && next >= 0 && next <= last_row_)
            segments_[count_++] = {y, left, right, direction};
    }
    bool empty() const { return count_ == 0; }
    Segment pop() { return segments_[--count_]; }

  private:
    static constexpr std::size_t kLimit = 1000;
    std::array<Segment, kLimit> segments_;
    std::size_t count_ = 0;
    std::int32_t last_row_;
};

constexpr std::int32_t kWord = 8;  // pixels looked at together

std::uint64_t load(const std::uint8_t *from) {
    std::uint64_t word;
    std::memcpy(&word, from, sizeof word);
    return word;
}
std::uint64_t repeated(std::uint8_t pixel) {
    return pixel * 0x0101010101010101U;
}

// Recolours pixels from x rightwards, up to and without end, as long as they have the old colour; the column
// of the first that is left alone.
std::int32_t recolour_right(std::uint8_t *row, std::int32_t x, std::int32_t end, std::uint8_t old,
                            std::uint8_t colour) {
    const std::uint64_t old_word = repeated(old), word = repeated(colour);
    while (end - x >= kWord && load(row + x) == old_word) {
        std::memcpy(row + x, &word, sizeof word);
        x += kWord;
    }
    while (x < end && row[x] == old) row[x++] = colour;
    return x;
}

// The same leftwards from x down to column 0; -1 when all of them were recoloured.
std::int32_t recolour_left(std::uint8_t *row, std::int32_t x, std::uint8_t old, std::uint8_t colour) {
    const std::uint64_t old_word = repeated(old), word = repeated(colour);
    while (x >= kWord - 1 && load(row + x - (kWord - 1)) == old_word) {
        std::memcpy(row + x - (kWord - 1), &word, sizeof word);
        x -= kWord;
    }
    while (x >= 0 && row[x] == old) row[x--] = colour;
    return x;
}

// Moves x on to the next column up to last whose pixel has the old colour; false when there is none.
bool find_right(const std::uint8_t *row, std::int32_t &x, std::int32_t last, std::uint8_t old) {
    if (x >= last) return false;
    const void *found = std::memchr(row + x + 1, old, static_cast<std::size_t>(last - x));
    if (found == nullptr) return false;
    x = static_cast<std::int32_t>(static_cast<const std::uint8_t *>(found) - row);
    return true;
}

void fill(std::int32_t seed_x, std::int32_t seed_y, std::int32_t colour, const Surface &surface) {
    if (!surface.contains(seed_x, seed_y)) return;
    const std::uint8_t old = *surface.at(seed_x, seed_y);
    const auto fresh = low_byte(colour);
    if (old == fresh) return;
    const auto columns = static_cast<std::int32_t>(surface.width);

    Stack stack(static_cast<std::int32_t>(surface.height - 1));
    stack.push(seed_y, seed_x, seed_x, +1);
    stack.push(seed_y + 1, seed_x, seed_x, -1);
    while (!stack.empty()) {
        const Segment segment = stack.pop();
        const std::int32_t y = segment.y + segment.direction;
        std::uint8_t *row = surface.at(0, y);

        // The run that holds the segment's first column may reach out to the left of it; if that pixel is not
        // of the old colour, the first run begins further right.
        std::int32_t x = segment.left;
        std::int32_t left = recolour_left(row, x, old, fresh) + 1;
        if (left <= x) {
            if (left < x) stack.push(y, left, x - 1, -segment.direction);
            ++x;
        } else {
            if (!find_right(row, x, segment.right, old)) continue;
            left = x;
        }
        while (true) {
            x = recolour_right(row, x, columns, old, fresh);
            stack.push(y, left, x - 1, segment.direction);
            if (x - 1 > segment.right) stack.push(y, segment.right + 1, x - 1, -segment.direction);
            if (!find_right(row, x, segment.right, old)) break;
            left = x;
        }
    }
}

}  // namespace
}  // namespace ink::draw

void BUF_fill(int32_t x, int32_t y, int32_t colour, uint8_t *buf) {
    ink::draw::fill(x, y, colour, ink::draw::screen(buf));
}

void MEM_fill(int32_t x, int32_t y, int32_t colour, int32_t bw, int32_t bh, uint8_t *mem) {
    ink::draw::fill(x, y, colour, ink::draw::memory(mem, bw, bh));
}
