// What nothing can be refused: the calls that a game makes many times in a frame ask for no memory, no file and
// nothing of the machine. Those that need memory when two pictures overlap are refused it.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "support/drawing.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

using test::Bytes;

// What the calls give back, and what they draw, runs into this number.
std::uint32_t heard = 0;
void hear(std::int64_t what) {
    heard = (heard ^ static_cast<std::uint32_t>(what)) * 16777619U;
}

struct Call {
    std::string name;
    std::function<void()> make;
};

template <class Result, class... Parameters, class... Arguments>
void make(Result (*function)(Parameters...), Arguments... arguments) {
    if constexpr (std::is_void_v<Result>)
        function(arguments...);
    else if constexpr (std::is_pointer_v<Result>)
        hear(function(arguments...) != nullptr);
    else
        hear(function(arguments...));
}
#define CALL(function, ...)                                           \
    {                                                                 \
#function, [&] { make(function __VA_OPT__(, ) __VA_ARGS__); } \
    }

std::uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT], work[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT],
    image[4 + 16 * 16], other[4 + 32 * 32], bytes[4096], palette[768];
std::int32_t one = 0, two = 0, three = 0, four = 0;
std::uint32_t size = 0, packed = 0;
char text[256], copied[256];

void prepare() {
    for (std::size_t i = 0; i < std::size(screen); ++i) screen[i] = static_cast<std::uint8_t>(i * i >> 9);
    for (std::size_t i = 0; i < std::size(palette); ++i) palette[i] = static_cast<std::uint8_t>(i % 64);
    const Bytes block = test::image_block(16, 16, Bytes(screen, screen + 256));
    std::copy(block.begin(), block.end(), image);
    const Bytes target = test::image_block(32, 32, Bytes(1024, 3));
    std::copy(target.begin(), target.end(), other);
    std::fill(std::begin(bytes), std::end(bytes), std::uint8_t{1});
    std::fill(std::begin(work), std::end(work), std::uint8_t{0});
    one = two = three = four = 0;
    size = 1000, packed = 0;
    std::strcpy(text, "Some text, 12 = 3.ext");
    std::memset(copied, 0, sizeof copied);
    heard = 1;
}

// Every call of a family, with the check value of all that they leave.
void ask_for_nothing(const std::vector<Call> &calls) {
    std::string names;
    for (const Call &call : calls) names += (names.empty() ? "" : ", ") + call.name;
    const auto use = [&] {
        for (const Call &call : calls) call.make();
        for (const auto &made : {std::span<std::uint8_t>(screen), std::span<std::uint8_t>(work),
                                 std::span<std::uint8_t>(other), std::span<std::uint8_t>(bytes)})
            for (const std::uint8_t byte : made) hear(byte);
        for (const std::int64_t number : {one, two, three, four}) hear(number);
        for (const char letter : copied) hear(letter);
    };
    prepare();
    const std::uint32_t before = heard;
    use();
    EXPECT_NE(heard, before);
    test::inject({.group = names.c_str(),
                  .use = use,
                  .outcome = [] { return std::to_string(heard); },
                  .right = std::to_string(heard),
                  .prepare = prepare,
                  .asks_for_nothing = true});
}

TEST(Requests, DrawingAsksForNothing) {
    std::vector<Call> blits;
    for (const test::Operation &operation : test::kOperations)
        blits.push_back({operation.name, [&operation] {
                             const bool on_screen = operation.target == test::kScreen;
                             operation.call({5, 6, 16, 16, 2, 4, on_screen ? 640 : 32, on_screen ? 480 : 32,
                                             image, image + 4, on_screen ? screen : other + 4, work});
                         }});
    ask_for_nothing(blits);
    ask_for_nothing({CALL(BUF_put_pixel, 3, 4, 5, screen),
                     CALL(BUF_get_pixel, 3, 4, screen),
                     CALL(MEM_put_pixel, 3, 4, 5, 32, 32, other + 4),
                     CALL(MEM_get_pixel, 3, 4, 32, 32, other + 4),
                     CALL(MEM_draw_point_cross, 9, 9, 7, 32, 32, other + 4),
                     CALL(MEM_operate_image_size, &one, &two, &three, &four, 32, 32, other + 4),
                     CALL(IMG_get_image_size, image, &one, &two),
                     CALL(BUF_get_image, 1, 2, 9, 9, bytes, screen),
                     CALL(MEM_get_image, 1, 2, 9, 9, bytes, other + 4, 32, 32),
                     CALL(BUF_get_bitmap, 1, 2, 9, 9, bytes, screen),
                     CALL(BUF_line, 1, 2, 300, 90, 4, screen),
                     CALL(MEM_line, 1, 2, 30, 9, 4, 32, 32, other + 4),
                     CALL(BUF_dash_line, 1, 9, 300, 99, 4, 3, screen),
                     CALL(MEM_dash_line, 1, 9, 30, 19, 4, 3, 32, 32, other + 4),
                     CALL(BUF_circle, 200, 200, 90, 80, 0, 0, 9, screen),
                     CALL(MEM_circle, 16, 16, 9, 8, 0, 90, 9, 32, 32, other + 4),
                     CALL(BUF_fill, 200, 200, 1, screen),
                     CALL(MEM_fill, 0, 0, 1, 32, 32, other + 4),
                     CALL(BUF_outline_pest_image, 50, 50, image, 3, 2, screen, work),
                     CALL(BUF_outline_pest_bitmap, 90, 50, 16, 16, image + 4, 3, 2, screen, work),
                     CALL(BUF_shadow_pest_bitmap, 50, 90, 16, 16, image + 4, screen, work),
                     CALL(BUF_scale_put_image, 9, 9, 50, 40, image, screen),
                     CALL(BUF_scale_pest_image, 99, 9, 50, 40, image, screen),
                     CALL(BUF_scale_put_bitmap, 9, 99, 50, 40, 16, 16, image + 4, screen),
                     CALL(BUF_scale_pest_bitmap, 99, 99, 50, 40, 16, 16, image + 4, screen),
                     CALL(MEM_zoom_control, 100, 80, 320, 240),
                     CALL(MEM_scale_bitmap, work, screen),
                     CALL(set_ascii16_color, 1, 7),
                     CALL(print_ascii16, 100, 300, "~C1~Z1~O1~T1A text~Z0~O0~T0~C0", 1, screen)});
}

TEST_IN_NEW_PROCESS(Requests, ReckoningAsksForNothing) {
    ask_for_nothing(
        {CALL(PAL_find_color, 0, 256, 9, 8, 7, palette), CALL(PAL_make_glass_table, 0, 256, 3, 40, palette),
         CALL(PAL_make_system_color, palette), CALL(FLIC_inport_palette, palette),
         CALL(FLIC_export_palette, bytes), CALL(PCX_inport_palette, palette), CALL(PCX_export_palette, bytes),
         CALL(fnCompressImage, image, bytes, 0U), CALL(fnGetCompressImageSize, bytes),
         CALL(fnGetCompressImageFrameSize, bytes), CALL(fnUncompressImage, bytes, other),
         CALL(LZSS_compress_data, screen, bytes, &size, &packed),
         CALL(LZSS_expand_data, bytes, work, &packed, &size), CALL(string_2_number, "12*(3+4)-5")});
    ask_for_nothing({CALL(char_upper, std::uint8_t{'a'}), CALL(char_lower, std::uint8_t{'A'}),
                     CALL(get_byte_from_buffer, &one, bytes), CALL(get_int_from_buffer, &one, bytes),
                     CALL(get_long_from_buffer, &one, bytes), CALL(get_only_filename, copied, "name.ext"),
                     CALL(change_ext, copied, "name.ext", "new"), CALL(skip_space, text, &two),
                     CALL(get_str, copied, text, &two, std::uint8_t{','}, 9), CALL(int_sin, 33),
                     CALL(int_cos, 33), CALL(GetTimerTick, 3), CALL(SetTimerTick, 3, 0U),
                     CALL(PushQuitProc, nullptr), CALL(fnCheckMessage), CALL(clear_time_delay),
                     CALL(wait_time_delay, 20U), CALL(tick_wait, 0U)});
}

TEST(Requests, TheMachineIsAskedForNothingMore) {
    const HWND window = HOST_open_window("w", 16, 8, nullptr);
    MAC_init(".", ".", 4, nullptr);
    std::FILE *const printed = std::tmpfile();
    ask_for_nothing({{"HOST_clock", [] { HOST_clock(); }},
                     CALL(HOST_advance_clock, 1000U),
                     CALL(HOST_window_size, window, &one, &two),
                     CALL(HOST_read_indices, window, bytes),
                     CALL(HOST_read_picture, window, bytes),
                     CALL(HOST_read_palette, work),
                     CALL(HOST_set_timer_resolution, 55U),
                     CALL(HOST_set_local_time, 1999, 2, 3, 4, 5, 6),
                     CALL(HOST_name),
                     CALL(HOST_list, 0, nullptr, nullptr),
                     CALL(HOST_choose, "headless"),
                     CALL(HOST_post_quit, 3),
                     CALL(HOST_wait_messages),
                     CALL(HOST_exit_code),
                     CALL(HOST_default_procedure, window, UINT{WM_USER}, WPARAM{1}, LPARAM{2}),
                     CALL(HOST_eject_disc),
                     CALL(HOST_replay_state, &three, &four),
                     CALL(get_time, copied),
                     CALL(run_random_init),
                     {"get_time_delay", [] { get_time_delay(); }},
                     CALL(ExecQuitProc),
                     CALL(PAL_fade_init, palette, nullptr),
                     CALL(PAL_step_fade_effect, 0),
                     CALL(PAL_step_fade_effect, 1),
                     CALL(PAL_fade_effect, 0),
                     CALL(MAC_set_variable, 1, 77),
                     CALL(MAC_get_variable, 1),
                     CALL(MAC_info_size),
                     CALL(MAC_head_size),
                     CALL(MAC_export_info, bytes),
                     CALL(MAC_export_filename, copied),
                     CALL(MAC_get_number),
                     CALL(MAC_get_string),
                     CALL(MAC_get_long),
                     CALL(MAC_get_char),
                     CALL(BITIO_file_print_binary, printed, 5U, 3)});
    std::fclose(printed);
    HOST_close_window(window);
}

// What there is no memory for is not kept of what is heard; nobody could be told.
TEST_IN_NEW_PROCESS(Requests, SoundIsKeptAsFarAsThereIsMemory) {
    std::int32_t frames = 0;
    std::vector<std::int16_t> kept(2 * 44100);
    test::inject({.group = "HOST_capture_sound, HOST_read_sound",
                  .use =
                      [&] {
                          HOST_capture_sound(1);
                          HOST_advance_clock(1000000);
                          frames = HOST_read_sound(kept.data(), 44100);
                          HOST_capture_sound(0);
                      },
                  .outcome = [&] { return frames >= 44000 ? "all"
                                          : frames == 0   ? "none"
                                                          : "some"; },
                  .right = "all",
                  .memory = {"none", "some"},
                  .in_process_of_its_own = true});
}

// Space is pressed while they wait.
TEST(Requests, KeysAskForNothing) {
    std::vector<Call> calls = {CALL(fnResetKeyBoard),
                               CALL(set_system_idle_function, [] { fnKeyBoardInterrupt(0x39); }),
                               CALL(set_system_tab_function, nullptr),
                               CALL(wait_any_key),
                               CALL(wait_key, 32),
                               CALL(wait_key_time, 32, 9U),
                               CALL(fnKeyBoardInterrupt, std::uint8_t{0x1E}),
                               CALL(read_system_key),
                               CALL(read_data_key),
                               CALL(fnScanKeyPress),
                               CALL(fnCheckAlphaNumberKey),
                               CALL(fnCheckFunctionKey),
                               CALL(fnCheckKeyValue, std::uint8_t{0x1E}),
                               CALL(fnResetNormalKey)};
#define KEY(name) CALL(fnCheck##name##Key)
    for (const Call &key : std::vector<Call>{
             KEY(Up),        KEY(Down),       KEY(Left),   KEY(Right),   KEY(Home),     KEY(End),
             KEY(PgUp),      KEY(PgDn),       KEY(Insert), KEY(Delete),  KEY(Enter),    KEY(Ctrl),
             KEY(LeftCtrl),  KEY(RightCtrl),  KEY(Alt),    KEY(LeftAlt), KEY(RightAlt), KEY(Shift),
             KEY(LeftShift), KEY(RightShift), KEY(Space),  KEY(Tab),     KEY(Pause),    KEY(Esc)})
        calls.push_back(key);
    ask_for_nothing(calls);
    set_system_idle_function(nullptr);
    fnMouseInit(nullptr, nullptr, 0, 0, [] { fnMouseInterrupt(WM_LBUTTONDOWN, MK_SHIFT, 0); });
    const std::uint8_t mask[] = {1, 1, 1};
    ask_for_nothing({CALL(MOUSE_reset), CALL(MOUSE_wait_any_key),
                     CALL(MOUSE_wait_key, std::uint8_t{MOUSE_LEFT_DOWN}), CALL(MOUSE_get_key),
                     CALL(MOUSE_get_mask_key, mask), CALL(MOUSE_get_position, &one, &two),
                     CALL(MOUSE_check_shift), CALL(MOUSE_check_control), CALL(MOUSE_set_spot, 1, 2),
                     CALL(fnMouseInitCursor, 9, nullptr)});
}

// A picture drawn on itself is copied first where its rows lie in the way of each other.
TEST(Requests, OverlappingPicturesAreDrawnOrLeft) {
    Bytes right, left(64 * 64);
    const auto draw = [] { BUF_scale_put_bitmap(0, 0, 32, 32, 16, 16, screen + 5, screen); };
    const auto result = [&] {
        const Bytes drawn(screen, screen + std::size(screen));
        return drawn == left ? "untouched" : drawn == right ? "drawn" : "wrong";
    };
    prepare();
    left.assign(screen, screen + std::size(screen));
    const Bytes source(screen + 5, screen + 5 + 256);
    BUF_scale_put_bitmap(0, 0, 32, 32, 16, 16, source.data(), screen);
    right.assign(screen, screen + std::size(screen));
    test::inject({.group = "BUF_scale_put_bitmap (from the screen itself)",
                  .use = draw,
                  .outcome = result,
                  .right = "drawn",
                  .memory = {"untouched"},
                  .prepare = prepare});
    prepare();
    MEM_put_bitmap(3, 0, 16, 16, source.data(), screen, 640, 480);
    right.assign(screen, screen + std::size(screen));
    test::inject({.group = "MEM_put_bitmap (from the buffer itself)",
                  .use = [] { MEM_put_bitmap(3, 0, 16, 16, screen + 5, screen, 640, 480); },
                  .outcome = result,
                  .right = "drawn",
                  .memory = {"untouched"},
                  .prepare = prepare});
}

}  // namespace
