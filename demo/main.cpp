// The demo: a program of a game's shape, with a title to type under, a desk whose things answer to the
// pointer, and a page of text. On a machine without a display a scripted player plays it and saves pictures.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>

#include "desk_page.h"
#include "game.h"
#include "player.h"
#include "poem_page.h"
#include "title_page.h"

namespace {

using namespace demo;

constexpr std::int32_t kFrameMilliseconds = 16;
constexpr std::int32_t kFrameList = 0;  // the polling list that runs once a frame

bool page_turned = false;

// A key that is held is reported in every frame; the page hears of it once.
std::uint8_t read_new_key() {
    static std::uint8_t held = 0;
    const std::uint8_t key = read_data_key();
    const bool again = key == held;
    held = key;
    return again ? 0 : key;
}

Events read_events() {
    Events events;
    events.key = read_new_key();
    events.mouse = MOUSE_get_key();
    MOUSE_reset();
    MOUSE_get_position(&events.x, &events.y);
    return events;
}

void open_page(Game &game, Page &page) {
    page.draw(game);
    MOUSE_show(!page.has_image_cursor());
    WViewBuffer2Screen();
    game.fade_in(page.palette(game));
}

// The frame loop. player is null when a person plays.
void play(Game &game, Player *player) {
    constexpr std::uint8_t kEscCode = 155;
    TitlePage title;
    DeskPage desk;
    PoemPage poem;
    Page *const pages[] = {&title, &desk, &poem};
    std::size_t page = 0;
    open_page(game, *pages[page]);
    while (game.running()) {
        clear_time_delay();
        PollingExecute(kFrameList);
        if (player != nullptr) player->play();
        const Events events = read_events();
        if (events.key == kEscCode) break;
        if (page_turned) {
            page_turned = false;
            game.fade_out();
            page = (page + 1) % std::size(pages);
            open_page(game, *pages[page]);
        }
        pages[page]->frame(game, events);
        if (pages[page]->has_image_cursor()) {
            MOUSE_show_image_cursor(game.screen());
            WViewBuffer2Screen();
        }
        wait_time_delay(kFrameMilliseconds);
    }
    game.fade_out();
}

}  // namespace

int main(int argc, char **argv) try {
    CLI::App app("The demo of Inkstone.", "demo");
    std::string host, pictures = "demo-pictures";
    std::string content = (std::filesystem::path(argv[0]).parent_path() / "content").string();
    bool scripted = false;
    app.add_option("--host", host, "the machine to run on: win32, sdl or headless (default: whichever fits)");
    app.add_flag("--scripted", scripted, "let the scripted player play, as it does without a display");
    app.add_option("--pictures", pictures, "where the scripted player saves its pictures")
        ->capture_default_str();
    app.add_option(
        "--content", content,
        "the directory of the demo's fonts, sounds, cursor and disc (default: beside the program)");
    CLI11_PARSE(app, argc, argv);

    if (!host.empty() && HOST_choose(host.c_str()) != 0) {
        std::fprintf(stderr, "demo: the machine '%s' cannot be had here\n", host.c_str());
        return 1;
    }
    // The fonts are looked for in the current directory, like everything a game brings.
    pictures = std::filesystem::absolute(pictures).string();
    std::filesystem::current_path(content);
    Game game;
    if (!game.start()) {
        std::fprintf(stderr, "demo: no window can be opened\n");
        return 1;
    }
    std::printf("Inkstone's demo on the %s machine\n", HOST_name());
    MOUSE_load_cursor(0, HOST_load_cursor(HOST_CURSOR_ARROW));
    std::vector<std::uint8_t> work(64 * 64 * 2 + 16);
    MOUSE_load_image_cursor(0, "cursor.can", work.data());
    MOUSE_set_spot(1, 1);
    set_system_tab_function([] { page_turned = true; });
    PollingInit(kFrameList);
    PollingAppend(kFrameList, [] { CDROM_check_task(); });

    std::unique_ptr<Player> player;
    if (scripted || std::string(HOST_name()) == "headless") player = std::make_unique<Player>(game, pictures);
    play(game, player.get());
    PollingClear(kFrameList);
    game.stop();
    if (player != nullptr) std::printf("%d pictures in %s\n", player->pictures_taken(), pictures.c_str());
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "demo: %s\n", error.what());
    return 1;
}
