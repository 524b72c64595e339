// The frame: what came in since the last one, and how the picture gets out. Everything in the game that takes
// time is a loop of frames:
//
//     while (!window_closed()) {
//         const Input input = begin_frame(Waiting::kClick);
//         draw_scene();
//         end_frame();
//         if (input.click) break;
//     }
#pragma once

#include <cstdint>

namespace moon {

struct Input {
    std::uint8_t key = 0;  // of read_data_key, once for each press
    bool click = false;    // the left button went down
    bool back = false;     // the right button went down
    bool held = false;     // the left button is down
    int x = 0, y = 0;
};

// The codes of read_data_key that the game knows.
enum Key : std::uint8_t {
    kKeyBackspace = 8,
    kKeySpace = 32,
    kKeyEnter = 141,
    kKeyEsc = 155,
    kKeyF5 = 191,
    kKeyF9 = 195,
    kKeyUp = 200,
    kKeyDown = 208,
};

// What a loop of frames waits for. The scripted player reads it, to answer as a person would.
enum class Waiting { kTime, kClick, kChoice, kName, kPainting, kTitle, kMenu, kPlay };

// The picture, 640 x 480 palette indices.
std::uint8_t *screen();

Input begin_frame(Waiting waiting = Waiting::kTime);
void end_frame();
Waiting waiting_for();

// Notes a message of the mouse buttons: between two frames a button can go down and up again.
void note_button(unsigned message);

// From watch_tab on: whether Tab was pressed in the last two seconds.
void watch_tab();
bool tab_pressed();

// Frames of a fixed length, drawn by draw(progress), progress from 0 to 1000.
template <typename Draw>
void for_milliseconds(int milliseconds, Draw draw);

constexpr int kFrameMilliseconds = 20;

}  // namespace moon

#include "window.h"

template <typename Draw>
void moon::for_milliseconds(int milliseconds, Draw draw) {
    const int frames = milliseconds / kFrameMilliseconds;
    for (int i = 1; i <= frames && !window_closed(); ++i) {
        begin_frame();
        draw(i * 1000 / frames);
        end_frame();
    }
}
