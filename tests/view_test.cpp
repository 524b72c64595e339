// The window view: what it presents, the palette in both its forms, and the order of its platform calls.
#include "inkstone/view.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <numeric>
#include <vector>

#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "support/calls.h"
#include "support/guarded.h"
#include "support/injection.h"
#include "support/new_process.h"

namespace {

using Palette = std::array<std::uint8_t, 768>;

Palette hardware() {
    Palette palette;
    HOST_read_palette(palette.data());
    return palette;
}
Palette view_palette() {
    Palette palette;
    WViewGetPalette(palette.data());
    return palette;
}
std::vector<std::uint8_t> shown(HWND window, std::size_t size) {
    std::vector<std::uint8_t> pixels(size);
    EXPECT_EQ(HOST_read_indices(window, pixels.data()), 0);
    return pixels;
}

TEST_IN_NEW_PROCESS(View, MakesItsPlatformCallsInOrder) {
    std::vector<std::uint8_t> buffer(64 * 48);
    WViewInit(nullptr, 3, 4, 64, 48, buffer.data());
    test::record_calls();
    WViewEnable();
    EXPECT_EQ(test::take_calls(), (test::Calls{"create_palette 256", "get_context 0", "select_palette 1",
                                               "realize_palette", "update_colors", "release_context 0"}));
    test::record_calls();
    WViewBuffer2Screen();
    WViewRedrawScreen();
    const test::Calls whole{"get_context 0", "select_palette 1", "realize_palette",
                            "copy_bitmap 0 3 4 64 48 64", "release_context 0"};
    test::Calls twice = whole;
    twice.insert(twice.end(), whole.begin(), whole.end());
    EXPECT_EQ(test::take_calls(), twice);
    test::record_calls();
    WViewMoveBuffer2Screen(5, 6, 7, 8);
    WViewMoveBuffer2Screen(5, 6, 0, 8);
    WViewMoveBuffer2Screen(5, 6, 7, -1);
    EXPECT_EQ(test::take_calls(), (test::Calls{"get_context 0", "select_palette 1", "realize_palette",
                                               "copy_bitmap 0 8 10 7 8 8", "release_context 0"}));
    test::record_calls();
    Palette palette{};
    WViewSetPalette(palette.data());
    WViewSet1Palette(5, 1, 2, 3);
    WViewSetPartPalette(16, 16, palette.data());
    WViewSetPartPalette(16, 0, palette.data());
    EXPECT_EQ(test::take_calls(),
              (test::Calls{"animate_palette 1 0 256", "animate_palette 1 5 1", "animate_palette 1 16 16"}));
    test::record_calls();
    ExecQuitProc();  // what it pushed, before what others may have
    WViewDisable();  // nothing is left to release
    test::Calls end = test::take_calls();
    std::erase_if(end, [](const std::string &call) { return call.starts_with("kill_timer"); });
    EXPECT_EQ(end, (test::Calls{"get_context 0", "select_palette 0", "realize_palette", "update_colors",
                                "release_context 0", "delete_palette 1"}));
}

TEST(View, ShowsTheBufferAndItsRectanglesThroughThePalette) {
    const HWND window = HOST_open_window("t", 20, 12, nullptr);
    std::vector<std::uint8_t> buffer(16 * 8);
    std::iota(buffer.begin(), buffer.end(), std::uint8_t{0});
    const Palette before = hardware();
    WViewInit(window, 2, 3, 16, 8, buffer.data());
    WViewEnable();
    EXPECT_EQ(hardware(), view_palette());
    WViewBuffer2Screen();
    std::vector<std::uint8_t> expected(20 * 12);
    for (std::size_t i = 0; i < buffer.size(); ++i) expected[(i / 16 + 3) * 20 + i % 16 + 2] = buffer[i];
    EXPECT_EQ(shown(window, 240), expected);

    // Rectangles of every width up to the buffer's, and beyond its edges.
    for (const auto &[x, y, w, h] : std::vector<std::array<std::int16_t, 4>>{{1, 1, 5, 2},
                                                                             {0, 0, 8, 1},
                                                                             {15, 7, 1, 1},
                                                                             {-3, -3, 5, 5},
                                                                             {12, 6, 32767, 32767},
                                                                             {-9, 0, 9, 9}}) {
        for (std::uint8_t &pixel : buffer) pixel = static_cast<std::uint8_t>(pixel * 5 + 1);
        for (int row = std::max<int>(y, 0); row < std::min(y + h, 8); ++row)
            for (int column = std::max<int>(x, 0); column < std::min(x + w, 16); ++column)
                expected[static_cast<std::size_t>((row + 3) * 20 + column + 2)] =
                    buffer[static_cast<std::size_t>(row * 16 + column)];
        WViewMoveBuffer2Screen(x, y, w, h);
        EXPECT_EQ(shown(window, 240), expected) << x << ' ' << y << ' ' << w << ' ' << h;
    }

    WViewSet1Palette(expected[0], 1, 2, 3);
    std::vector<std::uint8_t> picture(240 * 3);
    EXPECT_EQ(HOST_read_picture(window, picture.data()), 0);  // changed at once, without a present
    EXPECT_EQ((std::vector<std::uint8_t>(picture.begin(), picture.begin() + 3)),
              (std::vector<std::uint8_t>{1, 2, 3}));
    WViewDisable();
    EXPECT_EQ(hardware(), before);
    // Disabled, nothing shows or changes any more.
    WViewBuffer2Screen();
    WViewSet1Palette(1, 9, 9, 9);
    EXPECT_EQ(hardware(), before);
    EXPECT_EQ(HOST_read_indices(nullptr, picture.data()), -2);
}

TEST(View, KeepsThePaletteInBothForms) {
    WViewInit(nullptr, 0, 0, 64, 48, nullptr);
    WViewEnable();
    const Palette standard = view_palette();
    std::ifstream colours(TEST_DATA "/default_palette.txt");
    for (std::size_t i = 0; i < 256; ++i) {
        int rgb = -1;
        colours >> std::hex >> rgb;
        EXPECT_EQ(standard[3 * i] << 16 | standard[3 * i + 1] << 8 | standard[3 * i + 2], rgb) << i;
    }

    Palette six_bit, read;
    for (std::size_t i = 0; i < six_bit.size(); ++i) six_bit[i] = static_cast<std::uint8_t>(i % 64);
    SCR_set_palette(six_bit.data());
    SCR_get_palette(read.data());
    EXPECT_EQ(read, six_bit);
    EXPECT_EQ(hardware()[63], 252);
    six_bit[0] = 64;  // loses its top bit
    SCR_set_palette(six_bit.data());
    EXPECT_EQ(view_palette()[0], 0);

    Palette expected = view_palette();
    test::Guarded part(48, 77);
    WViewSetPartPalette(16, 16, part);
    std::fill_n(expected.begin() + 48, 48, std::uint8_t{77});
    EXPECT_EQ(view_palette(), expected);
    EXPECT_EQ(hardware(), expected);
    // Entries that do not exist are passed over.
    WViewSetPartPalette(-8, 16, part);
    std::fill_n(expected.begin(), 24, std::uint8_t{77});
    WViewSetPartPalette(250, 16, part);
    std::fill_n(expected.begin() + 750, 18, std::uint8_t{77});
    WViewSetPartPalette(32767, 32767, part);
    WViewSetPartPalette(0, -5, part);
    WViewSet1Palette(256, 1, 1, 1);
    WViewSet1Palette(-1, 1, 1, 1);
    EXPECT_EQ(view_palette(), expected);
    EXPECT_EQ(hardware(), expected);
}

TEST(View, TakesNewPlacesWhileEnabled) {
    const HWND window = HOST_open_window("t", 8, 4, nullptr);
    const Palette before = hardware();
    // On the heap, where the sanitizer sees a read past its end.
    std::vector<std::uint8_t> wide(8 * 4, 1), small(4 * 3);
    std::iota(small.begin(), small.end(), std::uint8_t{10});
    WViewInit(window, 0, 0, 8, 4, wide.data());
    WViewEnable();
    WViewBuffer2Screen();
    // The new size, with rows as long as they were described: two of them lie in the buffer.
    WViewInit(window, 1, 0, 4, 3, small.data());
    WViewBuffer2Screen();
    const std::vector<std::uint8_t> skewed{1, 10, 11, 12, 13, 1, 1, 1, 1, 18, 19, 20, 21, 1, 1, 1,
                                           1, 1,  1,  1,  1,  1, 1, 1, 1, 1,  1,  1,  1,  1, 1, 1};
    EXPECT_EQ(shown(window, 32), skewed);
    // Enabled again it has rows of the new length, the default palette, and still the window's former one.
    WViewSet1Palette(0, 9, 9, 9);
    WViewEnable();
    EXPECT_EQ(hardware()[0], 0);
    WViewInit(window, 0, 0, 8, 4, wide.data());
    WViewBuffer2Screen();
    EXPECT_EQ(shown(window, 32)[1], 1);
    std::vector<std::uint8_t> other(4 * 3, 5);
    SCR_memory_to_screen(other.data());
    EXPECT_EQ(shown(window, 32)[3], 5);
    WViewSetNowBuffer(small.data());
    EXPECT_EQ(shown(window, 32)[3], 5);
    WViewRedrawScreen();
    EXPECT_EQ(shown(window, 32)[3], 13);
    WViewGetPalette(nullptr);
    SCR_get_palette(nullptr);
    WViewDisable();
    EXPECT_EQ(hardware(), before);
    HOST_close_window(window);
}

TEST(View, EndsTheProcessWithoutRoomForItsQuitProcedure) {
    const auto full = [] {
        while (PushQuitProc([] {}) == 0) continue;
        WViewEnable();
    };
    EXPECT_EXIT(full(), testing::ExitedWithCode(1), "PUSHQUIT ERROR !!!");
}

// What is refused is missing: the picture or a part of it, the view's colours, or the window's own ones at the end. The
// next use comes out right all the same.
TEST(View, BearsEveryRefusal) {
    std::vector<std::uint8_t> buffer(64 * 48, 7), blank(buffer.size());
    const HWND window = HOST_open_window("w", 64, 48, nullptr);
    std::uint8_t before[768], during[768], after[768], copied[768], bright[768];
    std::fill_n(bright, 768, std::uint8_t{200});
    HOST_read_palette(before);
    WViewInit(window, 0, 0, 64, 48, blank.data()), WViewEnable(),
        WViewDisable();  // the list of palettes keeps its room
    const auto every = [](const std::uint8_t *palette, int value) {
        return std::all_of(palette, palette + 768, [value](int each) { return each == value; });
    };
    test::inject({.group = "WViewInit, WViewEnable, WViewSetPalette, WViewSetPartPalette, WViewSet1Palette, "
                           "WViewGetPalette, "
                           "WViewRedrawScreen, WViewBuffer2Screen, WViewMoveBuffer2Screen, "
                           "WViewSetNowBuffer, WViewDisable, "
                           "SCR_memory_to_screen, SCR_set_palette, SCR_get_palette",
                  .use =
                      [&] {
                          WViewInit(window, 0, 0, 64, 48, blank.data());
                          WViewEnable();
                          WViewRedrawScreen();
                          WViewSetNowBuffer(buffer.data());
                          WViewMoveBuffer2Screen(0, 0, 9, 9);
                          SCR_memory_to_screen(buffer.data());
                          WViewSetPartPalette(0, 256, before);
                          WViewSetPalette(bright);
                          HOST_read_palette(during);
                          WViewGetPalette(copied);
                          WViewDisable();
                      },
                  .outcome =
                      [&] {
                          HOST_read_palette(after);
                          const auto pixels = shown(window, 64 * 48);
                          return std::string(pixels == buffer  ? "shown"
                                             : pixels == blank ? "blank"
                                                               : "part") +
                                 (every(during, 200)                         ? " bright"
                                  : std::equal(before, before + 768, during) ? " old"
                                                                             : " other") +
                                 (every(copied, 200) ? "" : " forgotten") +
                                 (std::equal(before, before + 768, after) ? "" : " kept");
                      },
                  .right = "shown bright",
                  .memory = {"ends: SystemError: MEMORY ERROR !!!"},
                  .machine = {"blank bright kept", "blank old", "part bright", "part bright kept",
                              "shown bright kept", "shown old"},
                  .in_process_of_its_own = true});
    HOST_close_window(window);
}

}  // namespace
