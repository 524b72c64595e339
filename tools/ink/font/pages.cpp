#include "font/pages.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string_view>

#include "files/workshop.h"
#include "inkstone/chine.h"
#include "text/font_layout.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 640, kHeight = 480;
constexpr std::uint8_t kPaper = 0, kInk = 1, kLabel = 2;
constexpr int kTransparent = 1;

class Page {
  public:
    explicit Page(int size) : print_(size == 16 ? CHINE_print16 : CHINE_print24), size_(size) {
        CHINE_set_color(0, kInk);
        CHINE_set_color(1, kLabel);
    }

    void print(int x, int y, const std::string &text) {
        print_(x, y, text.c_str(), kTransparent, screen_.data());
    }

    // The characters of one lead byte (0 for none), sixteen in a row under their codes.
    void print_codes(unsigned lead) {
        constexpr int kLeft = 64, kTop = 40, kColumn = 34, kRow = 26;
        std::array<char, 16> label;
        for (int column = 0; column < 16; ++column) {
            std::snprintf(label.data(), label.size(), "~C1%X~C0", unsigned(column));
            CHINE_print16(kLeft + column * kColumn + 6, kTop - 26, label.data(), kTransparent,
                          screen_.data());
        }
        int line = 0;
        for (unsigned start = lead ? 0x40 : 0; start < 0x100; start += 0x10) {
            if (lead && start >= 0x80 && start < 0xA0) continue;
            const int y = kTop + line++ * kRow;
            std::snprintf(label.data(), label.size(), "~C1%02X~C0", lead << 8 | start);
            CHINE_print16(16, y + (size_ - 16) / 2, label.data(), kTransparent, screen_.data());
            for (unsigned trail = start; trail < start + 0x10; ++trail) {
                if (trail == 0 || trail == '~') {
                    if (!lead) continue;
                }
                if (lead && (trail == 0x7F || trail == 0xA0 || trail == 0xFF)) continue;
                std::string code(1, static_cast<char>(trail));
                if (lead) code.insert(code.begin(), static_cast<char>(lead));
                print(kLeft + static_cast<int>(trail - start) * kColumn, y, code);
            }
        }
    }

    IndexedPicture picture() const {
        IndexedPicture made{kWidth, kHeight};
        made.pixels = screen_;
        const auto set = [&](std::size_t index, std::array<std::uint8_t, 3> colour) {
            for (std::size_t i = 0; i < 3; ++i)
                made.palette[3 * index + i] = static_cast<std::uint8_t>(colour[i] / 4);
        };
        set(kPaper, {255, 252, 240});
        set(kInk, {20, 20, 30});
        set(kLabel, {150, 60, 40});
        return made;
    }

  private:
    void (*const print_)(std::int32_t, std::int32_t, const char *, std::int32_t, std::uint8_t *);
    const int size_;
    std::vector<std::uint8_t> screen_ = std::vector<std::uint8_t>(kWidth * kHeight, kPaper);
};

}  // namespace

void load_fonts(const fs::path &directory) {
    if (fs::exists(directory / text::kFontLayouts[text::kChinese16].file_name)) {
        fs::current_path(directory);
        if (CHINE_init(0) == 0) return;
    } else if (fs::exists(directory / text::kCompressedPackFile)) {
        // An expanded pack that is there already is not ours to delete.
        const bool keep = fs::exists(directory / text::kPackFile);
        fs::current_path(directory);
        if (CHINE_init(keep ? 2 : 1) == 0) return;
    } else {
        throw std::runtime_error(name_of(directory) +
                                 ": there are no fonts; make some with `ink font build`");
    }
    throw std::runtime_error(name_of(directory) +
                             ": the fonts cannot be loaded; the reason stands in its ERROR.MSG");
}

IndexedPicture page_of_codes(int size, unsigned lead) {
    Page page(size);
    page.print_codes(lead);
    return page.picture();
}

IndexedPicture page_of_text(int size, const std::string &big5) {
    Page page(size);
    page.print(0, 0, big5);
    return page.picture();
}

Animation font_pages(const Bytes &file) {
    const Workshop workshop;
    int size = 24;
    bool chinese = true, pack = true;
    // A font alone is shown by the library with the others blank.
    for (const text::FontLayout &layout : text::kFontLayouts) {
        const bool this_one = layout.bytes() == file.size();
        workshop.put(layout.file_name, this_one ? file : Bytes(layout.bytes()));
        if (!this_one) continue;
        pack = false;
        size = static_cast<int>(layout.height);
        chinese = layout.glyphs == text::kBig5Glyphs;
    }
    if (pack) {
        workshop.put(text::kPackFile, file);
        for (const text::FontLayout &layout : text::kFontLayouts) fs::remove(layout.file_name);
    }
    if (CHINE_init(pack ? 2 : 0) != 0)
        throw std::runtime_error("the fonts cannot be loaded: " + workshop.log());
    Animation pages;
    const auto add = [&](unsigned lead) { pages.frames.push_back({page_of_codes(size, lead), kPageTime}); };
    if (!chinese || pack) add(0);
    if (chinese)
        for (unsigned lead = 0xA1; lead <= 0xF9; ++lead) add(lead);
    CHINE_free();
    return pages;
}

}  // namespace ink::tool
