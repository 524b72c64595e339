#include "host/replay/picture.h"

#include <algorithm>
#include <cstring>

#include "core/reader.h"
#include "host/file_name.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kMostPanes = 256, kLargestSide = 4096;

std::uint8_t minus(std::uint8_t one, std::uint8_t other) {
    return static_cast<std::uint8_t>(one - other);
}

}  // namespace

bool write_bitmap(const char *name, const Pane &pane, const std::array<Color, 256> &palette) {
    constexpr std::uint32_t kBefore = 14 + 40 + 4 * 256;
    const auto width = static_cast<std::uint32_t>(pane.width),
               height = static_cast<std::uint32_t>(pane.height);
    const std::uint32_t stride = (width + 3) / 4 * 4;
    std::array<std::uint8_t, kBefore> before{};
    before[0] = 'B', before[1] = 'M';
    put_u32(&before[2], kBefore + stride * height);
    put_u32(&before[10], kBefore);
    put_u32(&before[14], 40);
    put_u32(&before[18], width);
    put_u32(&before[22], height);
    put_u16(&before[26], 1);
    put_u16(&before[28], 8);
    for (std::size_t i = 0; i < palette.size(); ++i) {
        std::uint8_t *entry = &before[54 + 4 * i];
        entry[0] = palette[i].blue, entry[1] = palette[i].green, entry[2] = palette[i].red;
    }
    File file = open_file(name, "wb");
    if (!file) return false;
    bool written = std::fwrite(before.data(), before.size(), 1, file.get()) == 1;
    // The rows of such files go upwards.
    for (std::uint32_t y = height; y-- > 0;) {
        constexpr std::uint8_t kPadding[4] = {};
        written &= std::fwrite(&pane.pixels[std::size_t{y} * width], 1, width, file.get()) == width;
        written &= std::fwrite(kPadding, 1, stride - width, file.get()) == stride - width;
    }
    return close_file(std::move(file)) && written;
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
