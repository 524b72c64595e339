// Where things stand: the numbers of layout.inf.
#pragma once

#include <string>
#include <vector>

namespace moon {

struct Point {
    int x = 0, y = 0;
};

// Loads the file, which stays loaded.
void load_layout();

// The numbers that section and key have, filled up with those of otherwise.
std::vector<int> layout(const std::string &section, const std::string &key, std::vector<int> otherwise);
Point layout_point(const std::string &section, const std::string &key, Point otherwise);

}  // namespace moon
