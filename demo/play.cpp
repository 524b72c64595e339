#include "play.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <vector>

#include "frame.h"
#include "hero.h"
#include "inventory.h"
#include "light.h"
#include "mask.h"
#include "menu.h"
#include "panel.h"
#include "pointer.h"
#include "save.h"
#include "script.h"
#include "sound.h"
#include "text.h"

namespace moon {
namespace {

const TextStyle kNameStyle{kPaperWhite, kInkBlack, kBrightGold, false};

int errand = kNothing;  // the key of what the hero walks to

Pointer pointer_for(int key) {
    if (key == kFloor || key == kExitLeft || key == kExitRight) return Pointer::kWalk;
    if (is_person(key)) return Pointer::kTalk;
    return key >= kFirstThingKey ? Pointer::kHand : Pointer::kArrow;
}

// Where a name stands: centred on x, and within the picture.
struct Tag {
    int left, top, right, bottom;
};

Tag tag_for(const std::string &name, int x, int y) {
    const int half = text_width(name) / 2 + 10, height = kTextHeight + 8;
    const int middle = std::clamp(x, half + 4, INK_SCREEN_WIDTH - half - 4);
    const int top = std::clamp(y, 4, INK_SCREEN_HEIGHT - height - 4);
    return {middle - half, top, middle + half, top + height};
}

void draw_name(const std::string &name, const Tag &tag) {
    if (name.empty()) return;
    BUF_glass_bar(tag.left, tag.top, tag.right, tag.bottom, kDarkGlass, screen());
    print_centred((tag.left + tag.right) / 2, tag.top + 4, name, kNameStyle);
}

// The names of all that can be used or left by, none upon another.
void draw_all_names() {
    std::vector<Tag> tags;
    for (int key = kExitLeft; key < 64; ++key) {
        const std::string name = name_of_thing(key);
        const Point at = name.empty() ? Point{-1, -1} : point_of(key);
        if (at.x < 0) continue;
        Tag tag = tag_for(name, at.x, at.y - 12);
        for (const Tag &other : tags)
            if (tag.left <= other.right && other.left <= tag.right && tag.top <= other.bottom &&
                other.top <= tag.bottom)
                tag = tag_for(name, at.x, other.top - (tag.bottom - tag.top) - 4);
        draw_name(name, tag);
        tags.push_back(tag);
    }
}

void draw_frame(const Input &input) {
    move_hero();
    draw_scene();
    const int key = key_at(input.x, input.y);
    highlight(is_person(key) ? key : kNothing);
    show_pointer(pointer_for(key));
    if (tab_pressed())
        draw_all_names();
    else if (key >= kExitLeft)
        draw_name(name_of_thing(key), tag_for(name_of_thing(key), input.x, input.y - kTextHeight - 16));
    draw_inventory(input);
}

// The next place to the left and to the right: study, market and lake lie in a row.
void leave_by(int key) {
    const int next = std::clamp(get(kPlace) + (key == kExitLeft ? -1 : 1), int{kStudy}, int{kLake});
    if (next == get(kPlace)) return;
    go_to(static_cast<Place>(next), key == kExitLeft ? Side::kRight : Side::kLeft);
    run(kArrival + next);
}

// What the hero came for.
void do_errand() {
    const int key = errand;
    errand = kNothing;
    if (key == kExitLeft || key == kExitRight) {
        leave_by(key);
        return;
    }
    if (key < kFirstThingKey) return;
    turn_hero_to(point_of(key).x);
    run(key);
    set(kHeld, kNoThing);
}

void click(const Input &input) {
    if (click_inventory(input)) return;
    errand = key_at(input.x, input.y);
    walk_hero_to(errand >= kExitLeft ? standing_point(errand) : nearest_floor(input.x, input.y));
    play(Sound::kClick);
}

void wait_until_hero_stands() {
    while (hero_walks() && !window_closed()) {
        draw_frame(begin_frame());
        end_frame();
    }
}

}  // namespace

void show_place() {
    draw_scene();
    WViewBuffer2Screen();
    const bool night = get(kNight) != 0;
    fade_to(get(kMoonlit) != 0 ? Light::kMoon : night ? Light::kNight : Light::kDay);
    play_music(night ? kNightMusic : kDayMusic);
}

void go_to(Place place, Side side) {
    fade_out();
    enter_by(place, side);
    prepare(get(kNight) != 0 ? Light::kNight : Light::kDay);
    show_place();
}

void sleep_till(int night) {
    fade_to(Light::kDusk);
    fade_out();
    set(kNight, night);
    prepare(night != 0 ? Light::kNight : Light::kDay);
    show_place();
}

void walk_and_wait(Point feet) {
    walk_hero_to(feet);
    wait_until_hero_stands();
}

void reach_and_wait() {
    hero_reaches();
    for_milliseconds(500, [](int) {
        move_hero();
        draw_scene();
    });
}

void play_story() {
    errand = kNothing;
    while (!window_closed() && get(kFinished) == 0) {
        const Input input = begin_frame(hero_walks() || errand != kNothing ? Waiting::kTime : Waiting::kPlay);
        draw_frame(input);
        end_frame();
        if (input.click) click(input);
        if (input.back) set(kHeld, kNoThing);
        if (input.key == kKeyF5) save_game();
        if (input.key == kKeyEsc || (input.key == kKeyF9 && load_game())) {
            const MenuResult result = input.key == kKeyEsc ? game_menu() : MenuResult::kLoaded;
            if (result == MenuResult::kToTitle) return;
            if (result == MenuResult::kLoaded) {
                stop_hero();
                errand = kNothing;
                fade_out();
                enter_place();
                prepare(get(kNight) != 0 ? Light::kNight : Light::kDay);
                show_place();
            }
        }
        if (errand != kNothing && !hero_walks()) do_errand();
    }
}

}  // namespace moon
