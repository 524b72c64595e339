// The Moon in the Ink: a small complete adventure, and an example of a whole game. Without a display, or with
// --tour, a recorded play runs from the beginning to the end, checks itself, and saves pictures and sound.
#include <inkstone/inkstone.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "archive.h"
#include "ending.h"
#include "frame.h"
#include "inventory.h"
#include "language.h"
#include "layout.h"
#include "light.h"
#include "name_entry.h"
#include "opening.h"
#include "panel.h"
#include "play.h"
#include "pointer.h"
#include "save.h"
#include "scene.h"
#include "script.h"
#include "settings.h"
#include "sound.h"
#include "text.h"
#include "title.h"
#include "tour.h"
#include "window.h"

namespace {

using namespace moon;

constexpr std::int32_t kFrameList = 0;  // the polling list that runs once a frame

// All that stays loaded as long as the game runs; false when something is missing without which it cannot.
bool load_content() {
    if (!load_fonts()) return false;
    load_layout();
    load_palettes();
    load_sounds();
    load_pointers();
    load_portraits();
    load_things();
    load_scenes();
    return begin_script();
}

void begin_new_game() {
    begin_script();
    set_name(enter_name(draw_title));
    fade_out();
    show_opening();
    enter_by(kStudy, Side::kStart);
    show_place();
    run(kBeginning);
}

void go_on_with_saved_game() {
    load_game();
    fade_out();
    enter_place();
    show_place();
}

// Title page, play, ending, and over again.
void run_game() {
    while (!window_closed()) {
        const TitleResult result = title_page();
        if (result == TitleResult::kLeave) break;
        if (result == TitleResult::kNewGame)
            begin_new_game();
        else
            go_on_with_saved_game();
        play_story();
        if (get(kFinished) != 0)
            show_ending();
        else
            fade_out();
    }
    fade_out();
}

struct Options {
    std::string host, content, folder, language;
    bool tour = false;
    Tour tour_options;
};

int run_with(const Options &options) {
    namespace fs = std::filesystem;
    // A tour needs no window: on the simulated machine it takes seconds.
    const std::string host = options.host.empty() && options.tour ? "headless" : options.host;
    if (!host.empty() && HOST_choose(host.c_str()) != 0) {
        std::fprintf(stderr, "demo: the machine '%s' cannot be had here\n", host.c_str());
        return 1;
    }
    const bool tour = options.tour || std::string(HOST_name()) == "headless";
    const std::string content = fs::absolute(options.content).string();
    if (tour && !begin_tour(options.tour_options, content)) return 1;
    if (!tour) {
        fs::create_directories(options.folder);
        fs::current_path(options.folder);
    }
    if (!unpack(content + "/GAME.BND")) {
        std::fprintf(stderr, "demo: there is no archive GAME.BND in %s\n", content.c_str());
        return 1;
    }
    read_settings();
    if (!options.language.empty())
        set_language(options.language == "en" ? Language::kEnglish : Language::kChinese);
    // The disc is in the drive before the families start, as a player would have put it there.
    insert_disc(content + "/music.cue");
    if (!open_window()) {
        std::fprintf(stderr, "demo: no window can be opened\n");
        return 1;
    }
    std::printf("The Moon in the Ink, on the %s machine\n", HOST_name());
    PollingInit(kFrameList);
    PollingAppend(kFrameList, [] { CDROM_check_task(); });
    watch_tab();
    if (tour) let_player_play(options.tour_options, kFrameList);
    const bool loaded = load_content();
    if (loaded)
        run_game();
    else
        std::fprintf(stderr, "demo: the archive lacks the fonts or the script; ERROR.MSG says more\n");
    PollingClear(kFrameList);
    const bool ended = !tour || end_tour();
    close_window();
    return loaded && ended ? 0 : 1;
}

}  // namespace

int main(int argc, char **argv) try {
    CLI::App app("The Moon in the Ink, the game of Inkstone.", "demo");
    Options options;
    const auto beside = std::filesystem::path(argv[0]).parent_path();
    options.content = (beside / "content").string();
    options.folder = (beside / "game").string();
    app.add_option("--host", options.host,
                   "the machine to run on: win32, sdl or headless (default: whichever fits)");
    app.add_option("--language", options.language, "zh or en (default: what GAME.INF says)")
        ->check(CLI::IsMember({"zh", "en"}));
    app.add_flag("--tour", options.tour,
                 "run the recorded play and check it, as it is done without a display; "
                 "where none is kept the scripted player plays");
    app.add_flag("--scripted", options.tour_options.scripted,
                 "with --tour: play anew, even where a recorded play is kept");
    app.add_option("--half", options.tour_options.half,
                   "of the tour: 1 plays as far as it saves, 2 loads that and plays on")
        ->check(CLI::Range(0, 2));
    app.add_option("--pictures", options.tour_options.pictures, "where the tour saves its pictures")
        ->capture_default_str();
    app.add_option("--content", options.content,
                   "where the archive and the disc are (default: beside the program)");
    app.add_option("--folder", options.folder,
                   "where the game keeps its files and saved games (default: beside the program)");
    CLI11_PARSE(app, argc, argv);
    return run_with(options);
} catch (const std::exception &error) {
    std::fprintf(stderr, "demo: %s\n", error.what());
    return 1;
}
