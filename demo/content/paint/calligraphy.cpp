#include "calligraphy.h"

namespace paint {
namespace {

// A stroke of the brush on a square of 100: its path and its width where it begins, in the middle, and where it ends.
struct Stroke {
    Path path;
    double start, middle, end;
};
using Character = std::vector<Stroke>;

const Character kInk = {
    {{{27, 9}, {28, 22}, {30, 37}}, 6, 5, 5},  {{{27, 10}, {50, 8}, {73, 8}, {72, 22}, {69, 37}}, 4, 6, 6},
    {{{38, 15}, {42, 22}}, 3, 5, 4},           {{{62, 14}, {57, 22}}, 5, 4, 2},
    {{{30, 34}, {69, 33}}, 4, 4, 5},           {{{50, 9}, {50, 58}}, 5, 5, 6},
    {{{30, 46}, {50, 45}, {71, 44}}, 4, 4, 6}, {{{13, 60}, {45, 58}, {87, 57}}, 5, 5, 8},
    {{{24, 66}, {16, 77}}, 7, 5, 2},           {{{39, 66}, {43, 75}}, 3, 7, 5},
    {{{56, 65}, {61, 74}}, 3, 7, 5},           {{{73, 64}, {84, 74}}, 3, 8, 6},
    {{{31, 84}, {50, 82}, {69, 82}}, 4, 4, 6}, {{{50, 73}, {50, 96}}, 5, 6, 5},
    {{{8, 98}, {45, 96}, {92, 95}}, 6, 6, 9},
};
const Character kMiddle = {
    {{{20, 30}, {23, 45}, {26, 62}}, 8, 6, 5},
    {{{20, 31}, {50, 27}, {80, 26}, {78, 42}, {73, 60}}, 5, 8, 6},
    {{{26, 58}, {50, 56}, {74, 55}}, 5, 5, 6},
    {{{50, 5}, {51, 50}, {49, 98}}, 10, 7, 3},
};
const Character kMoon = {
    {{{30, 8}, {32, 40}, {29, 68}, {14, 94}}, 8, 7, 2},
    {{{31, 9}, {52, 6}, {75, 7}, {75, 50}, {74, 90}, {68, 95}, {60, 87}}, 5, 9, 3},
    {{{34, 34}, {54, 32}, {72, 32}}, 4, 5, 5},
    {{{33, 58}, {54, 56}, {72, 56}}, 4, 5, 5},
};

const Character kWater = {
    {{{50, 5}, {51, 60}, {50, 92}, {38, 84}}, 10, 8, 2},
    {{{14, 34}, {40, 32}, {28, 60}, {8, 82}}, 6, 7, 2},
    {{{84, 18}, {70, 36}, {56, 46}}, 8, 6, 2},
    {{{56, 44}, {72, 70}, {94, 88}}, 4, 8, 8},
};
// Lin's paper shop.
const Character kLin = {
    {{{6, 37}, {26, 35}, {46, 34}}, 6, 6, 7},  {{{28, 8}, {28, 94}}, 8, 8, 5},
    {{{27, 38}, {18, 58}, {5, 74}}, 7, 6, 2},  {{{30, 42}, {44, 60}}, 3, 8, 6},
    {{{52, 37}, {74, 35}, {96, 34}}, 6, 6, 8}, {{{73, 6}, {73, 96}}, 8, 8, 5},
    {{{72, 38}, {62, 62}, {46, 82}}, 7, 6, 2}, {{{74, 38}, {84, 62}, {98, 80}}, 4, 7, 9},
};
const Character kRecord = {
    {{{22, 4}, {30, 14}}, 4, 8, 6},  {{{4, 24}, {48, 22}}, 6, 6, 7},
    {{{12, 38}, {42, 37}}, 5, 5, 6}, {{{12, 51}, {42, 50}}, 5, 5, 6},
    {{{13, 65}, {16, 94}}, 6, 6, 5}, {{{13, 66}, {43, 64}, {40, 92}}, 5, 7, 5},
    {{{16, 90}, {40, 89}}, 5, 5, 5}, {{{56, 17}, {90, 15}, {88, 47}}, 6, 8, 6},
    {{{58, 47}, {88, 46}}, 6, 6, 6}, {{{59, 47}, {57, 82}, {66, 91}, {92, 88}, {95, 74}}, 8, 7, 2},
};
const Character kPaper = {
    {{{28, 4}, {11, 28}, {28, 30}}, 7, 6, 5}, {{{37, 16}, {9, 53}, {39, 48}}, 7, 6, 5},
    {{{32, 38}, {43, 53}}, 3, 7, 6},          {{{26, 56}, {26, 95}}, 8, 8, 5},
    {{{13, 64}, {6, 86}}, 7, 6, 2},           {{{36, 62}, {46, 80}}, 3, 8, 6},
    {{{88, 6}, {72, 15}, {54, 20}}, 8, 6, 3}, {{{58, 19}, {58, 86}, {76, 72}}, 8, 8, 3},
    {{{58, 46}, {94, 42}}, 6, 6, 8},          {{{73, 17}, {79, 58}, {94, 92}, {98, 76}}, 7, 8, 2},
};
const Character kWorkshop = {
    {{{5, 40}, {38, 38}}, 6, 6, 7},
    {{{22, 12}, {22, 76}}, 8, 8, 6},
    {{{3, 82}, {40, 70}}, 8, 7, 3},
    {{{66, 4}, {74, 16}}, 4, 9, 7},
    {{{44, 29}, {98, 26}}, 6, 6, 9},
    {{{62, 51}, {90, 48}, {85, 90}, {72, 86}}, 6, 8, 2},
    {{{67, 29}, {62, 62}, {43, 94}}, 8, 7, 2},
};

void write(Canvas &canvas, const Character &character, double x, double y, double size, Tone tone) {
    const double scale = size / 100;
    for (const Stroke &stroke_of : character) {
        const Path path = placed(curve(stroke_of.path), x, y, scale, scale);
        Mask mask = stroke(path, stroke_of.start * scale * 1.25, stroke_of.middle * scale * 1.25,
                           stroke_of.end * scale * 1.25);
        // The brush runs dry towards the end of a stroke: the paper shows through in streaks.
        const Point end = path.back();
        for (int py = mask.top; py < mask.top + mask.height; ++py)
            for (int px = mask.left; px < mask.left + mask.width; ++px) {
                const double dx = px - end.x, dy = py - end.y,
                             near = 1 - (dx * dx + dy * dy) / (size * size * 0.05);
                if (near > 0 && noise(px / 5.0, py / 1.6, 17) < near * 0.42) mask.at(px, py) *= 0.25F;
            }
        canvas.lay(mask, tone);
    }
}

// Capitals on a height of 1: their width, and their strokes.
struct Letter {
    char name;
    double width;
    std::vector<Path> strokes;
};
const std::vector<Letter> kLetters = {
    {'T', 0.8, {{{0, 0}, {0.8, 0}}, {{0.4, 0}, {0.4, 1}}}},
    {'H', 0.75, {{{0, 0}, {0, 1}}, {{0.75, 0}, {0.75, 1}}, {{0, 0.48}, {0.75, 0.48}}}},
    {'E', 0.6, {{{0, 0}, {0, 1}}, {{0, 0}, {0.58, 0}}, {{0, 0.48}, {0.48, 0.48}}, {{0, 1}, {0.6, 1}}}},
    {'M',
     0.96,
     {{{0, 1}, {0.1, 0}}, {{0.1, 0}, {0.48, 0.82}}, {{0.48, 0.82}, {0.86, 0}}, {{0.86, 0}, {0.96, 1}}}},
    {'O', 0.92, {ellipse(0.46, 0.5, 0.46, 0.5)}},
    {'N', 0.76, {{{0, 1}, {0, 0}}, {{0, 0}, {0.76, 1}}, {{0.76, 1}, {0.76, 0}}}},
    {'I', 0.06, {{{0.03, 0}, {0.03, 1}}}},
    {'K', 0.68, {{{0, 0}, {0, 1}}, {{0.64, 0}, {0, 0.56}}, {{0.22, 0.4}, {0.68, 1}}}},
    {' ', 0.34, {}},
};

const Letter &letter_of(char name) {
    for (const Letter &letter : kLetters)
        if (letter.name == name) return letter;
    return kLetters.back();
}

}  // namespace

void write_roman(Canvas &canvas, double x, double y, double height, std::string_view text, Tone tone) {
    constexpr double kApart = 0.34;
    double width = -kApart;
    for (const char name : text) width += letter_of(name).width + kApart;
    double left = x - width * height / 2;
    for (const char name : text) {
        const Letter &letter = letter_of(name);
        for (const Path &path : letter.strokes) {
            Path drawn = placed(path, left, y, height, height);
            if (drawn.size() > 2) drawn.push_back(drawn[0]);
            // Down strokes are thick and the others thin, as a flat pen writes them.
            const double dx = drawn[1].x - drawn[0].x, dy = drawn[1].y - drawn[0].y;
            const bool thick = dy * dy > dx * dx;
            canvas.lay(stroke(drawn, height * (thick ? 0.15 : 0.1)), tone);
        }
        left += (letter.width + kApart) * height;
    }
}

void write_title(Canvas &canvas, double x, double y, double size, Tone tone) {
    write(canvas, kInk, x, y, size, tone);
    write(canvas, kMiddle, x, y + size * 1.1, size, tone);
    write(canvas, kMoon, x, y + size * 2.2, size, {Ramp::gold, 0.86});
}

void write_shop_sign(Canvas &canvas, double x, double y, double size, Tone tone) {
    write(canvas, kLin, x, y, size, tone);
    write(canvas, kRecord, x + size * 1.15, y, size, tone);
    write(canvas, kPaper, x + size * 2.3, y, size, tone);
    write(canvas, kWorkshop, x + size * 3.45, y, size, tone);
}

void write_tablet(Canvas &canvas, double x, double y, double size, Tone tone) {
    write(canvas, kMoon, x, y, size, tone);
    write(canvas, kWater, x + size * 1.7, y, size, tone);
}

void write_paper(Canvas &canvas, double x, double y, double size, Tone tone) {
    write(canvas, kPaper, x, y, size, tone);
}

void stamp_seal(Canvas &canvas, double x, double y, double size) {
    canvas.lay(fill(curve({{x, y + 1},
                           {x + size * 0.5, y},
                           {x + size, y + 1},
                           {x + size - 0.6, y + size * 0.5},
                           {x + size, y + size},
                           {x + size * 0.5, y + size - 0.6},
                           {x, y + size},
                           {x + 0.6, y + size * 0.5}},
                          true)),
               {Ramp::vermilion, 0.5});
    // Two characters in the old manner, white on red.
    const auto line = [&](double ax, double ay, double bx, double by) {
        canvas.lay(stroke({{x + ax * size, y + ay * size}, {x + bx * size, y + by * size}}, size * 0.075),
                   {Ramp::paper, 0.92});
    };
    line(0.56, 0.18, 0.86, 0.18);
    line(0.71, 0.12, 0.71, 0.5);
    line(0.56, 0.32, 0.86, 0.32);
    line(0.56, 0.5, 0.86, 0.5);
    line(0.58, 0.62, 0.58, 0.86);
    line(0.84, 0.62, 0.84, 0.86);
    line(0.58, 0.74, 0.84, 0.74);
    line(0.16, 0.2, 0.42, 0.2);
    line(0.16, 0.2, 0.16, 0.46);
    line(0.42, 0.2, 0.42, 0.46);
    line(0.16, 0.46, 0.42, 0.46);
    line(0.29, 0.2, 0.29, 0.84);
    line(0.14, 0.66, 0.44, 0.66);
    line(0.14, 0.84, 0.44, 0.84);
}

}  // namespace paint
