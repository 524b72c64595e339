#include "host/replay/picture.h"

#include <algorithm>
#include <cstring>

#include "core/reader.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kMostPanes = 256, kLargestSide = 4096;

constexpr auto kCheckTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit) table[i] = table[i] >> 1 ^ ((table[i] & 1) != 0 ? 0xEDB88320U : 0);
    }
    return table;
}();

std::uint8_t minus(std::uint8_t one, std::uint8_t other) {
    return static_cast<std::uint8_t>(one - other);
}

}  // namespace

std::uint32_t check_value(std::span<const std::uint8_t> bytes, std::uint32_t before) {
    std::uint32_t value = ~before;
    for (const std::uint8_t byte : bytes) value = value >> 8 ^ kCheckTable[(value ^ byte) & 0xFF];
    return ~value;
}

std::uint32_t check_value_of(const Picture &picture) {
    std::uint32_t check = 0;
    std::vector<std::uint8_t> bytes;
    for (const Pane &pane : picture.panes) {
        bytes.resize(8 + 3 * pane.pixels.size());
        put_u32(bytes.data(), static_cast<std::uint32_t>(pane.width));
        put_u32(bytes.data() + 4, static_cast<std::uint32_t>(pane.height));
        std::uint8_t *rgb = bytes.data() + 8;
        for (const std::uint8_t pixel : pane.pixels) {
            const Color color = picture.palette[pixel];
            *rgb++ = color.red;
            *rgb++ = color.green;
            *rgb++ = color.blue;
        }
        check = check_value(bytes, check);
    }
    return check;
}

template <class Coder>
void PictureModel::code_layout(Coder &coder, Picture &old, const Picture &fresh) {
    const auto same_size = [](const Pane &one, const Pane &other) {
        return one.width == other.width && one.height == other.height;
    };
    const bool new_layout =
        !std::equal(old.panes.begin(), old.panes.end(), fresh.panes.begin(), fresh.panes.end(), same_size);
    if (!coder.bit(new_layout_, new_layout)) return;
    const std::uint64_t count = code_number(coder, count_, fresh.panes.size());
    if (count > kMostPanes) coder.fail();
    old.panes.clear();
    std::uint64_t pixels = 0;
    for (std::size_t i = 0; i < count && coder.ok(); ++i) {
        const Pane known = i < fresh.panes.size() ? fresh.panes[i] : Pane();
        const auto side = [&](std::int32_t length) {
            const std::uint64_t coded = code_number(coder, side_, static_cast<std::uint64_t>(length));
            if (coded < 1 || coded > kLargestSide) coder.fail();
            return coded;
        };
        const std::uint64_t width = side(known.width), height = side(known.height);
        if (coder.ok() && (pixels += width * height) > Picture::kMostPixels) coder.fail();
        if (!coder.ok()) return;
        old.panes.push_back({static_cast<std::int32_t>(width), static_cast<std::int32_t>(height),
                             std::vector<std::uint8_t>(static_cast<std::size_t>(width * height))});
    }
}

template <class Coder>
void PictureModel::code_palette(Coder &coder, Picture &old, const Picture &fresh) {
    if (!coder.bit(new_palette_, old.palette != fresh.palette)) return;
    bool changes = false;
    for (std::size_t i = 0; i < old.palette.size(); ++i) {
        Color &entry = old.palette[i];
        const Color wanted = fresh.palette[i];
        changes = coder.bit(entry_changes_[changes], entry != wanted);
        if (!changes) continue;
        const auto component = [&](std::size_t which, std::uint8_t &from, std::uint8_t to) {
            from = static_cast<std::uint8_t>(from + code_tree<8>(coder, components_[which], minus(to, from)));
        };
        component(0, entry.red, wanted.red);
        component(1, entry.green, wanted.green);
        component(2, entry.blue, wanted.blue);
    }
}

template <class Coder>
std::uint8_t PictureModel::code_pixel(Coder &coder, std::uint8_t left, std::uint8_t above,
                                      std::uint8_t pixel) {
    const bool alike = left == above;
    const bool is_left = coder.bit(is_left_[history_ << 1 | std::uint32_t{alike}], pixel == left);
    history_ = (history_ << 1 | std::uint32_t{is_left}) & 3;
    if (is_left) return left;
    if (!alike && coder.bit(is_above_, pixel == above)) return above;
    return static_cast<std::uint8_t>(code_tree<8>(coder, colours_[left], pixel));
}

template <class Coder>
void PictureModel::code_pane(Coder &coder, Pane &old, const Pane &fresh) {
    const auto width = static_cast<std::size_t>(old.width);
    // Which pixels of the row above and of this one have changed, with one that has not on either side.
    std::vector<std::uint8_t> above(width + 2), here(width + 2);
    std::vector<std::uint8_t> row_above(width);
    bool changes = false;
    for (std::size_t begin = 0; begin < old.pixels.size(); begin += width) {
        std::uint8_t *row = &old.pixels[begin];
        const std::uint8_t *wanted = fresh.pixels.empty() ? row : &fresh.pixels[begin];
        changes = coder.bit(row_changes_[changes], std::memcmp(row, wanted, width) != 0);
        std::fill(here.begin(), here.end(), std::uint8_t{0});
        for (std::size_t x = 0; changes && x < width; ++x) {
            const std::size_t around =
                std::size_t{here[x]} | std::size_t{above[x + 1]} << 1 | std::size_t{above[x + 2]} << 2;
            if (!coder.bit(changes_[around], row[x] != wanted[x])) continue;
            here[x + 1] = 1;
            row[x] = code_pixel(coder, x > 0 ? row[x - 1] : row_above[x], row_above[x], wanted[x]);
        }
        if (!coder.ok()) return;
        std::copy_n(row, width, row_above.begin());
        above.swap(here);
    }
}

template <class Coder>
void PictureModel::code(Coder &coder, Picture &old, const Picture &fresh) {
    code_layout(coder, old, fresh);
    if (!coder.ok()) return;
    code_palette(coder, old, fresh);
    static const Pane unknown;
    for (std::size_t i = 0; i < old.panes.size() && coder.ok(); ++i)
        code_pane(coder, old.panes[i], i < fresh.panes.size() ? fresh.panes[i] : unknown);
}

template void PictureModel::code(Encoder &, Picture &, const Picture &);
template void PictureModel::code(Decoder &, Picture &, const Picture &);

}  // namespace ink::host
