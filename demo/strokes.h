// What the scripted player paints, stroke by stroke: the moon with the rabbit that people see in it.
#pragma once

#include <vector>

#include "layout.h"
#include "painting_tools.h"

namespace moon {

struct Stroke {
    Tools tools;
    std::vector<Point> points;  // where the brush goes, from the middle of the sheet
};

std::vector<Stroke> moon_strokes();

}  // namespace moon
