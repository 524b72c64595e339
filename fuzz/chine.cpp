// Loads any expanded font pack through its compressed form, then draws any text with it: the input is the
// window, a mode and a place, the length of the text and the text, and the pack.
#include "inkstone/chine.h"

#include <unistd.h>

#include <algorithm>
#include <string>

#include "inkstone/ascii.h"
#include "inkstone/lzss.h"
#include "scratch.h"
#include "support/files.h"
#include "text/font_layout.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    constexpr std::size_t kNumbers = 7, kHead = 2 * kNumbers + 1;
    if (size < kHead) return 0;
    std::int32_t numbers[kNumbers];
    for (std::size_t i = 0; i < kNumbers; ++i) {
        numbers[i] = static_cast<std::int16_t>(data[2 * i] | data[2 * i + 1] << 8);
        if (numbers[i] < -30000 || numbers[i] > 30000) numbers[i] *= 65536;  // far beyond any screen
    }
    const std::size_t length = std::min<std::size_t>(data[kHead - 1], size - kHead);
    const std::string text(reinterpret_cast<const char *>(data) + kHead, length);
    const std::uint8_t *pack = data + kHead + length;
    const std::size_t pack_size = size - kHead - length;

    LZSS_compress_file(fuzz::as_file(pack, pack_size), "FONT.LZF");
    const std::int32_t loaded = CHINE_init(numbers[0] % 2 == 0 ? 1 : 2);
    if ((access("FONT.SCF", F_OK) != 0) != (numbers[0] % 2 == 0)) std::abort();
    // The four fonts as files of their own, of any content, or missing.
    if (numbers[0] % 8 == 0) {
        for (const auto &layout : ink::text::kFontLayouts) {
            const bool missing = (numbers[0] & 64) != 0 && layout.height == 24;
            if (!missing) test::write_file(layout.file_name, {pack, pack + pack_size});
        }
        if (CHINE_init(0) != ((numbers[0] & 64) != 0 ? -2 : 0)) std::abort();
        for (const auto &layout : ink::text::kFontLayouts) std::filesystem::remove(layout.file_name);
    }
    static const std::string kGuard(4096, '\x5A');
    std::string screen = kGuard + std::string(640 * 480, '\0') + kGuard;
    auto *const pixels = reinterpret_cast<std::uint8_t *>(screen.data()) + kGuard.size();
    CHINE_set_text_window(numbers[1], numbers[2], numbers[3], numbers[4]);
    CHINE_set_color(3, 7);
    set_ascii16_color(3, 7);
    if (size >= 576) CHINE_set_color_pattern(numbers[0] & 3, data);
    for (const auto print : {CHINE_print16, CHINE_print24, print_ascii16})
        print(numbers[5], numbers[6], text.c_str(), numbers[0], pixels);
    if (!screen.starts_with(kGuard) || !screen.ends_with(kGuard)) std::abort();
    if (loaded != 0 && loaded != -2) std::abort();
    CHINE_free();
    return 0;
}
