#include "name_entry.h"

#include <inkstone/inkstone.h>

#include "frame.h"
#include "language.h"
#include "light.h"
#include "panel.h"
#include "pointer.h"
#include "sound.h"
#include "state.h"
#include "text.h"
#include "words.h"

namespace moon {
namespace {

constexpr int kMiddle = INK_SCREEN_WIDTH / 2, kTop = 226;
constexpr std::int32_t kCaretCounter = 3;

bool is_letter(std::uint8_t key) {
    return (key >= 'A' && key <= 'Z') || key == '-';
}

// The keyboard gives capitals; a name has one at its start.
void type(std::string &name, std::uint8_t key) {
    const bool first = name.empty() || name.back() == '-';
    name += first ? static_cast<char>(key) : static_cast<char>(char_lower(key));
}

void draw_entry(const std::string &name) {
    const TextStyle question{kPaperWhite, kInkBlack, kBrightGold, false};
    const TextStyle letters{kBrightGold, kInkBlack, kBrightGold, true};
    const TextStyle hint{4, kInkBlack, kBrightGold, false};
    draw_glass(kMiddle - 190, kTop, kMiddle + 190, kTop + 150);
    print_centred(kMiddle, kTop + 20, in_language(WHO_ARE_YOU_ZH, WHO_ARE_YOU_EN), question);
    const int width = text_width(name), left = kMiddle - width / 2, y = kTop + 62;
    print(left, y, name, letters);
    if (GetTimerTick(kCaretCounter) / 8 % 2 == 0)
        BUF_bar(left + width + 2, y, left + width + 4, y + kTextHeight - 2, kVermilion, screen());
    BUF_line(kMiddle - 90, y + 30, kMiddle + 90, y + 30, kGold, screen());
    print_centred(kMiddle, kTop + 108, in_language(NAME_HINT_ZH, NAME_HINT_EN), hint);
}

}  // namespace

std::string enter_name(void (*behind)()) {
    std::string name;
    show_pointer(Pointer::kArrow);
    fnResetKeyBoard();
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kName);
        if (input.key == kKeyEnter || input.key == kKeyEsc) break;
        if (is_letter(input.key) && name.size() < kLongestName) {
            type(name, input.key);
            play(Sound::kClick);
        }
        if (input.key == kKeyBackspace && !name.empty()) name.pop_back();
        behind();
        draw_entry(name);
        end_frame();
    }
    return name;
}

}  // namespace moon
