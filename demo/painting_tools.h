// The tools beside the sheet: what the brush does, how thick it is, its colour, and undoing, wiping and ending.
#pragma once

#include <vector>

#include "layout.h"

namespace moon {

enum class Tool { kBrush, kLine, kCircle, kFill };

struct Tools {
    Tool tool = Tool::kBrush;
    int radius = 4;  // pixels
    int colour = 1;
};

void draw_tools(const Tools &tools);

// Takes a click beside the sheet.
enum class ToolClick { kNothing, kChosen, kUndo, kWipe, kDone };
ToolClick click_tools(Tools &tools, int x, int y);

// Where to click to get from one choice to another, and to end.
std::vector<Point> clicks_between(const Tools &now, const Tools &wanted);
Point done_button();

}  // namespace moon
