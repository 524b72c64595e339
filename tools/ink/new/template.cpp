#include "new/template.h"

namespace ink::tool {
namespace {

constexpr const char *kCmake = R"(cmake_minimum_required(VERSION 3.16)
project(GAME C)

find_package(inkstone CONFIG REQUIRED)
find_program(INK ink HINTS ${inkstone_DIR}/../../../bin ${inkstone_DIR}/../../../../bin)
if(NOT INK)
  message(FATAL_ERROR "The tool ink makes the content of this game; put it on the PATH")
endif()

add_custom_target(content ALL
  COMMAND ${INK} build ${CMAKE_CURRENT_SOURCE_DIR}/content
  BYPRODUCTS ${CMAKE_CURRENT_SOURCE_DIR}/content/words.h)

add_executable(GAME main.c)
target_link_libraries(GAME PRIVATE inkstone::inkstone)
target_include_directories(GAME PRIVATE content)
add_dependencies(GAME content)

# Games look for their files in the current directory.
add_custom_target(run COMMAND GAME WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/content)
)";

constexpr const char *kMain =
    R"(/* A page of a game: somebody walks along a lake by night. Space rings a bell, Esc ends it. With the name of a
   file, GAME writes its first picture there, as PCX, and ends at once. */
#include <inkstone/inkstone.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "words.h"

enum { FRAME = 80, SAY = 24, BELL = 0, SHORE = 374, TEXT = 390, LINE = 40, WORK = 1 << 16 };

static uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT], page[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT];
static uint8_t palette[768];
static int32_t line;
static int closed;

static LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const int down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    if (down || message == WM_KEYUP || message == WM_SYSKEYUP) {
        if ((lparam >> 24 & 1) != 0) fnKeyBoardInterrupt(0xE0);
        fnKeyBoardInterrupt((uint8_t)((lparam >> 16 & 0x7F) | (down ? 0 : 0x80)));
        return 0;
    }
    if (message == WM_CLOSE) closed = 1;
    return message == WM_CLOSE ? 0 : HOST_default_procedure(window, message, wparam, lparam);
}

static int32_t color(int32_t red, int32_t green, int32_t blue) {
    return PAL_find_color(1, 256, red, green, blue, palette);
}

/* The commands of the scripts, by the numbers that commands.mas gives them. */
static int32_t command(uint8_t opcode) {
    const char *text = opcode == SAY ? MAC_get_string() : NULL;
    if (text != NULL) CHINE_print24(56, TEXT + LINE * line++, text, 1, page);
    return 0;
}

/* Reads a whole file; what it is read into is freed by the caller. */
static uint8_t *read_whole(const char *name) {
    FILE *file = fopen(name, "rb");
    uint8_t *bytes = NULL;
    if (file == NULL) return NULL;
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    rewind(file);
    if (size > 0) bytes = malloc((size_t)size);
    if (bytes != NULL && fread(bytes, 1, (size_t)size, file) != (size_t)size) {
        free(bytes);
        bytes = NULL;
    }
    fclose(file);
    return bytes;
}

/* The page that the figure walks over: picture, lantern, title and what the script says. */
static int draw_page(void) {
    int32_t width, height;
    uint8_t *lantern = read_whole("lantern.img");
    if (lantern == NULL || PCX_get_image_size("lake.pcx", &width, &height) != (int32_t)sizeof page ||
        PCX_read_file("lake.pcx", page) != 0 || CHINE_init(1) != 0)
        return 0;
    PCX_export_palette(palette);
    BUF_pest_image(560, 96, lantern, page);
    free(lantern);
    CHINE_set_color(0, color(60, 58, 48));
    CHINE_set_color(3, color(4, 6, 12));
    CHINE_print24(56, 40, TITLE, 1, page);
    MAC_init(".", ".", 16, command);
    return MAC_load("talk.mac") == 0 && MAC_driver(0) == 0;
}

static void draw(const ANI_DATA_STRUCT *figure, int32_t x) {
    memcpy(screen, page, sizeof screen);
    BUF_pest_image(x + figure->x, SHORE + figure->y, figure->image, screen);
}

int main(int argc, char **argv) {
    static uint8_t work[WORK];
    ANI_DATA_STRUCT *walk = NULL;
    int32_t x = 200;
    HWND window = HOST_open_window("GAME", INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, procedure);
    WViewInit(window, 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen);
    WViewEnable();
    if (!draw_page() || CAN_read_file("walk.can", &walk, work) < 1) {
        fputs("GAME: run it in its content folder; ERROR.MSG says what is missing\n", stderr);
        return 1;
    }
    draw(walk->next, x);
    if (argc > 1) {
        PCX_inport_palette(palette);
        return PCX_save_file(argv[1], 0, 0, INK_SCREEN_WIDTH, INK_SCREEN_HEIGHT, screen, INK_SCREEN_WIDTH, 0) == 0 ? 0 : 1;
    }
    DS_init(window);
    DS_load_wave_channel("bell.wav", BELL);
    SCR_set_palette(palette);
    for (const ANI_DATA_STRUCT *figure = walk->next; !closed; figure = figure->next != NULL ? figure->next : walk->next) {
        clear_time_delay();
        draw(figure, x);
        WViewBuffer2Screen();
        x = x < INK_SCREEN_WIDTH ? x + 4 : -40;
        wait_time_delay(FRAME);
        if (fnCheckSpaceKey() && DS_status(BELL) == 0) DS_start(BELL, 0);
        if (fnCheckEscKey()) closed = 1;
    }
    ANI_free_ani(walk);
    ExecQuitProc();
    return 0;
}
)";

constexpr const char *kContent =
    R"(; What ink build makes of the files here, a command of ink a line. All pictures share one palette.
palette join art/lake.png art/lantern.png art/walk-*.png -o game.pal
picture art/lake.png -o lake.pcx --palette game.pal --recolour
picture art/lantern.png -o lantern.img --palette game.pal --recolour
can build walk.can art/walk-*.png --palette game.pal --recolour --trim --anchor 0 -64
strings words.txt words.h
mac build talk.mas
disc render bell.notes -o bell.wav
font build -q -o .
)";

constexpr const char *kWords = "; Texts of the program, as NAME = text.\nTITLE = ~O1月下行~O0\n";

constexpr const char *kCommands =
    "; The commands that main.c carries out for scripts.\ncommand 24 say string\n";

constexpr const char *kTalk = R"(include "commands.mas"

proc main
    say "湖水如鏡，月亮在水裡。"
    say "有人提著燈走來。"
    return
)";

constexpr const char *kBell = R"(title Bell
tempo 60
echo 1/2 30
voice bell wave=sine volume=80 attack=2 decay=900 sustain=0 release=400
voice over wave=sine volume=25 attack=2 decay=500 sustain=0 release=200
bell C5:2
over G6:2
)";

constexpr const char *kReadme = R"(# GAME

A game with Inkstone.

    cmake -B build
    cmake --build build --target run

`main.c` is the game. `content/` is what it shows and plays: `content.ink` says how each file is made of the sources
beside it, and `ink build content` makes those that are out of date. `ink view` and `ink info` show what is in them, and
`ink --help` lists what else the tool can do.
)";

constexpr const char *kIgnore =
    "build/\ncontent/.ink-build\ncontent/ERROR.MSG\ncontent/game.pal\ncontent/*.pcx\ncontent/*.img\ncontent/"
    "*.can\n"
    "content/*.mac\ncontent/*.wav\ncontent/words.h\ncontent/*.FON\ncontent/FONT.*\n";

std::string named(std::string text, const std::string &game) {
    constexpr std::string_view kName = "GAME";
    for (std::size_t at = 0; (at = text.find(kName, at)) != std::string::npos; at += game.size())
        text.replace(at, kName.size(), game);
    return text;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> texts_of_game(const std::string &game) {
    return {{"CMakeLists.txt", named(kCmake, game)},
            {"main.c", named(kMain, game)},
            {"README.md", named(kReadme, game)},
            {".gitignore", kIgnore},
            {"content/content.ink", kContent},
            {"content/words.txt", kWords},
            {"content/commands.mas", kCommands},
            {"content/talk.mas", kTalk},
            {"content/bell.notes", kBell}};
}

}  // namespace ink::tool
