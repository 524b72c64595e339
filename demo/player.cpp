#include "player.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "png/png_file.h"

namespace demo {
namespace {

constexpr std::int32_t kTab = 0x0F, kEsc = 0x01, kLeftShift = 0x2A;

// The scan code of a character and whether Shift is held for it.
std::pair<std::int32_t, bool> key_of(char character) {
    static constexpr const char *kRows[] = {"1234567890-=", "qwertyuiop[]", "asdfghjkl;'`", "\\zxcvbnm,./"};
    static constexpr std::int32_t kFirst[] = {0x02, 0x10, 0x1E, 0x2B};
    static constexpr const char *kShifted[] = {"!@#$%^&*()_+", "QWERTYUIOP{}", "ASDFGHJKL:\"~",
                                               "|ZXCVBNM<>?"};
    for (int row = 0; row < 4; ++row) {
        if (const char *at = std::strchr(kRows[row], character))
            return {kFirst[row] + static_cast<std::int32_t>(at - kRows[row]), false};
        if (const char *at = std::strchr(kShifted[row], character))
            return {kFirst[row] + static_cast<std::int32_t>(at - kShifted[row]), true};
    }
    return {0x39, false};  // Space
}

}  // namespace

Player::Player(const Game &game, std::filesystem::path pictures)
    : game_(game), pictures_(std::move(pictures)) {
    std::filesystem::create_directories(pictures_);
    start_ = HOST_clock();
    write_script();
}

void Player::play() {
    while (next_ < steps_.size() && HOST_clock() - start_ >= steps_[next_].time) steps_[next_++].action();
}

void Player::then(std::uint64_t milliseconds, std::function<void()> action) {
    time_ += milliseconds * 1000;
    steps_.push_back({time_, std::move(action)});
}

void Player::tap(std::int32_t scan_code) {
    then(60, [=] { HOST_key(scan_code, 1); });
    then(60, [=] { HOST_key(scan_code, 0); });
}

void Player::type(const char *text) {
    then(0, [=] { std::printf("  types \"%s\"\n", text); });
    for (; *text != 0; ++text) {
        const auto [scan_code, shift] = key_of(*text);
        if (shift) then(20, [] { HOST_key(kLeftShift, 1); });
        tap(scan_code);
        if (shift) then(20, [] { HOST_key(kLeftShift, 0); });
    }
}

// As a hand moves: in steps, not in one jump.
void Player::move(std::int32_t x, std::int32_t y) {
    constexpr std::int32_t kSteps = 12;
    for (std::int32_t i = 1; i <= kSteps; ++i) {
        const std::int32_t to_x = x_ + (x - x_) * i / kSteps, to_y = y_ + (y - y_) * i / kSteps;
        then(20, [=] { HOST_pointer_move(to_x, to_y); });
    }
    x_ = x;
    y_ = y;
}

void Player::click() {
    then(40, [x = x_, y = y_] {
        std::printf("  clicks at (%d, %d)\n", x, y);
        HOST_pointer_button(0, 1);
    });
    then(80, [] { HOST_pointer_button(0, 0); });
}

void Player::picture(const char *name) {
    then(100, [this, name] {
        std::vector<std::uint8_t> rgb(INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT * 3);
        if (HOST_read_picture(game_.window(), rgb.data()) != 0) return;
        const std::filesystem::path file = pictures_ / (std::string(name) + ".png");
        ink::tool::write_png_rgb(file, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, rgb);
        std::printf("  saves %s\n", file.string().c_str());
        ++taken_;
    });
}

void Player::write_script() {
    then(1500, [] { std::puts("The title page:"); });
    picture("1-title");
    type("Hello, 256 colours!");
    picture("2-typing");
    then(0, [] { std::puts("The desk:"); });
    tap(kTab);
    then(2500, [] {});
    move(150, 330);
    click();
    then(250, [] {});
    picture("3-inkstone");
    move(420, 200);
    click();
    move(460, 250);
    click();
    move(610, 350);
    click();
    picture("4-paper");
    move(90, 80);
    click();
    picture("5-dark");
    then(0, [] { std::puts("The poem:"); });
    tap(kTab);
    then(2500, [] {});
    picture("6-poem");
    then(0, [] { std::puts("And leaves."); });
    tap(kEsc);
}

}  // namespace demo
