// The state of a play: the variables of the script, and nothing else, so that what the script system saves is
// a whole saved game. content/script/commands.mas gives the same places their names there.
#pragma once

#include <string>

namespace moon {

enum Variable : int {
    kPlace = 0,
    kNight = 1,  // 0 by day, 1 by night
    kHeroX = 2,
    kHeroY = 3,
    kHeroMirrored = 4,
    kHeld = 5,      // the thing in the hand, 0 for none
    kFinished = 6,  // 1 once the moon has risen
    kMoonlit = 7,
    kKiteDown = 20,
    kLanternsLit = 21,
    kFirstThing = 10,  // thing t is carried when variable 10 + t is 1
    kName = 40,        // a letter each, up to a 0
    kVariables = 64,
};

enum Thing : int { kNoThing, kInkstone, kTea, kKite, kOil, kBrush, kPaper, kInkStick, kPainting, kThings };

enum Place : int { kStudy, kMarket, kLake };

int get(Variable variable);
void set(Variable variable, int value);

bool carries(int thing);

// The name that was typed; what the game says when none was is in player_name.
constexpr int kLongestName = 10;
std::string typed_name();
void set_name(const std::string &name);
std::string player_name();

}  // namespace moon
