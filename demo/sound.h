// Sounds on the four channels of the wave family, and music from the disc.
#pragma once

#include <string>

namespace moon {

enum class Sound { kStep, kClick, kChime, kBell, kPage, kSplash };

// The tracks of the disc.
enum Track : int { kDayMusic, kNightMusic, kPaintingMusic };

void load_sounds();
void play(Sound sound);

// Puts the disc into the drive.
void insert_disc(const std::string &sheet);

// Plays the track again and again from now on; the one that plays already goes on.
void play_music(Track track);

// Follows the settings when they were changed.
void adjust_sound();

}  // namespace moon
