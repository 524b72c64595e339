#include "disc/notes.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

#include "files/file.h"
#include "files/source.h"

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
        const std::vector<Place> lines = lines_of(name_, text);
        require_utf8(lines);
        for (const Place &line : lines) {
            line_ = line;
            words_ = words_of(line.line);
            next_ = 0;
            if (!words_.empty()) read_line(take("a word"));
        }
        for (const auto &[voice, cursor] : cursors_)
            if (!cursor.repeats.empty()) fail("voice " + voice + " has a [ without its ]");
        if (music_.voices.empty()) throw FileError(path_of(name_), "there is no voice");
        return std::move(music_);
    }

  private:
    struct Word {
        std::string text;
        std::size_t column;
    };

    // A comment begins after a blank, so that a sharp does not.
    static std::vector<Word> words_of(std::string_view line) {
        std::vector<Word> words;
        for (std::size_t at = 0; at < line.size();) {
            if (line[at] == ' ' || line[at] == '\t') {
                ++at;
                continue;
            }
            if (line[at] == '#') break;
            const std::size_t end = std::min(line.find_first_of(" \t", at), line.size());
            words.push_back({std::string(line.substr(at, end - at)), at});
            at = end;
        }
        return words;
    }

    [[noreturn]] void fail(const std::string &what) const {
        Place place = line_;
        place.column = next_ > 0 ? words_[next_ - 1].column : 0;
        throw SourceError(place, what);
    }

    bool more() const { return next_ < words_.size(); }
    const std::string &take(const char *what) {
        if (!more()) fail(std::string("expected ") + what + " after this");
        return words_[next_++].text;
    }

    double number(const std::string &text, double least, double most) const {
        std::size_t used = 0;
        double value = 0;
        try {
            value = std::stod(text, &used);
            if (used < text.size() && text[used] == '/') {
                std::size_t part = 0;
                value /= std::stod(text.substr(used + 1), &part);
                used += 1 + part;
            }
        } catch (const std::logic_error &) {
            fail("\"" + text + "\" is no number");
        }
        if (used != text.size() || !(value >= least && value <= most))
            fail("\"" + text + "\" is out of range");
        return value;
    }
    double number(double least, double most) { return number(take("a number"), least, most); }

    void read_line(const std::string &word) {
        if (word == "title") {
            take("a title");
            music_.title = line_.line.substr(words_[1].column);
            music_.title.erase(music_.title.find_last_not_of(" \t") + 1);
            return;
        }
        if (word == "tempo") {
            music_.tempo = number(10, 1000);
        } else if (word == "meter") {
            meter_ = number(0.25, 64);
        } else if (word == "echo") {
            music_.echo_beats = number(0, 16);
            music_.echo_level = number(0, 90) / 100;
        } else if (word == "voice") {
            read_voice();
        } else {
            const auto voice = std::ranges::find(music_.voices, word, &MusicVoice::name);
            if (voice == music_.voices.end())
                fail("there is no voice " + word + suggestion(word, beginnings()));
            Cursor &cursor = cursors_[word];
            while (more()) read_token(*voice, cursor, take("a note"));
        }
        if (more()) {
            ++next_;
            fail("nothing follows here");
        }
    }

    std::vector<std::string> beginnings() const {
        std::vector<std::string> words{"title", "tempo", "meter", "echo", "voice"};
        for (const MusicVoice &voice : music_.voices) words.push_back(voice.name);
        return words;
    }

    void read_voice() {
        MusicVoice voice;
        voice.name = take("a name");
        if (cursors_.contains(voice.name)) fail("there is a voice " + voice.name + " already");
        while (more()) {
            const std::string &setting = take("a setting");
            const std::size_t equals = setting.find('=');
            if (equals == std::string::npos) fail("a setting is written NAME=VALUE");
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
        std::vector<std::string> known{"wave"};
        for (const auto &s : settings) {
            if (key == s.key) {
                s.field = number(value, s.least, s.most) / s.unit;
                return;
            }
            known.emplace_back(s.key);
        }
        fail("a voice has no setting " + key + suggestion(key, known));
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
    Place line_;
    std::vector<Word> words_;  // of the line
    std::size_t next_ = 0;     // the word that is read next
    double meter_ = 0;
    Music music_;
    std::map<std::string, Cursor> cursors_;
};

}  // namespace

Music parse_notes(std::string_view text, const std::string &name) {
    return Parser(name).parse(text);
}

}  // namespace ink::tool
