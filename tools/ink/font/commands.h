// The two halves of `ink font`.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "text/font_layout.h"

namespace ink::tool {

struct FontBuild {
    // For each font the files it is made from, the first choice first; none stands for the usual ones.
    std::array<std::vector<std::string>, text::kFontCount> sources;
    std::filesystem::path directory = ".";
    bool quiet = false;
};
void build_fonts(const FontBuild &build);

struct FontShow {
    std::filesystem::path directory = ".", picture;
    std::string page, text;  // the lead byte of a page in hexadecimal, or a text in UTF-8
    int size = 24;
};
void show_font(const FontShow &show);

}  // namespace ink::tool
