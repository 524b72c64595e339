#include "player.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "inventory.h"
#include "mask.h"
#include "painting.h"
#include "png/png_file.h"
#include "route.h"
#include "scene.h"
#include "strokes.h"
#include "wave_file.h"
#include "window.h"

namespace moon {
namespace {

constexpr std::int32_t kSpace = 0x39;
constexpr std::uint64_t kReadingTime = 700;      // milliseconds a text is left on the screen
constexpr std::uint64_t kPatience = 40'000'000;  // microseconds without anything to do

// The scan code of a letter.
std::int32_t scan_code_of(char letter) {
    static constexpr const char *kRows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    static constexpr std::int32_t kFirst[] = {0x10, 0x1E, 0x2C};
    const auto lower = static_cast<char>(char_lower(static_cast<std::uint8_t>(letter)));
    for (int row = 0; row < 3; ++row)
        if (const char *at = std::strchr(kRows[row], lower))
            return kFirst[row] + static_cast<std::int32_t>(at - kRows[row]);
    return kSpace;
}

}  // namespace

Player::Player(std::filesystem::path pictures, int half)
    : pictures_(std::move(pictures)), goals_(route(half)) {
    std::filesystem::create_directories(pictures_);
    HOST_capture_sound(1);
    time_ = HOST_clock();
}

void Player::play() {
    const std::uint64_t now = HOST_clock();
    while (!inputs_.empty() && now >= inputs_.front().time) {
        const auto action = std::move(inputs_.front().action);
        inputs_.pop_front();
        action();
    }
    if (inputs_.empty()) react();
    if (now > time_ + kPatience && !window_closed()) {
        std::printf("The scripted player is stuck at step %d.\n", static_cast<int>(next_goal_));
        end_game();
    }
    take_sound();
}

// The next goal when it is time for it, else what any player does.
void Player::react() {
    const Waiting state = waiting_for();
    const Goal *goal = next_goal_ < goals_.size() ? &goals_[next_goal_] : nullptr;
    const bool counts_clicks = goal != nullptr && goal->what == What::kPicture && state == Waiting::kClick;
    if (goal != nullptr && goal->when == state && (!counts_clicks || clicks_ >= goal->number)) {
        clicks_ = 0;
        ++next_goal_;
        pursue(*goal);
    } else if (state == Waiting::kClick) {
        ++clicks_;
        then(kReadingTime, [] {});
        tap(kSpace);
    }
}

void Player::pursue(const Goal &goal) {
    switch (goal.what) {
        case What::kUse:
            then(0, [this, key = goal.number] { click(point_of(key)); });
            then(800, [] {});
            break;
        case What::kHold:
            move({320, 8});
            then(300, [this, thing = goal.number] { click(place_in_strip(thing)); });
            then(800, [] {});
            break;
        case What::kKey:
            tap(goal.number);
            then(200, [] {});
            break;
        case What::kType: type(goal.text); break;
        case What::kPaint: paint(); break;
        case What::kPicture:
            then(goal.when == Waiting::kTime ? static_cast<std::uint64_t>(goal.number) : 500, [] {});
            picture(goal.text);
            break;
        case What::kDrop: then(1000, [] {}); break;
    }
}

void Player::paint() {
    Tools tools;
    for (const Stroke &stroke_of : moon_strokes()) {
        for (const Point at : clicks_between(tools, stroke_of.tools)) click(at);
        tools = stroke_of.tools;
        std::vector<Point> on_screen;
        for (const Point at : stroke_of.points)
            on_screen.push_back({kSheetX + kSheetSize / 2 + at.x, kSheetY + kSheetSize / 2 + at.y});
        stroke(on_screen);
    }
    picture("painting");
    click(done_button());
    then(1500, [] {});
}

void Player::then(std::uint64_t milliseconds, std::function<void()> action) {
    if (inputs_.empty()) time_ = HOST_clock();
    time_ += milliseconds * 1000;
    inputs_.push_back({time_, std::move(action)});
}

void Player::tap(std::int32_t scan_code) {
    then(60, [=] { HOST_key(scan_code, 1); });
    then(60, [=] { HOST_key(scan_code, 0); });
    then(60, [] {});
}

void Player::type(const char *text) {
    for (; *text != 0; ++text) tap(scan_code_of(*text));
}

// As a hand moves: in steps, not in one jump.
void Player::move(Point to) {
    const int way = std::max(std::abs(to.x - pointer_.x), std::abs(to.y - pointer_.y));
    const int steps = std::clamp(way / 6, 1, 10);
    for (int i = 1; i <= steps; ++i) {
        const int x = pointer_.x + (to.x - pointer_.x) * i / steps;
        const int y = pointer_.y + (to.y - pointer_.y) * i / steps;
        then(20, [=] { HOST_pointer_move(x, y); });
    }
    pointer_ = to;
}

void Player::click(Point at) {
    stroke({at});
}

// With the button held from the first point to the last.
void Player::stroke(const std::vector<Point> &points) {
    move(points.front());
    then(60, [] { HOST_pointer_button(0, 1); });
    for (const Point at : points) move(at);
    then(60, [] { HOST_pointer_button(0, 0); });
    then(60, [] {});
}

void Player::picture(const std::string &name) {
    then(0, [this, name] {
        std::vector<std::uint8_t> rgb(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT * 3);
        if (HOST_read_picture(window(), rgb.data()) != 0) return;
        const std::string number = (taken_ < 9 ? "0" : "") + std::to_string(taken_ + 1);
        const std::filesystem::path file = pictures_ / (number + "-" + name + ".png");
        ink::tool::write_png_rgb(file, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, rgb);
        std::printf("  %s\n", file.string().c_str());
        ++taken_;
    });
}

void Player::take_sound() {
    std::int16_t part[2 * 4096];
    for (std::int32_t frames = 0; (frames = HOST_read_sound(part, 4096)) > 0;)
        sound_.insert(sound_.end(), part, part + 2 * frames);
}

void Player::finish() {
    take_sound();
    const std::filesystem::path file = pictures_ / "sound.wav";
    write_wave(file, sound_);
    std::printf("%d pictures and %d seconds of sound in %s\n", taken_,
                static_cast<int>(sound_.size() / 2 / kSoundRate), pictures_.string().c_str());
}

}  // namespace moon
