#include "frame.h"

#include <inkstone/inkstone.h>

#include <vector>

namespace moon {
namespace {

std::vector<std::uint8_t> picture(INK_SCREEN_WIDTH *INK_SCREEN_HEIGHT);
Waiting now_waiting = Waiting::kTime;
bool clicked = false, clicked_back = false, held = false, tabbed = false;
constexpr std::int32_t kTabCounter = 4;

// A key that is held is reported in every frame; the game hears of it once.
std::uint8_t read_new_key() {
    static std::uint8_t last = 0;
    const std::uint8_t key = read_data_key();
    const bool again = key == last;
    last = key;
    // Esc is remembered when it is up again, and would be seen with the next key.
    if (fnCheckEscKey() != 0 && fnScanKeyPress() == 0) fnResetNormalKey();
    return again ? 0 : key;
}

}  // namespace

std::uint8_t *screen() {
    return picture.data();
}

void note_button(unsigned message) {
    clicked |= message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    clicked_back |= message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK;
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) held = true;
    if (message == WM_LBUTTONUP) held = false;
}

Input begin_frame(Waiting waiting) {
    now_waiting = waiting;
    clear_time_delay();
    PollingExecute(0);
    Input input;
    input.key = read_new_key();
    input.click = clicked;
    input.back = clicked_back;
    input.held = held;
    MOUSE_get_position(&input.x, &input.y);
    clicked = clicked_back = false;
    return input;
}

void end_frame() {
    MOUSE_show_image_cursor(screen());
    WViewBuffer2Screen();
    wait_time_delay(kFrameMilliseconds);
}

Waiting waiting_for() {
    return now_waiting;
}

void watch_tab() {
    set_system_tab_function([] {
        tabbed = true;
        SetTimerTick(kTabCounter, 0);
    });
}

bool tab_pressed() {
    constexpr std::uint32_t kTwoSeconds = 36;
    return tabbed && GetTimerTick(kTabCounter) < kTwoSeconds;
}

}  // namespace moon
