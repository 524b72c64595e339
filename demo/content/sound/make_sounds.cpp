// Makes the sounds of the game. Usage: make_sounds DIRECTORY
#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "synthesis.h"

namespace {

using namespace sound;

std::function<double(double)> steady(double value) {
    return [value](double) { return value; };
}
std::function<double(double)> falling(double from, double to) {
    return [=](double t) { return from + (to - from) * t; };
}
double dying(double t) {
    return (1 - t) * (1 - t) * (1 - t);
}

// A cloth shoe on boards: a dull thump, and the boards answer.
Samples step() {
    Samples samples = silence(0.16);
    strike(samples, 0, {{96, 1, 0.016}, {171, 0.6, 0.012}, {288, 0.25, 0.008}});
    rush(samples, 0, 0.07, {steady(180), falling(1500, 500), dying}, 11);
    return samples;
}

// A knock on a bamboo tube.
Samples click() {
    Samples samples = silence(0.14);
    strike(samples, 0, {{640, 1, 0.011}, {1480, 0.45, 0.007}, {2310, 0.2, 0.004}});
    return samples;
}

// Small bells up the scale: something has been found.
Samples chime() {
    Samples samples = silence(1.7);
    const double notes[] = {1174.66, 1318.51, 1760.00};
    for (int i = 0; i < 3; ++i)
        strike(samples, 0.13 * i,
               {{notes[i], 0.6, 0.22}, {notes[i] * 2.01, 0.22, 0.12}, {notes[i] * 2.98, 0.1, 0.06}},
               i == 2 ? 1.2 : 0.8);
    return samples;
}

// The temple's bell over the lake: its tones lie in pairs, which beat.
Samples bell() {
    Samples samples = silence(4);
    strike(samples, 0,
           {{98, 0.8, 1.1},
            {98.9, 0.5, 1.2},
            {196.4, 0.6, 0.8},
            {233.5, 0.35, 0.6},
            {294.6, 0.3, 0.4},
            {295.9, 0.25, 0.5},
            {441, 0.3, 0.45},
            {587, 0.22, 0.3},
            {884, 0.12, 0.16}});
    rush(samples, 0, 0.05, {steady(200), steady(1600), dying}, 5);
    return samples;
}

// A sheet is turned: it slides, and lies down.
Samples page() {
    Samples samples = silence(0.45);
    rush(samples, 0, 0.3, {falling(900, 2200), falling(3800, 7000), [](double t) { return 4 * t * (1 - t); }},
         21);
    rush(samples, 0.27, 0.14, {steady(300), falling(2600, 900), [](double t) { return 0.9 * dying(t); }}, 22);
    return samples;
}

// Something falls into the water: it breaks, spray comes down, drops ring.
Samples splash() {
    Samples samples = silence(1.1);
    rush(samples, 0, 0.4, {steady(120), falling(3200, 600), dying}, 31);
    rush(samples, 0.08, 0.8,
         {steady(1400), falling(6000, 3000), [](double t) { return 0.3 * std::min(1.0, t * 8) * dying(t); }},
         32);
    const double drops[][3] = {
        {0.10, 320, 780}, {0.24, 520, 1240}, {0.37, 430, 980}, {0.52, 700, 1500}, {0.70, 560, 1180}};
    double level = 0.4;
    for (const auto &[at, from, to] : drops) drop(samples, at, from, to, 0.12, level *= 0.82);
    return samples;
}

}  // namespace

int main(int argc, char **argv) try {
    if (argc != 2) throw std::runtime_error("usage: make_sounds DIRECTORY");
    const std::filesystem::path directory(argv[1]);
    std::filesystem::create_directories(directory);
    write_wave(directory / "step.wav", step(), 0.6);
    write_wave(directory / "click.wav", click(), 0.6);
    write_wave(directory / "chime.wav", chime(), 0.75);
    write_wave(directory / "bell.wav", bell(), 0.85);
    write_wave(directory / "page.wav", page(), 0.5);
    write_wave(directory / "splash.wav", splash(), 0.8);
    return 0;
} catch (const std::exception &error) {
    std::fprintf(stderr, "make_sounds: %s\n", error.what());
    return 1;
}
