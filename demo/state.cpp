#include "state.h"

#include <inkstone/inkstone.h>

#include "language.h"
#include "words.h"

namespace moon {

int get(Variable variable) {
    return MAC_get_variable(variable);
}

void set(Variable variable, int value) {
    MAC_set_variable(variable, value);
}

bool carries(int thing) {
    return MAC_get_variable(kFirstThing + thing) == 1;
}

std::string typed_name() {
    std::string name;
    for (int i = 0; i < kLongestName; ++i) {
        const int letter = MAC_get_variable(kName + i);
        if (letter <= ' ' || letter > '}') break;
        name += static_cast<char>(letter);
    }
    return name;
}

void set_name(const std::string &name) {
    for (std::size_t i = 0; i <= kLongestName; ++i)
        MAC_set_variable(kName + static_cast<int>(i), i < name.size() ? name[i] : 0);
}

std::string player_name() {
    const std::string name = typed_name();
    if (!name.empty()) return name;
    return language() == Language::kChinese ? DEFAULT_NAME_ZH : DEFAULT_NAME_EN;
}

}  // namespace moon
