#include "panel.h"

#include <inkstone/inkstone.h>

#include <algorithm>

#include "frame.h"
#include "inventory.h"
#include "language.h"
#include "light.h"
#include "picture.h"
#include "pointer.h"
#include "scene.h"
#include "sound.h"
#include "text.h"

namespace moon {
namespace {

constexpr int kLeft = 16, kTop = 334, kRight = 623, kBottom = 463;
constexpr int kPortraitX = 28, kPortraitWidth = 112, kPortraitHeight = 136;
constexpr int kTextX = 164, kTextWidth = 440, kNameY = kTop + 10, kTextY = kTop + 42;
constexpr int kNarratorX = 40, kNarratorWidth = 560;
constexpr std::int32_t kMarkCounter = 3;

std::vector<std::uint8_t> portraits[kSpeakers];
Both names[kSpeakers];

const TextStyle kSpeech{kPaperWhite, kInkBlack, kBrightGold, false};
const TextStyle kNameStyle{kBrightGold, kInkBlack, kBrightGold, true};

bool is_answer(const Input &input) {
    return input.click || input.key == kKeySpace || input.key == kKeyEnter || input.key == kKeyEsc;
}

void draw_panel(int speaker) {
    draw_glass(kLeft, kTop, kRight, kBottom);
    if (speaker == kNarrator) return;
    const int y = kBottom - kPortraitHeight;
    BUF_pest_image(kPortraitX, y, portraits[speaker].data(), screen());
    print(kTextX, kNameY, in_language(names[speaker]), kNameStyle);
}

// A golden drop that falls and is there again: it goes on.
void draw_mark() {
    const int y = kBottom - 20 + static_cast<int>(GetTimerTick(kMarkCounter) / 4 % 3);
    for (int row = 0; row < 6; ++row)
        BUF_line(kRight - 26 + row, y + row, kRight - 16 - row, y + row, kBrightGold, screen());
}

// As many lines as the panel has room for, and one page more for each time that it has not.
std::vector<std::vector<std::string>> pages_of(const std::string &text, int width, std::size_t lines) {
    std::vector<std::vector<std::string>> pages;
    for (std::string &line : wrap(text, width)) {
        if (pages.empty() || pages.back().size() == lines) pages.emplace_back();
        pages.back().push_back(std::move(line));
    }
    return pages;
}

}  // namespace

void load_portraits() {
    const char *const files[] = {"p_hero.img", "p_master.img", "p_seller.img", "p_girl.img", "p_boat.img"};
    for (int i = 0; i < kNarrator; ++i) portraits[i] = read_image(files[i]);
}

void name_speaker(int speaker, const std::string &chinese, const std::string &english) {
    if (speaker >= 0 && speaker < kSpeakers) names[speaker] = {chinese, english};
}

void draw_glass(int left, int top, int right, int bottom) {
    BUF_glass_bar(left, top, right, bottom, kDarkGlass, screen());
    BUF_box(left, top, right, bottom, kInkBlack, screen());
    BUF_box(left + 3, top + 3, right - 3, bottom - 3, kGold, screen());
}

void say(int speaker, const std::string &text) {
    const bool narrated = speaker == kNarrator;
    const int x = narrated ? kNarratorX : kTextX, y = narrated ? kTop + 20 : kTextY;
    show_pointer(Pointer::kArrow);
    let_speak(speaker);
    for (const auto &page :
         pages_of(text, narrated ? kNarratorWidth : kTextWidth, line_height() > 24 ? 3 : 4)) {
        SetTimerTick(kMarkCounter, 0);
        while (!window_closed()) {
            const Input input = begin_frame(Waiting::kClick);
            draw_scene();
            draw_panel(speaker);
            int line_y = y;
            for (const std::string &line : page) {
                print(x, line_y, line, kSpeech);
                line_y += line_height() - 2;
            }
            draw_mark();
            end_frame();
            if (is_answer(input)) break;
        }
        play(Sound::kClick);
    }
    let_speak(kNarrator);
}

int choose(const std::vector<std::string> &answers) {
    const int count = static_cast<int>(answers.size());
    const int row = std::min(36, (kBottom - kTop - 24) / std::max(1, count));
    const int first = kTop + (kBottom - kTop - row * count) / 2;
    int chosen = 0, last_y = 0;
    MOUSE_get_position(nullptr, &last_y);
    show_pointer(Pointer::kArrow);
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kChoice);
        const bool inside = input.y >= first && input.y < first + row * count;
        // The keys may choose another one for as long as the pointer rests.
        if (inside && input.y != last_y) chosen = (input.y - first) / row;
        last_y = input.y;
        if (input.key == kKeyUp) chosen = (chosen + count - 1) % count;
        if (input.key == kKeyDown) chosen = (chosen + 1) % count;
        draw_scene();
        draw_panel(kHero);
        for (int i = 0; i < count; ++i) {
            const TextStyle style{i == chosen ? kBrightGold : kPaperWhite, kInkBlack, kBrightGold,
                                  i == chosen};
            const int y = first + i * row + (row - text_height()) / 2;
            print(kTextX + (i == chosen ? 6 : 0), y, answers[static_cast<std::size_t>(i)], style);
        }
        end_frame();
        const int number = input.key - '1';
        if (number >= 0 && number < count) chosen = number;
        if ((input.click && inside) || input.key == kKeyEnter || input.key == kKeySpace ||
            (number >= 0 && number < count))
            break;
    }
    play(Sound::kClick);
    return chosen;
}

void show_found(int thing, const std::string &text) {
    constexpr int kMiddle = INK_SCREEN_WIDTH / 2, kThingTop = 168, kThingSize = 48;
    const int half = std::max(120, text_width(text) / 2 + 32);
    std::vector<std::uint8_t> work(static_cast<std::size_t>((kThingSize + 4) * (kThingSize + 4)) + 4);
    play(Sound::kChime);
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kClick);
        draw_scene();
        draw_glass(kMiddle - half, kThingTop - 24, kMiddle + half, kThingTop + 104);
        BUF_outline_pest_image(kMiddle - kThingSize / 2 - 2, kThingTop - 2, thing_image(thing), kBrightGold,
                               2, screen(), work.data());
        print_centred(kMiddle, kThingTop + 64, text, kSpeech);
        end_frame();
        if (is_answer(input)) break;
    }
}

}  // namespace moon
