// A play without a person: the kept one, which checks itself, or that of the scripted player, which makes it.
#pragma once

#include <cstdint>
#include <string>

namespace moon {

struct Tour {
    std::string pictures = "demo-pictures";  // the directory of its pictures and its sound
    bool scripted = false;                   // play anew, even where a play is kept
    int half = 0;                            // 1 plays as far as it saves, 2 loads that and plays on
};

// Before anything else: takes up the play that is kept in content, and gives the tour a directory of its own, in which
// nobody else's game is found. False when that play cannot be run.
bool begin_tour(const Tour &tour, const std::string &content);

// Once there is a window: the player plays in every frame.
void let_player_play(const Tour &tour, std::int32_t frame_list);

// Writes the sound down, and says whether the play came to its end.
bool end_tour();

}  // namespace moon
