#include "strokes.h"

#include <inkstone/inkstone.h>

#include "light.h"

namespace moon {
namespace {

constexpr int kThin = 1, kMedium = 4, kThick = 9;  // what the tools offer

// A part of a circle around the middle; 0 degrees are to the right, 90 below.
std::vector<Point> arc(int radius, int from, int to) {
    constexpr int kStep = 8;
    std::vector<Point> points;
    for (int degrees = from; degrees <= to; degrees += kStep)
        points.push_back({radius * int_cos(degrees) / 65536, radius * int_sin(degrees) / 65536});
    return points;
}

}  // namespace

std::vector<Stroke> moon_strokes() {
    const Tools ring{Tool::kCircle, kMedium, kGold}, rim{Tool::kBrush, kMedium, kGold},
        shade{Tool::kBrush, kThick, kGold};
    const Tools outline{Tool::kCircle, kMedium, kGrey}, fill{Tool::kFill, kMedium, kGrey};
    const Tools ear{Tool::kBrush, kThick, kGrey}, paw{Tool::kBrush, kMedium, kGrey};
    return {
        // Round, and darker where the light does not come from. The paper that stays bare will shine.
        {ring, {{0, 0}, {117, 0}}},
        {rim, arc(112, -40, 144)},
        {shade, arc(107, -8, 112)},
        {shade, arc(100, 24, 80)},
        // The body, the head, and what stands out from them.
        {outline, {{14, 30}, {44, 30}}},
        {fill, {{14, 30}}},
        {outline, {{-20, -12}, {-1, -12}}},
        {fill, {{-24, -16}}},
        {ear, {{-26, -26}, {-34, -44}, {-38, -64}}},
        {ear, {{-12, -28}, {-6, -46}, {2, -62}}},
        {ear, {{4, 56}, {-18, 60}}},
        {ear, {{48, 40}, {50, 44}}},
        {paw, {{-8, 20}, {-30, 26}, {-48, 18}}},
        // The pestle, the mortar and the eye.
        {{Tool::kLine, kMedium, kGold}, {{-52, -6}, {-52, 48}}},
        {{Tool::kBrush, kThick, kGold}, {{-68, 46}, {-60, 60}, {-44, 60}, {-36, 46}}},
        {{Tool::kBrush, kThin, kWhite}, {{-26, -14}, {-24, -14}}},
    };
}

}  // namespace moon
