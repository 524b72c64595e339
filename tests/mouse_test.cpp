// The mouse: what its messages say, the cursors and their platform calls, image cursors, and the mask.
#include "inkstone/mouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "inkstone/compressed_image.h"
#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "support/calls.h"
#include "support/files.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

using test::Bytes;

HICON shape(std::uintptr_t number) {
    return reinterpret_cast<HICON>(number);
}
std::pair<std::int32_t, std::int32_t> position() {
    std::int32_t x = 0, y = 0;
    MOUSE_get_position(&x, &y);
    return {x, y};
}
using At = std::pair<std::int32_t, std::int32_t>;

LRESULT forward(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_SETCURSOR || (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK))
        fnMouseInterrupt(message, static_cast<std::uint32_t>(wparam), static_cast<std::int32_t>(lparam));
    return HOST_default_procedure(window, message, wparam, lparam);
}

TEST(Mouse, EventsGiveTheirCodesPositionsAndFlags) {
    const struct {
        std::uint32_t message, wparam;
        std::uint8_t key;
        bool shift, control;
    } cases[] = {{WM_MOUSEMOVE, 0, 241, false, false},       {WM_MOUSEMOVE, MK_LBUTTON, 242, false, false},
                 {WM_MOUSEMOVE, 3, 242, false, false},       {WM_MOUSEMOVE, MK_RBUTTON, 243, false, false},
                 {WM_MOUSEMOVE, 0x10, 241, false, false},    {WM_LBUTTONDOWN, 0x0D, 244, true, true},
                 {WM_LBUTTONUP, MK_SHIFT, 245, true, false}, {WM_LBUTTONDBLCLK, MK_CONTROL, 246, false, true},
                 {WM_RBUTTONDOWN, 2, 247, false, false},     {WM_RBUTTONUP, 0, 248, false, false},
                 {WM_RBUTTONDBLCLK, 0, 249, false, false},   {WM_MBUTTONDOWN, 0, 250, false, false},
                 {WM_MBUTTONUP, 0, 251, false, false},       {WM_MBUTTONDBLCLK, 0, 252, false, false}};
    for (const std::int32_t origin : {0, 10, -3}) {
        fnMouseInit(nullptr, nullptr, static_cast<std::int16_t>(origin),
                    static_cast<std::int16_t>(2 * origin), nullptr);
        EXPECT_EQ(MOUSE_get_key(), 0);
        for (const auto &c : cases) {
            fnMouseInterrupt(c.message, c.wparam, 0x00C80064);
            EXPECT_EQ(MOUSE_get_key(), c.key);
            EXPECT_EQ(MOUSE_get_key(), c.key);  // it stays
            EXPECT_EQ(MOUSE_check_shift(), c.shift);
            EXPECT_EQ(MOUSE_check_control(), c.control);
            EXPECT_EQ(position(), At(100 - origin, 200 - 2 * origin));
            // Other messages change nothing, and MOUSE_reset the event alone.
            for (const std::uint32_t other : {0x20U, 0x1FFU, 0x20AU}) fnMouseInterrupt(other, 0, 0x00010001);
            EXPECT_EQ(MOUSE_get_key(), c.key);
            MOUSE_reset();
            EXPECT_EQ(MOUSE_get_key(), 0);
            EXPECT_EQ(MOUSE_check_shift(), c.shift);
            EXPECT_EQ(position(), At(100 - origin, 200 - 2 * origin));
        }
        fnMouseInterrupt(WM_MOUSEMOVE, 0, -1);
        EXPECT_EQ(position(), At(65535 - origin, 65535 - 2 * origin));
    }
}

TEST_IN_NEW_PROCESS(Mouse, CursorsAndTheirPlatformCalls) {
    test::record_calls();
    fnMouseInterrupt(WM_SETCURSOR, 0, 0);
    fnMouseInit(nullptr, nullptr, 10, 20, nullptr);
    fnMouseInterrupt(WM_SETCURSOR, 0, 0);
    EXPECT_EQ(MOUSE_load_cursor(0, shape(70)), 0);
    fnMouseInterrupt(WM_USER, 0, 0);  // the shape stays, also on the selected one's loading
    fnMouseInitCursor(63, shape(71));
    EXPECT_EQ(MOUSE_load_cursor(64, shape(72)), -2);
    EXPECT_EQ(MOUSE_load_cursor(-1, shape(72)), -2);
    fnMouseInitCursor(64, shape(72));
    for (const std::int32_t index : {0, 64, -1, 63, 63, 0}) MOUSE_set_cursor(index);
    fnMouseInterrupt(WM_MOUSEMOVE, 0, 0);
    for (const std::int32_t show : {1, 0, 0, 1, 1, 256, 0, 2}) MOUSE_show(show);
    MOUSE_set_position(30, 65536 + 40);
    EXPECT_EQ(
        test::take_calls(),
        (test::Calls{"set_cursor 0", "load_arrow", "set_cursor 32512", "set_cursor 32512", "set_cursor 71",
                     "set_cursor 70", "set_cursor 70", "show_cursor 0", "show_cursor 1", "show_cursor 1",
                     "show_cursor 1", "client_to_screen 0 40 65596", "set_cursor_position 40 65596"}));
    EXPECT_EQ(position(), At(30, 40));
    MOUSE_get_position(nullptr, nullptr);
    MOUSE_reset();
    MOUSE_set_position(INT32_MAX, INT32_MIN);
    EXPECT_EQ(position(), At(-1, 0));
    EXPECT_EQ(MOUSE_get_key(), 0);  // it is no event
}

TEST(Mouse, StartsAfreshWithEachInit) {
    fnMouseInit(nullptr, nullptr, 10, 20, nullptr);
    for (std::int32_t index = 0; index < 64; ++index) MOUSE_load_cursor(index, shape(70));
    MOUSE_set_cursor(5);
    MOUSE_show(0);
    fnMouseInterrupt(WM_LBUTTONDOWN, MK_SHIFT | MK_CONTROL, 0x00C80064);
    fnMouseInit(nullptr, nullptr, 0, 0, nullptr);
    EXPECT_EQ(position(), At(0, 0));
    EXPECT_EQ(MOUSE_get_key() | MOUSE_check_shift() | MOUSE_check_control(), 0);
    test::record_calls();
    MOUSE_set_cursor(0);  // selected already
    fnMouseInterrupt(WM_SETCURSOR, 0, 0);
    for (std::int32_t index = 63; index >= 0; --index) MOUSE_set_cursor(index);
    MOUSE_show(1);  // shown already
    EXPECT_EQ(test::take_calls(), test::Calls(65, "set_cursor 32512"));
}

TEST(Mouse, FollowsTheMachinesPointerThroughTheWindow) {
    const HWND window = HOST_open_window("w", 660, 500, forward);
    fnMouseInit(window, nullptr, 10, 10, fnCheckMessage);
    HOST_pointer_move(110, 60);
    EXPECT_EQ(MOUSE_get_key(), MOUSE_MOVE);
    EXPECT_EQ(position(), At(100, 50));
    HOST_pointer_button(1, 1);
    MOUSE_wait_key(MOUSE_RIGHT_DOWN);
    HOST_key(0x2A, 1);
    HOST_pointer_move(9, 8);
    MOUSE_wait_key(MOUSE_RIGHT_DRAG);
    EXPECT_EQ(position(), At(-1, -2));
    EXPECT_EQ(MOUSE_check_shift(), 1);
    MOUSE_wait_any_key();  // an event that is there will do
    MOUSE_reset();
    HOST_pointer_button(1, 0);
    MOUSE_wait_any_key();
    EXPECT_EQ(MOUSE_get_key(), MOUSE_RIGHT_UP);
    // The library moves the pointer: the position is known at once, its message comes with the next pump and
    // the next click comes from there.
    test::record_calls();
    MOUSE_set_position(300, 200);
    EXPECT_EQ(test::take_calls(), (test::Calls{"client_to_screen 1 310 210", "set_cursor_position 314 240"}));
    EXPECT_EQ(position(), At(300, 200));
    MOUSE_wait_key(MOUSE_MOVE);
    EXPECT_EQ(position(), At(300, 200));
    for (const auto &[button, down] : {At(9, 1), {-1, 1}, {0, 3}, {0, -1}}) HOST_pointer_button(button, down);
    EXPECT_EQ(MOUSE_get_key(), MOUSE_MOVE);  // there are no such buttons
    HOST_pointer_button(2, 2);
    MOUSE_wait_key(MOUSE_MIDDLE_DOUBLE);
    EXPECT_EQ(position(), At(300, 200));
    HOST_key(0x2A, 0);
    HOST_close_window(window);
}

TEST(Mouse, MaskIsReadUnderThePointerAlone) {
    Bytes mask(640 * 480);
    for (std::size_t i = 0; i < mask.size(); ++i) mask[i] = static_cast<std::uint8_t>(i * 7 % 251 + 1);
    fnMouseInit(nullptr, nullptr, 5, 5, nullptr);
    const auto at = [&](std::int32_t x, std::int32_t y) {
        fnMouseInterrupt(WM_MOUSEMOVE, 0, (x + 5) | (y + 5) << 16);
        return MOUSE_get_mask_key(mask.data());
    };
    EXPECT_EQ(at(0, 0), mask[0]);
    EXPECT_EQ(at(639, 479), mask[640 * 480 - 1]);
    EXPECT_EQ(at(3, 100), mask[64003]);
    for (const auto &[x, y] : {At(640, 0), {0, 480}, {-1, 0}, {0, -1}})
        EXPECT_EQ(at(x, y), 0) << x << ' ' << y;
}

// An animation whose frames are 2 x 1 pixels of colours 1 and 0, 2 and 0 and so on.
void write_animation(const std::string &name, const std::vector<At> &places) {
    Bytes file(12), frames;
    test::put(file, places.size(), 4);
    test::put(file, 100, 2);  // anchor
    test::put(file, 200, 2);
    std::uint8_t color = 1;
    for (const auto &[x, y] : places) {
        test::put(file, 20 + 4 * places.size() + frames.size(), 4);
        const Bytes image{2, 0, 1, 0, color++, 0};
        Bytes block(64);
        block.resize(static_cast<std::size_t>(fnCompressImage(image.data(), block.data(), 0)));
        test::put(frames, x, 2);
        test::put(frames, y, 2);
        test::put(frames, block.size(), 4);
        frames.insert(frames.end(), block.begin(), block.end());
    }
    file.insert(file.end(), frames.begin(), frames.end());
    test::write_file(name, file);
}
// Shows the image cursor: the colour of the frame and where it was drawn, or colour 0.
std::tuple<int, int, int> shown() {
    Bytes screen(640 * 480, 99);
    MOUSE_show_image_cursor(screen.data());
    for (std::size_t i = 0; i < screen.size(); ++i)
        if (screen[i] != 99) {
            EXPECT_EQ(std::count(screen.begin(), screen.end(), 99), 640 * 480 - 1);  // colour 0 is not drawn
            return {screen[i], static_cast<int>(i % 640), static_cast<int>(i / 640)};
        }
    return {0, 0, 0};
}

TEST(Mouse, ImageCursorIsDrawnAndMovesOn) {
    using Shown = std::tuple<int, int, int>;
    write_animation("a.can", {{5, 5}, {7, 4}, {-5, 25}});
    Bytes work(256), screen(640 * 480);
    MOUSE_show_image_cursor(screen.data());  // nothing before the start
    fnMouseInit(nullptr, nullptr, 0, 0, nullptr);
    ASSERT_EQ(MOUSE_load_image_cursor(3, "A.CAN", work.data()), 0);
    fnMouseInterrupt(WM_MOUSEMOVE, 0, 50 | 60 << 16);
    EXPECT_EQ(shown(), Shown(0, 0, 0));  // slot 0 has none
    MOUSE_set_cursor(3);
    MOUSE_set_spot(4, 3);
    const Shown frames[] = {{1, 46, 57}, {2, 48, 56}, {3, 36, 77}};
    for (int i = 0; i < 7; ++i) {
        for (const std::uint32_t ticks : {0U, 1U, 2U}) {
            SetTimerTick(12, ticks);
            EXPECT_EQ(shown(), frames[i % 3]) << i;
        }
        EXPECT_EQ(GetTimerTick(12), 0U);
    }
    for (const auto &[x, y] : {At(INT32_MIN, INT32_MIN), {INT32_MAX, INT32_MAX}}) {
        MOUSE_set_spot(x, y);
        EXPECT_EQ(shown(), Shown(0, 0, 0));
    }
    MOUSE_set_spot(0, 0);
    // A file that cannot be read leaves the slot empty; so does one without frames.
    EXPECT_EQ(MOUSE_load_image_cursor(3, "none.can", work.data()), -2);
    EXPECT_EQ(test::take_log(), "CAN file none.can open error:CAN_read_file\n");
    EXPECT_EQ(shown(), Shown(0, 0, 0));
    write_animation("empty.can", {});
    EXPECT_EQ(MOUSE_load_image_cursor(3, "empty.can", work.data()), 0);
    EXPECT_EQ(shown(), Shown(0, 0, 0));
    Bytes negative(20);
    negative[15] = 0x80;
    test::write_file("negative.can", negative);
    EXPECT_EQ(MOUSE_load_image_cursor(3, "negative.can", work.data()), -2);
    for (const std::int32_t index : {-1, 64})
        EXPECT_EQ(MOUSE_load_image_cursor(index, "a.can", work.data()), -2);
    EXPECT_EQ(MOUSE_load_image_cursor(3, "a.can", work.data()), 0);
    MOUSE_set_spot(-4, -3);
    fnMouseInit(nullptr, nullptr, 0, 0, nullptr);  // frees what was loaded
    MOUSE_set_cursor(3);
    EXPECT_EQ(shown(), Shown(0, 0, 0));
    EXPECT_EQ(MOUSE_load_image_cursor(3, "a.can", work.data()), 0);
    EXPECT_EQ(shown(), Shown(1, 0, 0));
}

TEST(Mouse, BearsEveryRefusal) {
    write_animation("a.can", {{5, 5}});
    std::int32_t result = 0;
    test::inject({.group =
                      "fnMouseInit, fnMouseInterrupt, HOST_load_cursor, MOUSE_load_cursor, MOUSE_set_cursor, "
                      "MOUSE_load_image_cursor, MOUSE_show_image_cursor, MOUSE_show, MOUSE_set_position",
                  .use =
                      [&] {
                          fnMouseInit(nullptr, nullptr, 0, 0, nullptr);
                          fnMouseInterrupt(WM_MOUSEMOVE, 0, 50 | 60 << 16);
                          result = MOUSE_load_image_cursor(0, "a.can", nullptr);
                          MOUSE_show(0), MOUSE_show(1);
                          MOUSE_load_cursor(1, HOST_load_cursor(HOST_CURSOR_HAND));
                          MOUSE_set_cursor(1), MOUSE_set_cursor(0);
                          MOUSE_set_position(7, 8);
                      },
                  .outcome =
                      [&] {
                          fnCheckMessage();  // takes what moving the pointer has posted
                          return std::to_string(result) + (std::get<0>(shown()) == 1 ? " drawn" : " blank");
                      },
                  .right = "0 drawn",
                  .memory = {"-2 blank| ERROR : memory alloc error:CAN_read_file",
                             "-2 blank| Memory alloc error:CAN_read_file"},
                  .files = {"-2 blank| CAN file a.can open error:CAN_read_file",
                            "-2 blank| ERROR : memory alloc error:CAN_read_file", "0 blank",
                            "0 blank| Compress image format error"}});
}

}  // namespace
