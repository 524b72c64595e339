// Text on the screen, in the font of 24 pixels: Chinese characters are square, letters half as wide.
#pragma once

#include <string>
#include <vector>

namespace moon {

// Loads the fonts; false when there are none.
bool load_fonts();

struct TextStyle {
    int colour = 5;   // of slot 0
    int outline = 1;  // colour of the outline, or -1 for none
    int accent = 14;  // of slot 1: ~C1 in the text
    bool shadow = false;
};

// How high a character and how far apart lines are.
constexpr int kTextHeight = 24, kLineHeight = 28;

// The width of one line in pixels; control sequences take none.
int text_width(const std::string &text);

// Cuts the text into lines of at most that many pixels: English between words, Chinese between characters,
// but never before a closing mark or after an opening one; and so that no short word is left for the last line.
std::vector<std::string> wrap(const std::string &text, int width);

// Prints one line with its top left corner at (x, y), or centred on x.
void print(int x, int y, const std::string &text, const TextStyle &style);
void print_centred(int x, int y, const std::string &text, const TextStyle &style);

}  // namespace moon
