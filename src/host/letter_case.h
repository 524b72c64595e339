// Names that differ only in the case of the letters a to z are the same name; other characters have no case.
#pragma once

#include <algorithm>
#include <string_view>

namespace ink::host {

constexpr char capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

inline bool equal_ignoring_case(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return capital(x) == capital(y); });
}

}  // namespace ink::host
