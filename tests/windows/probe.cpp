// What the test of the Windows machine asks of it from inside, one word of the command line each.
#include <windows.h>

#include <mmsystem.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "inkstone/inkstone.h"

namespace {

// Prints each operation of the machine. Handles differ from run to run: the window is W, the view's palette,
// which is selected first, P, the one of before S, and a device context C.
std::string window_number, palette_number;

std::int32_t print_call(const char *call) {
    const std::string line(call);
    std::size_t start = line.find(' ');
    if (start == line.npos) return std::puts(call), 0;
    const std::size_t end = std::min(line.find(' ', ++start), line.size());
    const std::string operation = line.substr(0, start - 1), first = line.substr(start, end - start);
    if (operation == "select_palette" && palette_number.empty()) palette_number = first;
    const std::string name = operation == "copy_bitmap"      ? "C"
                             : first == window_number        ? "W"
                             : first == palette_number       ? "P"
                             : operation == "select_palette" ? "S"
                                                             : first;
    std::printf("%s %s%s\n", operation.c_str(), name.c_str(), line.c_str() + end);
    return 0;
}

LRESULT CALLBACK ignore(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcA(window, message, wparam, lparam);
}

HWND open_window() {
    WNDCLASSA made{};
    made.lpfnWndProc = ignore;
    made.hInstance = GetModuleHandleA(nullptr);
    made.lpszClassName = "Probe";
    RegisterClassA(&made);
    return CreateWindowA("Probe", "Probe", WS_POPUP | WS_VISIBLE, 0, 0, 320, 200, nullptr, nullptr,
                         made.hInstance, nullptr);
}

// The operations behind the calls that stand between a game and its screen, its pointer and its timers.
void print_calls() {
    static std::uint8_t buffer[64 * 48], palette[768];
    const HWND window = open_window();
    window_number = std::to_string(reinterpret_cast<std::uintptr_t>(window));
    WViewInit(window, 3, 4, 64, 48, buffer);
    HOST_observe(print_call);
    WViewEnable();
    WViewBuffer2Screen();
    WViewMoveBuffer2Screen(5, 6, 7, 8);
    WViewSetPalette(palette);
    WViewSet1Palette(5, 1, 2, 3);
    WViewSetPartPalette(16, 16, palette);
    std::puts("timers");
    SetupTimerProc(window);
    std::puts("quit");
    ExecQuitProc();
    HOST_observe(nullptr);
}

// The system's timers drive the counters of a window and of none, in the pump alone.
void count_ticks() {
    HOST_set_timer_resolution(100);
    for (const HWND window : {open_window(), HWND{nullptr}}) {
        SetupTimerProc(window);
        Sleep(350);
        const bool slept = GetTimerTick(3) == 0;
        fnCheckMessage();
        const bool one = GetTimerTick(3) == 1;  // what passed while nobody pumped counts once
        const std::uint32_t start = timeGetTime();
        tick_wait(3);
        const std::uint32_t passed = timeGetTime() - start;
        ClearTimerProc(window);
        Sleep(150);
        const std::uint32_t stopped = GetTimerTick(3);
        fnCheckMessage();
        std::printf("ticks %d %d %d %d\n", slept, one, passed >= 200 && passed < 1500,
                    GetTimerTick(3) == stopped);
    }
}

// A disc image has the drive; without one the system's is asked, which is not there.
void play_disc(const char *sheet) {
    std::printf("no disc %d\n", CDROM_open());
    std::printf("inserted %d\n", HOST_insert_disc(sheet));
    std::printf("open %d\n", CDROM_open());
    std::printf("tracks %d\n", CDROM_total());
    HOST_capture_sound(1);
    std::printf("play %d\n", CDROM_play(0));
    // The drive takes its time to read, and the device to begin.
    std::vector<std::int16_t> heard(2 * 4096);
    std::int32_t frames = 0, first = 0;
    for (int i = 0; i < 200 && first == frames; ++i) {
        Sleep(50);
        frames = HOST_read_sound(heard.data(), 4096);
        first = 0;
        while (first < frames && heard[2 * static_cast<std::size_t>(first)] == 0) ++first;
    }
    for (std::int32_t i = first; i < first + 4 && i < frames; ++i)
        std::printf("%d ", heard[2 * static_cast<std::size_t>(i)]);
    std::printf("\nstatus %d\n", CDROM_status());
    std::printf("stop %d\n", CDROM_stop());
    std::printf("close %d\n", CDROM_close());
}

void time_pump() {
    open_window();
    constexpr int kPumps = 20000;
    fnCheckMessage();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kPumps; ++i) fnCheckMessage();
    const std::chrono::duration<double, std::nano> passed = std::chrono::steady_clock::now() - start;
    std::printf("%.0f ns a pump\n", passed.count() / kPumps);
}

// Whether the window shows what the library says that it does.
bool shows_picture(HWND window) {
    constexpr int kWidth = 320, kHeight = 200;
    static std::uint8_t rgb[kWidth * kHeight * 3];
    HOST_read_picture(window, rgb);
    BITMAPINFO description{};
    description.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -kHeight, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void *pixels = nullptr;
    const HDC from = GetDC(window), to = CreateCompatibleDC(from);
    const HBITMAP bitmap = CreateDIBSection(to, &description, DIB_RGB_COLORS, &pixels, nullptr, 0);
    SelectObject(to, bitmap);
    BitBlt(to, 0, 0, kWidth, kHeight, from, 0, 0, SRCCOPY);
    GdiFlush();
    const auto *bgr = static_cast<const std::uint8_t *>(pixels);
    bool same = true;
    for (int i = 0; i < kWidth * kHeight * 3; ++i) same = same && bgr[i / 3 * 3 + 2 - i % 3] == rgb[i];
    ReleaseDC(window, from);
    DeleteDC(to);
    DeleteObject(bitmap);
    return same;
}

// What was presented comes back where something else was drawn over it, a part that was shown by itself too, and without
// any help of the window's.
void lose_picture() {
    static std::uint8_t buffer[320 * 200], other[320 * 200];
    for (int i = 0; i < 320 * 200; ++i) buffer[i] = static_cast<std::uint8_t>(i * 7 % 251), other[i] = 77;
    const HWND window = open_window();
    WViewInit(window, 0, 0, 320, 200, buffer);
    WViewEnable();
    WViewBuffer2Screen();
    WViewSetNowBuffer(other);
    WViewMoveBuffer2Screen(33, 44, 55, 66);
    std::printf("shown %d\n", shows_picture(window));
    const RECT lost{10, 20, 200, 150};
    const HDC context = GetDC(window);
    FillRect(context, &lost, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    ReleaseDC(window, context);
    std::printf("lost %d\n", shows_picture(window));
    InvalidateRect(window, &lost, TRUE);
    fnCheckMessage();
    std::printf("back %d\n", shows_picture(window));
    WViewSet1Palette(77, 200, 100, 50);
    std::printf("changed %d\n", shows_picture(window));
    DestroyWindow(window);
    fnCheckMessage();
    WViewSet1Palette(77, 1, 2, 3);  // nothing is left to show it
    WViewBuffer2Screen();
    ExecQuitProc();
    std::puts("gone");
}

}  // namespace

int main(int argc, char **argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    std::printf("host %s\n", HOST_name());
    if (what == "calls") print_calls();
    if (what == "ticks") count_ticks();
    if (what == "disc" && argc > 2) play_disc(argv[2]);
    if (what == "pump") time_pump();
    if (what == "picture") lose_picture();
    if (what == "big5") std::printf("big5 %d\n", check_big5());
    return 0;
}
