// Lines, circles and fills beside the same work done with the other libraries.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include "inkstone/line.h"
#include "peers.h"

namespace {

constexpr int kWidth = 640, kHeight = 480;
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
BENCHMARK(lines)->Name("lines/inkstone")->Arg(8)->Arg(32)->Arg(300);

void figures(benchmark::State &state, bool round) {
    const auto figures = make_figures(round);
    Screen screen(kWidth * kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) BUF_circle(f.x, f.y, f.down, f.across, 0, 0, 7, screen.data());
}
BENCHMARK_CAPTURE(figures, circles, true)->Name("circles/inkstone");
BENCHMARK_CAPTURE(figures, ellipses, false)->Name("ellipses/inkstone");

// Each fill turns the area of colour 0 into another colour and the next one back.
void fill(benchmark::State &state, Screen screen, int x, int y) {
    int colour = 2;
    for (auto _ : state) {
        BUF_fill(x, y, colour, screen.data());
        colour = 2 - colour;
    }
    state.counters["filled"] = static_cast<double>(std::count(screen.begin(), screen.end(), 2 - colour));
}
BENCHMARK_CAPTURE(fill, empty, Screen(kWidth *kHeight), 320, 240)->Name("fill/empty/inkstone");
BENCHMARK_CAPTURE(fill, maze, make_maze(), 0, 0)->Name("fill/maze/inkstone");

#if defined(INKSTONE_BENCH_ALLEGRO)
void allegro_lines(benchmark::State &state) {
    const auto lines = make_lines(static_cast<int>(state.range(0)));
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Segment &l : lines) ::line(bitmap, l.x1, l.y1, l.x2, l.y2, 7);
}
BENCHMARK(allegro_lines)->Name("lines/allegro")->Arg(8)->Arg(32)->Arg(300);

void allegro_circles(benchmark::State &state) {
    const auto figures = make_figures(true);
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) ::circle(bitmap, f.x, f.y, f.down, 7);
}
BENCHMARK(allegro_circles)->Name("circles/allegro");

void allegro_ellipses(benchmark::State &state) {
    const auto figures = make_figures(false);
    const peers::AllegroBitmap bitmap(kWidth, kHeight);
    for (auto _ : state)
        for (const Ellipse &f : figures) ::ellipse(bitmap, f.x, f.y, f.across, f.down, 7);
}
BENCHMARK(allegro_ellipses)->Name("ellipses/allegro");

void allegro_fill(benchmark::State &state, const Screen &screen, int x, int y) {
    peers::AllegroBitmap bitmap(kWidth, kHeight);
    bitmap.load(screen.data());
    int colour = 2;
    for (auto _ : state) {
        ::floodfill(bitmap, x, y, colour);
        colour = 2 - colour;
    }
}
BENCHMARK_CAPTURE(allegro_fill, empty, Screen(kWidth *kHeight), 320, 240)->Name("fill/empty/allegro");
BENCHMARK_CAPTURE(allegro_fill, maze, make_maze(), 0, 0)->Name("fill/maze/allegro");
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
BENCHMARK(sdl_lines)->Name("lines/sdl")->Arg(8)->Arg(32)->Arg(300);
#endif

}  // namespace
