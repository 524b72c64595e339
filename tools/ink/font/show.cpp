// `ink font show`: draws with the library itself, so that the picture is what a game shows.
#include <array>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

#include "charset/big5.h"
#include "files/file.h"
#include "font/commands.h"
#include "inkstone/chine.h"
#include "png/png_file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 640, kHeight = 480;
constexpr std::uint8_t kPaper = 0, kInk = 1, kLabel = 2;
constexpr int kTransparent = 1;

void load(const fs::path &directory) {
    if (fs::exists(directory / text::kFontLayouts[text::kChinese16].file_name)) {
        fs::current_path(directory);
        if (CHINE_init(0) == 0) return;
    } else if (fs::exists(directory / text::kCompressedPackFile)) {
        // An expanded pack that is there already is not ours to delete.
        const bool keep = fs::exists(directory / text::kPackFile);
        fs::current_path(directory);
        if (CHINE_init(keep ? 2 : 1) == 0) return;
    } else {
        throw std::runtime_error(directory.string() +
                                 ": there are no fonts; make some with `ink font build`");
    }
    throw std::runtime_error(directory.string() +
                             ": the fonts cannot be loaded; the reason stands in its ERROR.MSG");
}

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

    void save(const fs::path &name) const {
        std::array<std::uint8_t, 768> palette{};
        const auto set = [&](std::size_t index, std::array<std::uint8_t, 3> colour) {
            std::copy(colour.begin(), colour.end(), palette.begin() + static_cast<std::ptrdiff_t>(3 * index));
        };
        set(kPaper, {255, 252, 240});
        set(kInk, {20, 20, 30});
        set(kLabel, {150, 60, 40});
        write_bytes(name, encode_png(kWidth, kHeight, screen_, palette));
    }

  private:
    void (*const print_)(std::int32_t, std::int32_t, const char *, std::int32_t, std::uint8_t *);
    const int size_;
    std::vector<std::uint8_t> screen_ = std::vector<std::uint8_t>(kWidth * kHeight, kPaper);
};

unsigned lead_byte(const std::string &page) {
    std::size_t used = 0;
    unsigned long lead = 0;
    try {
        lead = std::stoul(page, &used, 16);
    } catch (const std::exception &) {
    }
    if (used != page.size() || (lead != 0 && (lead < 0x81 || lead > 0xFE)))
        throw std::runtime_error("--page " + page + ": a page is 81 to FE, or 00 for the single-byte font");
    return static_cast<unsigned>(lead);
}

}  // namespace

void show_font(const FontShow &show) {
    const fs::path picture = fs::absolute(show.picture);
    const std::string text = to_big5(show.text);
    const unsigned lead = lead_byte(show.page.empty() ? "A4" : show.page);
    load(show.directory);
    Page page(show.size);
    if (text.empty())
        page.print_codes(lead);
    else
        page.print(0, 0, text);
    page.save(picture);
}

}  // namespace ink::tool
