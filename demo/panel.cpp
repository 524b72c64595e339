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
#include "words.h"

namespace moon {
namespace {

constexpr int kLeft = 16, kTop = 366, kRight = 623, kBottom = 471;
constexpr int kPortraitX = 28, kPortraitHeight = 136;
constexpr int kTextX = 160, kTextWidth = 444, kTextY = kTop + 12;
constexpr int kNarratorX = 40, kNarratorWidth = 560, kCaptionWidth = 600;
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
    if (speaker != kNarrator)
        BUF_pest_image(kPortraitX, kBottom - kPortraitHeight, portraits[speaker].data(), screen());
}

// On a tag that stands on the panel.
void draw_name(int speaker) {
    const std::string name = in_language(names[speaker]);
    const int top = kTop - kTextHeight - 10;
    BUF_glass_bar(kTextX - 12, top, kTextX + text_width(name) + 12, kTop - 1, kDarkGlass, screen());
    print(kTextX, top + 6, name, kNameStyle);
}

// Under the risen moon nothing hides those who stand on the jetty: what is said stands below them.
void draw_caption(int speaker, const std::string &text) {
    const std::string line = in_language(names[speaker]) + in_language(SAYS_ZH, SAYS_EN) + text;
    int y = kBottom - 4 - (kLineHeight + 2) * static_cast<int>(wrap(line, kCaptionWidth).size());
    for (const std::string &part : wrap(line, kCaptionWidth)) {
        print_centred(INK_SCREEN_WIDTH / 2, y, part, kSpeech);
        y += kLineHeight + 2;
    }
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

int panel_text_width(bool narrated) {
    return narrated ? kNarratorWidth : kTextWidth;
}

int panel_lines() {
    return (kBottom - kTextY) / kLineHeight;
}

void say(int speaker, const std::string &text) {
    const bool narrated = speaker == kNarrator, caption = get(kMoonlit) != 0;
    const int x = narrated ? kNarratorX : kTextX;
    show_pointer(Pointer::kArrow);
    let_speak(speaker);
    for (const auto &page : pages_of(text, panel_text_width(narrated),
                                     caption ? text.size() : static_cast<std::size_t>(panel_lines()))) {
        SetTimerTick(kMarkCounter, 0);
        while (!window_closed()) {
            const Input input = begin_frame(Waiting::kClick);
            draw_scene();
            if (caption) {
                draw_caption(speaker, text);
            } else {
                draw_panel(speaker);
                if (!narrated) draw_name(speaker);
                for (std::size_t i = 0; i < page.size(); ++i)
                    print(x, kTextY + static_cast<int>(i) * kLineHeight, page[i], kSpeech);
                draw_mark();
            }
            end_frame();
            if (is_answer(input)) break;
        }
        play(Sound::kClick);
    }
    let_speak(kNarrator);
}

int choose(const std::vector<std::string> &answers) {
    const int count = static_cast<int>(answers.size());
    if (count == 0) return 0;
    const int row = std::min(36, (kBottom - kTop - 8) / std::max(1, count));
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
            const int y = first + i * row + (row - kTextHeight) / 2;
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
    std::vector<std::uint8_t> work(static_cast<std::size_t>((kThingSize + 16) * (kThingSize + 4)) + 4);
    play(Sound::kChime);
    while (!window_closed()) {
        const Input input = begin_frame(Waiting::kClick);
        draw_scene();
        draw_glass(kMiddle - half, kThingTop - 24, kMiddle + half, kThingTop + 104);
        BUF_shadow_pest_bitmap(kMiddle - kThingSize / 2, kThingTop, kThingSize, kThingSize,
                               thing_image(thing) + 4, screen(), work.data());
        BUF_outline_pest_image(kMiddle - kThingSize / 2, kThingTop, thing_image(thing), kBrightGold, 2,
                               screen(), work.data());
        print_centred(kMiddle, kThingTop + 64, text, kSpeech);
        end_frame();
        if (is_answer(input)) break;
    }
}

}  // namespace moon
