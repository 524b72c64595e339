#include "layout.h"

#include <inkstone/inkstone.h>

#include <cstdlib>

namespace moon {

void load_layout() {
    INFO_open_file("layout.inf");
}

std::vector<int> layout(const std::string &section, const std::string &key, std::vector<int> otherwise) {
    char line[255] = {};
    INFO_read_config(section.c_str(), key.c_str(), line);
    std::int32_t at = 0;
    for (int &number : otherwise) {
        char token[16] = {};
        skip_space(line, &at);
        get_str(token, line, &at, 1, 15);
        if (token[0] == 0) break;
        number = std::atoi(token);
    }
    return otherwise;
}

Point layout_point(const std::string &section, const std::string &key, Point otherwise) {
    const std::vector<int> numbers = layout(section, key, {otherwise.x, otherwise.y});
    return {numbers[0], numbers[1]};
}

}  // namespace moon
