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
    std::printf("open %d tracks %d\n", CDROM_open(), CDROM_total());
    HOST_capture_sound(1);
    std::printf("play %d\n", CDROM_play(0));
    Sleep(300);
    std::vector<std::int16_t> heard(2 * 4096);
    const std::int32_t frames = HOST_read_sound(heard.data(), 4096);
    std::int32_t first = 0;
    while (first < frames && heard[2 * static_cast<std::size_t>(first)] == 0) ++first;
    for (std::int32_t i = first; i < first + 4 && i < frames; ++i)
        std::printf("%d ", heard[2 * static_cast<std::size_t>(i)]);
    std::printf("\nstatus %d stop %d close %d\n", CDROM_status(), CDROM_stop(), CDROM_close());
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

// Paints the window of another program black, as one that covers it would, and then lets it come into sight
// again.
void cover(const char *title, bool uncover) {
    const HWND window = FindWindowA(nullptr, title);
    RECT client{};
    GetClientRect(window, &client);
    const HDC context = GetDC(window);
    FillRect(context, &client, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    ReleaseDC(window, context);
    if (uncover) InvalidateRect(window, nullptr, TRUE);
}

}  // namespace

int main(int argc, char **argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    std::printf("host %s\n", HOST_name());
    if (what == "calls") print_calls();
    if (what == "ticks") count_ticks();
    if (what == "disc" && argc > 2) play_disc(argv[2]);
    if (what == "pump") time_pump();
    if (what == "cover" && argc > 2) cover(argv[2], false);
    if (what == "uncover" && argc > 2) cover(argv[2], true);
    if (what == "big5") std::printf("big5 %d\n", check_big5());
    return 0;
}
