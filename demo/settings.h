// The settings of GAME.INF: [GAME] LANGUAGE = ZH or EN, SOUND and MUSIC = ON or OFF.
#pragma once

namespace moon {

struct Settings {
    bool sound = true, music = true;
};

Settings &settings();

// Reads the file, and writes it. What is not there keeps its value.
void read_settings();
void write_settings();

}  // namespace moon
