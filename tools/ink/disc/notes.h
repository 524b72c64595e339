// Music as text: voices and their notes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ink::tool {

enum class Waveform { sine, triangle, square, saw, pluck, noise };

struct Note {
    double start, length;      // beats
    std::vector<int> pitches;  // half tones, 69 is the A of 440 Hz; several sound together, none is a rest
    double level;              // 0 to 1
    bool tied;                 // goes on in the next note of the same pitches
};

struct MusicVoice {
    std::string name;
    Waveform waveform = Waveform::sine;
    double volume = 0.7, pan = 0;                                     // 0 to 1; -1 left to 1 right
    double attack = 0.01, decay = 0.1, sustain = 0.7, release = 0.1;  // seconds, but sustain: 0 to 1
    double vibrato = 0;                                               // half tones
    std::vector<Note> notes;
};

struct Music {
    std::string title;
    double tempo = 120;                     // beats a minute
    double echo_beats = 0, echo_level = 0;  // 0 to 1
    std::vector<MusicVoice> voices;
};

// Reads music from the text of a notes file. Throws SourceError, which names the place, for a text that is
// none.
Music parse_notes(std::string_view text, const std::string &name);

}  // namespace ink::tool
