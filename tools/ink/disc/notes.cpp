#include "disc/notes.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

namespace ink::tool {
namespace {

constexpr double kSlack = 1e-6;    // of a beat: thirds add up to whole ones
constexpr double kLongest = 7200;  // beats of a voice, so that a mistyped repetition does not fill the memory

const std::map<std::string, Waveform, std::less<>> kWaveforms{
    {"sine", Waveform::sine}, {"triangle", Waveform::triangle}, {"square", Waveform::square},
    {"saw", Waveform::saw},   {"pluck", Waveform::pluck},       {"noise", Waveform::noise}};

// What a voice's line has reached.
struct Cursor {
    double beat = 0, length = 1, level = 1, bar = 0;
    std::vector<std::size_t> repeats;  // where the brackets that are open began, in notes
};

class Parser {
  public:
    explicit Parser(std::string name) : name_(std::move(name)) {}

    Music parse(std::string_view text) {
        std::istringstream lines{std::string(text)};
        for (std::string line; std::getline(lines, line);) {
            ++line_;
            // A comment begins after a blank, so that a sharp does not.
            for (std::size_t at = 0; (at = line.find('#', at)) != std::string::npos; ++at)
                if (at == 0 || std::isspace(static_cast<unsigned char>(line[at - 1])) != 0) line.resize(at);
            std::istringstream words(line);
            if (std::string word; words >> word) read_line(word, words);
        }
        for (const auto &[voice, cursor] : cursors_)
            if (!cursor.repeats.empty()) fail("voice " + voice + " has a [ without its ]");
        if (music_.voices.empty()) fail("there is no voice");
        return std::move(music_);
    }

  private:
    [[noreturn]] void fail(const std::string &what) const {
        throw std::runtime_error(name_ + ":" + std::to_string(line_) + ": " + what);
    }

    double number(const std::string &text, double least, double most) const {
        std::size_t used = 0;
        double value = 0;
        try {
            value = std::stod(text, &used);
            if (used < text.size() && text[used] == '/') {
                std::size_t more = 0;
                value /= std::stod(text.substr(used + 1), &more);
                used += 1 + more;
            }
        } catch (const std::logic_error &) {
            fail("\"" + text + "\" is no number");
        }
        if (used != text.size() || !(value >= least && value <= most))
            fail("\"" + text + "\" is out of range");
        return value;
    }
    double number(std::istream &words, double least, double most) const {
        std::string word;
        words >> word;
        return number(word, least, most);
    }

    void read_line(const std::string &word, std::istringstream &words) {
        if (word == "title") {
            std::getline(words >> std::ws, music_.title);
        } else if (word == "tempo") {
            music_.tempo = number(words, 10, 1000);
        } else if (word == "meter") {
            meter_ = number(words, 0.25, 64);
        } else if (word == "echo") {
            music_.echo_beats = number(words, 0, 16);
            music_.echo_level = number(words, 0, 90) / 100;
        } else if (word == "voice") {
            read_voice(words);
        } else {
            const auto voice = std::find_if(music_.voices.begin(), music_.voices.end(),
                                            [&](const MusicVoice &v) { return v.name == word; });
            if (voice == music_.voices.end()) fail("there is no voice " + word);
            for (std::string token; words >> token;) read_token(*voice, cursors_[word], token);
        }
    }

    void read_voice(std::istringstream &words) {
        MusicVoice voice;
        words >> voice.name;
        if (voice.name.empty() || cursors_.contains(voice.name)) fail("a voice needs a name of its own");
        for (std::string setting; words >> setting;) {
            const std::size_t equals = std::min(setting.find('='), setting.size() - 1);
            const std::string key = setting.substr(0, equals), value = setting.substr(equals + 1);
            if (key == "wave") {
                const auto waveform = kWaveforms.find(value);
                if (waveform == kWaveforms.end()) fail("there is no wave " + value);
                voice.waveform = waveform->second;
            } else {
                set(voice, key, value);
            }
        }
        cursors_[voice.name] = {};
        music_.voices.push_back(std::move(voice));
    }

    void set(MusicVoice &voice, const std::string &key, const std::string &value) const {
        const struct {
            const char *key;
            double &field;
            double least, most, unit;
        } settings[] = {{"volume", voice.volume, 0, 100, 100},    {"pan", voice.pan, -100, 100, 100},
                        {"attack", voice.attack, 0, 10000, 1000}, {"decay", voice.decay, 0, 10000, 1000},
                        {"sustain", voice.sustain, 0, 100, 100},  {"release", voice.release, 0, 10000, 1000},
                        {"vibrato", voice.vibrato, 0, 200, 100}};
        for (const auto &s : settings)
            if (key == s.key) {
                s.field = number(value, s.least, s.most) / s.unit;
                return;
            }
        fail("a voice has no setting " + key);
    }

    void read_token(MusicVoice &voice, Cursor &cursor, const std::string &token) {
        if (token == "|") {
            const double bar = cursor.beat - cursor.bar;
            if (meter_ > 0 && bar > kSlack && std::abs(bar - meter_) > kSlack) {
                std::ostringstream what;
                what << "the bar has " << bar << " beats, not " << meter_;
                fail(what.str());
            }
            cursor.bar = cursor.beat;
        } else if (token == "[") {
            cursor.repeats.push_back(voice.notes.size());
        } else if (token[0] == ']') {
            repeat(voice, cursor, token.size() > 1 ? number(token.substr(1), 1, 1000) : 2);
        } else if (token[0] == '@') {
            cursor.level = number(token.substr(1), 0, 100) / 100;
        } else {
            read_note(voice, cursor, token);
        }
        if (cursor.beat > kLongest) fail("the voice is too long");
    }

    void repeat(MusicVoice &voice, Cursor &cursor, double times) const {
        if (cursor.repeats.empty()) fail("] without a [");
        const std::vector<Note> once(voice.notes.begin() + static_cast<std::ptrdiff_t>(cursor.repeats.back()),
                                     voice.notes.end());
        cursor.repeats.pop_back();
        for (int i = 1; i < times && !once.empty() && cursor.beat <= kLongest; ++i)
            for (const Note &note : once) append(voice, cursor, note);
        cursor.bar = cursor.beat;
    }

    // pitches[:length][~], the pitches joined with + or a rest -
    void read_note(MusicVoice &voice, Cursor &cursor, std::string token) const {
        Note note{};
        note.level = cursor.level;
        note.tied = token.back() == '~';
        if (note.tied) token.pop_back();
        if (const std::size_t colon = token.find(':'); colon != std::string::npos) {
            cursor.length = number(token.substr(colon + 1), 1.0 / 64, 64);
            token.resize(colon);
        }
        note.length = cursor.length;
        std::istringstream pitches(token);
        if (token != "-")
            for (std::string pitch; std::getline(pitches, pitch, '+');)
                note.pitches.push_back(read_pitch(pitch));
        append(voice, cursor, note);
    }

    static void append(MusicVoice &voice, Cursor &cursor, Note note) {
        note.start = cursor.beat;
        cursor.beat += note.length;
        // What a bracket repeats begins with a note of its own.
        const bool first = !cursor.repeats.empty() && cursor.repeats.back() == voice.notes.size();
        Note *last = first || voice.notes.empty() ? nullptr : &voice.notes.back();
        if (last != nullptr && last->tied && last->pitches == note.pitches) {
            last->length += note.length;
            last->tied = note.tied;
        } else {
            voice.notes.push_back(std::move(note));
        }
    }

    // A letter, sharps and flats, and the octave, of which 4 begins with the middle C.
    int read_pitch(const std::string &pitch) const {
        constexpr int kHalfTones[] = {9, 11, 0, 2, 4, 5, 7};  // A to G above C
        const char letter = pitch.empty() ? '?' : pitch[0];
        if (letter < 'A' || letter > 'G') fail("\"" + pitch + "\" is no note");
        int half_tones = kHalfTones[letter - 'A'];
        std::size_t at = 1;
        for (; at < pitch.size() && (pitch[at] == '#' || pitch[at] == 'b'); ++at)
            half_tones += pitch[at] == '#' ? 1 : -1;
        return half_tones + 12 * (static_cast<int>(number(pitch.substr(at), 0, 9)) + 1);
    }

    std::string name_;
    int line_ = 0;
    double meter_ = 0;
    Music music_;
    std::map<std::string, Cursor> cursors_;
};

}  // namespace

Music parse_notes(std::string_view text, const std::string &name) {
    return Parser(name).parse(text);
}

}  // namespace ink::tool
