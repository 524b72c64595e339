// The panel of dark glass at the bottom of the screen: who speaks, what is said, and answers to choose from.
#pragma once

#include <string>
#include <vector>

namespace moon {

void load_portraits();
void name_speaker(int speaker, const std::string &chinese, const std::string &english);

// Shows what the speaker says, page by page, until it is clicked away.
void say(int speaker, const std::string &text);

// The room of the panel: the pixels of a line, and how many lines a page has in the language that is set.
int panel_text_width(bool narrated);
int panel_lines();

// Lets the player choose one of the answers with pointer or keys; returns its number.
int choose(const std::vector<std::string> &answers);

// Shows a thing that was found.
void show_found(int thing, const std::string &text);

// A frame of glass with a thin golden edge.
void draw_glass(int left, int top, int right, int bottom);

}  // namespace moon
