// A window for the desktop test: shows a card of all colours, prints every message that matters to a game as
// a line, and on closing says whether the palette of before came back. The picture it shows is saved as
// card.ppm.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "inkstone/inkstone.h"

namespace {

bool closed = false;

LRESULT window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const int x = static_cast<int>(lparam & 0xFFFF), y = static_cast<int>(lparam >> 16 & 0xFFFF);
    const int scan = static_cast<int>(lparam >> 16 & 0x1FF);
    switch (message) {
        case WM_KEYDOWN: std::printf("down %03x\n", scan); break;
        case WM_KEYUP: std::printf("up %03x\n", scan); break;
        case WM_MOUSEMOVE: std::printf("move %d %d\n", x, y); break;
        case WM_SETCURSOR: break;
        case WM_CLOSE: std::puts("close"); break;
        case WM_DESTROY: closed = true; break;
        default:
            if (message >= WM_LBUTTONDOWN && message <= WM_MBUTTONDBLCLK)
                std::printf("button %03x %zu %d %d\n", message, static_cast<std::size_t>(wparam), x, y);
    }
    std::fflush(stdout);
    return HOST_default_procedure(window, message, wparam, lparam);
}

void save_picture(HWND window) {
    std::vector<std::uint8_t> rgb(640 * 480 * 3);
    HOST_read_picture(window, rgb.data());
    std::FILE *file = std::fopen("card.ppm", "wb");
    std::fputs("P6\n640 480\n255\n", file);
    std::fwrite(rgb.data(), 1, rgb.size(), file);
    std::fclose(file);
}

// Plays a disc on which every frame says where it lies, in real time and read ahead on its own thread: what is
// heard begins with the first frame of the second track and goes on without a gap.
void play_disc() {
    constexpr int kFramesPerSector = 588, kSectors = 200, kFirst = 40 * kFramesPerSector;
    std::FILE *image = std::fopen("disc.bin", "wb");
    for (int frame = 0; frame < kSectors * kFramesPerSector; ++frame) {
        const int number = frame + 1;
        const std::uint8_t bytes[] = {
            static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
            static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 24)};
        std::fwrite(bytes, 1, sizeof bytes, image);
    }
    std::fclose(image);
    std::FILE *sheet = std::fopen("disc.cue", "w");
    std::fputs("FILE disc.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:00:40\n",
               sheet);
    std::fclose(sheet);
    HOST_insert_disc("disc.cue");
    CDROM_open();
    CDROM_total();
    HOST_capture_sound(1);
    CDROM_play(0);
    HOST_advance_clock(200000);
    CDROM_play(1);  // another place than the one that is read ahead
    HOST_advance_clock(1500000);
    CDROM_stop();
    std::vector<std::int16_t> heard(2 * 44100 * 2);
    heard.resize(2 * static_cast<std::size_t>(HOST_read_sound(heard.data(), 44100 * 2)));
    std::vector<std::uint32_t> numbers;
    for (std::size_t i = 0; i < heard.size(); i += 2) {
        const std::uint32_t number = static_cast<std::uint16_t>(heard[i]) |
                                     std::uint32_t{static_cast<std::uint16_t>(heard[i + 1])} << 16;
        if (number != 0) numbers.push_back(number);
    }
    const auto second = std::find(numbers.begin(), numbers.end(), kFirst + 1U);
    const auto gap = std::adjacent_find(second, numbers.end(),
                                        [](std::uint32_t a, std::uint32_t b) { return b != a + 1; });
    std::printf("disc %s\n", numbers.end() - second > 44100 && gap == numbers.end() ? "whole" : "torn");
    ExecQuitProc();
}

}  // namespace

int main(int argc, char **argv) {
    if (argc > 1 && std::strcmp(argv[1], "fatal") == 0) {
        PushQuitProc([] { std::puts("quit procedure"); });
        fnErrorExit(HOST_open_window("Inkstone probe", 640, 480, nullptr), "The end of the probe");
    }
    if (argc > 1 && std::strcmp(argv[1], "disc") == 0) {
        play_disc();
        return 0;
    }
    const bool loads = argc > 1 && std::strcmp(argv[1], "loading") == 0;
    std::uint8_t before[768], after[768];
    const HWND window = HOST_open_window("Inkstone probe", 640, 480, window_procedure);
    HOST_read_palette(before);
    std::vector<std::uint8_t> buffer(640 * 480);
    for (int i = 0; i < 256; ++i) {
        const int x = i % 16 * 40, y = i / 16 * 30;
        BUF_bar(x, y, x + 38, y + 28, i, buffer.data());
    }
    WViewInit(window, 0, 0, 640, 480, buffer.data());
    WViewEnable();
    WViewBuffer2Screen();
    if (loads) {
        // A palette and the picture for it, then seconds of work without a pump.
        SCR_get_palette(after);
        std::reverse(after, after + sizeof after);
        SCR_set_palette(after);
        BUF_bar(200, 200, 440, 280, 7, buffer.data());
        WViewBuffer2Screen();
    }
    save_picture(window);
    std::printf("host %s\n", HOST_name());
    std::fflush(stdout);
    if (loads) return std::getchar();
    while (!closed && HOST_wait_messages() != 0) {
    }
    ExecQuitProc();
    HOST_read_palette(after);
    std::printf("palette %s\n", std::memcmp(before, after, sizeof before) == 0 ? "restored" : "lost");
    return 0;
}
