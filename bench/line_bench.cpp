// Lines, circles and fills beside the same work done with the other libraries.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include "call.h"
#include "drawing_peers.h"
#include "inkstone/line.h"

namespace {

using namespace bench;
using Screen = std::vector<std::uint8_t>;

struct Segment {
    int x1, y1, x2, y2;
};

// A thousand lines inside the screen that reach at most so far along each axis.
std::vector<Segment> make_lines(int reach) {
    std::mt19937 random(1);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    std::vector<Segment> lines(1000);
    for (Segment &line : lines) {
        line.x1 = number(0, kWidth - 1), line.y1 = number(0, kHeight - 1);
        line.x2 = std::clamp(line.x1 + number(-reach, reach), 0, kWidth - 1);
        line.y2 = std::clamp(line.y1 + number(-reach, reach), 0, kHeight - 1);
    }
    return lines;
}

struct Ellipse {
    int x, y, down, across;
};

// A thousand figures inside the screen, with one radius or with two.
std::vector<Ellipse> make_figures(bool round) {
    std::mt19937 random(2);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    std::vector<Ellipse> figures(1000);
    for (Ellipse &figure : figures) {
        figure = {number(60, kWidth - 61), number(60, kHeight - 61), number(4, 50), number(4, 50)};
        if (round) figure.across = figure.down;
    }
    return figures;
}

// A maze of corridors with walls as wide, with one way from each cell to each other.
Screen make_maze() {
    constexpr int kCell = 4, kColumns = kWidth / kCell / 2, kRows = kHeight / kCell / 2;
    Screen maze(kWidth * kHeight, 1);
    const auto open = [&](int column, int row) {
        for (int y = row * kCell; y < (row + 1) * kCell; ++y)
            std::fill_n(maze.begin() + y * kWidth + column * kCell, kCell, std::uint8_t{0});
    };
    std::mt19937 random(3);
    std::vector<bool> seen(kColumns * kRows);
    std::vector<std::pair<int, int>> way{{0, 0}};
    seen[0] = true;
    open(0, 0);
    while (!way.empty()) {
        const auto [column, row] = way.back();
        std::vector<std::pair<int, int>> next;
        for (const auto &[dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            const int x = column + dx, y = row + dy;
            if (x >= 0 && x < kColumns && y >= 0 && y < kRows &&
                !seen[static_cast<std::size_t>(y * kColumns + x)])
                next.emplace_back(x, y);
        }
        if (next.empty()) {
            way.pop_back();
            continue;
        }
        const auto [x, y] = next[random() % next.size()];
        seen[static_cast<std::size_t>(y * kColumns + x)] = true;
        open(x * 2, y * 2);
        open(column + x, row + y);
        way.emplace_back(x, y);
    }
    return maze;
}

void lines(benchmark::State &state) {
    const auto lines = make_lines(static_cast<int>(state.range(0)));
    Screen screen(kWidth * kHeight);
    for (auto _ : state)
        for (const Segment &line : lines) BUF_line(line.x1, line.y1, line.x2, line.y2, 7, screen.data());
}
BENCHMARK(lines)
    ->Name("Lines and fills/1,000 lines of so many pixels at most/inkstone")
    ->Arg(8)
    ->Arg(32)
    ->Arg(300);

void figures(benchmark::State &state, bool round) {
    const auto figures = make_figures(round);
    Screen screen(kWidth * kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) BUF_circle(f.x, f.y, f.down, f.across, 0, 0, 7, screen.data());
}
BENCHMARK_CAPTURE(figures, circles, true)->Name("Lines and fills/1,000 circles, radii 4 to 50/inkstone");
BENCHMARK_CAPTURE(figures, ellipses, false)->Name("Lines and fills/1,000 ellipses, radii 4 to 50/inkstone");

// The limit of lines and figures: the same pixels stored one after the other, from a list.
template <class Draw>
void stores(benchmark::State &state, int count, Draw draw) {
    std::vector<std::vector<int>> drawn(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        Screen blank(kWidth * kHeight);
        draw(static_cast<int>(i), blank.data());
        for (int at = 0; at < kWidth * kHeight; ++at)
            if (blank[static_cast<std::size_t>(at)] != 0) drawn[i].push_back(at);
    }
    Screen screen(kWidth * kHeight);
    for (auto _ : state) {
        for (const auto &pixels : drawn)
            for (const int at : pixels) screen[static_cast<std::size_t>(at)] = 7;
        benchmark::ClobberMemory();
    }
}

void line_stores(benchmark::State &state) {
    const auto lines = make_lines(static_cast<int>(state.range(0)));
    stores(state, 1000, [&](int i, std::uint8_t *to) {
        const Segment &line = lines[static_cast<std::size_t>(i)];
        BUF_line(line.x1, line.y1, line.x2, line.y2, 7, to);
    });
}
BENCHMARK(line_stores)
    ->Name("Lines and fills/1,000 lines of so many pixels at most/limit stores")
    ->Arg(8)
    ->Arg(32)
    ->Arg(300);

void figure_stores(benchmark::State &state, bool round) {
    const auto figures = make_figures(round);
    stores(state, 1000, [&](int i, std::uint8_t *to) {
        const Ellipse &f = figures[static_cast<std::size_t>(i)];
        BUF_circle(f.x, f.y, f.down, f.across, 0, 0, 7, to);
    });
}
BENCHMARK_CAPTURE(figure_stores, circles, true)
    ->Name("Lines and fills/1,000 circles, radii 4 to 50/limit stores");
BENCHMARK_CAPTURE(figure_stores, ellipses, false)
    ->Name("Lines and fills/1,000 ellipses, radii 4 to 50/limit stores");

// Each fill turns the area of colour 0 into another colour and the next one back.
void fill(benchmark::State &state, Screen screen, int x, int y) {
    int colour = 2;
    for (auto _ : state) {
        BUF_fill(x, y, colour, screen.data());
        colour = 2 - colour;
    }
    state.counters["filled"] = static_cast<double>(std::count(screen.begin(), screen.end(), 2 - colour));
}
BENCHMARK_CAPTURE(fill, empty, Screen(kWidth *kHeight), 320, 240)
    ->Name("Lines and fills/fill of an empty screen/inkstone");
BENCHMARK_CAPTURE(fill, maze, make_maze(), 0, 0)->Name("Lines and fills/fill of a maze/inkstone");

// The limit of a fill: its area read once, its pixels written.
void fill_stores(benchmark::State &state, Screen screen) {
    int colour = 2;
    for (auto _ : state) {
        for (std::uint8_t &pixel : screen)
            pixel = static_cast<std::uint8_t>(pixel == 2 - colour ? colour : pixel);
        benchmark::DoNotOptimize(screen.data());
        benchmark::ClobberMemory();
        colour = 2 - colour;
    }
}
BENCHMARK_CAPTURE(fill_stores, empty, Screen(kWidth *kHeight))
    ->Name("Lines and fills/fill of an empty screen/limit read, write");
BENCHMARK_CAPTURE(fill_stores, maze, make_maze())->Name("Lines and fills/fill of a maze/limit read, write");

#if defined(INKSTONE_BENCH_ALLEGRO)
void allegro_lines(benchmark::State &state) {
    const auto lines = make_lines(static_cast<int>(state.range(0)));
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Segment &l : lines) ::line(bitmap, l.x1, l.y1, l.x2, l.y2, 7);
}
BENCHMARK(allegro_lines)
    ->Name("Lines and fills/1,000 lines of so many pixels at most/Allegro 4")
    ->Arg(8)
    ->Arg(32)
    ->Arg(300);

void allegro_circles(benchmark::State &state) {
    const auto figures = make_figures(true);
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) ::circle(bitmap, f.x, f.y, f.down, 7);
}
BENCHMARK(allegro_circles)->Name("Lines and fills/1,000 circles, radii 4 to 50/Allegro 4");

void allegro_ellipses(benchmark::State &state) {
    const auto figures = make_figures(false);
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) ::ellipse(bitmap, f.x, f.y, f.across, f.down, 7);
}
BENCHMARK(allegro_ellipses)->Name("Lines and fills/1,000 ellipses, radii 4 to 50/Allegro 4");

void allegro_fill(benchmark::State &state, const Screen &screen, int x, int y) {
    peers::AllegroBitmap bitmap(kWidth, kHeight);
    bitmap.load(screen.data());
    int colour = 2;
    for (auto _ : state) {
        ::floodfill(bitmap, x, y, colour);
        colour = 2 - colour;
    }
}
BENCHMARK_CAPTURE(allegro_fill, empty, Screen(kWidth *kHeight), 320, 240)
    ->Name("Lines and fills/fill of an empty screen/Allegro 4");
BENCHMARK_CAPTURE(allegro_fill, maze, make_maze(), 0, 0)->Name("Lines and fills/fill of a maze/Allegro 4");
#endif

#if defined(INKSTONE_BENCH_SDL)
void sdl_lines(benchmark::State &state) {
    const auto lines = make_lines(static_cast<int>(state.range(0)));
    const peers::SdlSurface surface(kWidth, kHeight);
    SDL_Renderer *renderer = SDL_CreateSoftwareRenderer(surface);
    SDL_SetRenderDrawColor(renderer, 255, 255, 255, 255);
    for (auto _ : state) {
        for (const Segment &line : lines) SDL_RenderDrawLine(renderer, line.x1, line.y1, line.x2, line.y2);
        SDL_RenderFlush(renderer);
    }
    SDL_DestroyRenderer(renderer);
}
BENCHMARK(sdl_lines)
    ->Name("Lines and fills/1,000 lines of so many pixels at most/SDL2")
    ->Arg(8)
    ->Arg(32)
    ->Arg(300);
#endif

// Every function at its sizes: a line as wide as the stage, a circle and an ellipse inside it, an arc of three
// quarters, and a fill of a closed box.
#define ROUND x + s.h / 2, y + s.h / 2, s.h / 2 - 1, s.h / 2 - 1
#define UNEQUAL x + s.w / 2, y + s.h / 2, s.h / 3, s.w / 2 - 1

// A frame around the stage's size, at the top left of both libraries' screens.
void frame(Stage &s) {
    for (int y = 0; y < s.h; ++y)
        for (int x = 0; x < s.w; ++x) {
            const bool edge = x == 0 || y == 0 || x == s.w - 1 || y == s.h - 1;
            s.screen[y * kWidth + x] = edge ? 9 : 1;
        }
#if defined(INKSTONE_BENCH_ALLEGRO)
    s.allegro_screen.load(s.screen);
#endif
}
#define TURN s.screen[kWidth + 1] ^ 1

[[maybe_unused]] const bool registered = add(
    "Lines and fills",
    {{"BUF_line", CALL(BUF_line(x, y, x + s.w - 1, y + s.h / 3, 3, s.screen)), beside(kStores, kLinePeers)},
     {"MEM_line", CALL(MEM_line(x, y, x + s.w - 1, y + s.h / 3, 3, MEMORY)), beside(kStores, kLinePeers)},
     {"BUF_dash_line", CALL(BUF_dash_line(x, y, x + s.w - 1, y + s.h / 3, 3, 2, s.screen)), beside(kStores)},
     {"MEM_dash_line", CALL(MEM_dash_line(x, y, x + s.w - 1, y + s.h / 3, 3, 2, MEMORY)), beside(kStores)},
     {"BUF_circle", CALL(BUF_circle(ROUND, 0, 0, 3, s.screen)), beside(kStores, kCirclePeers)},
     {"MEM_circle", CALL(MEM_circle(ROUND, 0, 0, 3, MEMORY)), beside(kStores, kCirclePeers)},
     {"BUF_circle, ellipse", CALL(BUF_circle(UNEQUAL, 0, 0, 3, s.screen)), beside(kStores, kEllipsePeers)},
     {"BUF_circle, arc", CALL(BUF_circle(ROUND, 0, 270, 3, s.screen)), beside(kStores)},
     {"BUF_fill", CALL(BUF_fill(1, 1, TURN, s.screen)), beside(kUpdate, kFillPeers), frame},
     {"MEM_fill", CALL(MEM_fill(1, 1, TURN, MEMORY)), beside(kUpdate, kFillPeers), frame}});

}  // namespace
