// `ink font show`: draws with the library itself, so that the picture is what a game shows.
#include <cstdint>
#include <stdexcept>

#include "charset/big5.h"
#include "files/file.h"
#include "font/commands.h"
#include "font/pages.h"
#include "picture/picture_file.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

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
    const fs::path picture = show.picture == kStream ? show.picture : fs::absolute(show.picture);
    const std::string text = to_big5(show.text);
    const unsigned lead = lead_byte(show.page.empty() ? "A4" : show.page);
    const fs::path before = fs::current_path();
    load_fonts(show.directory);
    const IndexedPicture page = text.empty() ? page_of_codes(show.size, lead) : page_of_text(show.size, text);
    fs::current_path(before);
    write_bytes(picture, encode_picture(page, PictureKind::png));
}

}  // namespace ink::tool
