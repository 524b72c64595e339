// Any bytes as a font of a system's that the game's fonts are made of: all bitmaps come of it, or it is refused. The
// first byte chooses the font that is made and the size and face that are asked for.
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "font/font_maker.h"
#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0 || size > 1 << 15) return 0;
    const char *const asked[] = {"", "@12", "#1", "@0", "#0@14", "@", "@x", "@70000"};
    // Three in four are fonts of 256 characters, which are soon made.
    const auto font = static_cast<ink::text::Font>(data[0] % 64 < 48 ? data[0] / 64 % 2 * 2 : data[0] / 64);
    const std::string source = std::string(fuzz::as_file(data + 1, size - 1)) + asked[data[0] % 8];
    try {
        const auto made = ink::tool::make_font(font, {source}, [](std::size_t done, std::size_t all) {
            if (done > all) std::abort();
        });
        if (made.bitmaps.size() != ink::text::kFontLayouts[font].bytes()) std::abort();
        if (made.inked.level1 > ink::tool::kLevel1 || made.inked.level2 > ink::tool::kLevel2) std::abort();
    } catch (const std::runtime_error &error) {
        if (error.what()[0] == '\0') std::abort();
    }
    return 0;
}
