#include "disc/synthesizer.h"

#include <memory>
#include <numbers>
#include <random>

namespace ink::tool {
namespace {

using Sound = std::vector<std::array<double, 2>>;

constexpr double kRate = kTrackRate;
constexpr double kLoudest = 0.84;  // 1.5 decibels below full scale
constexpr double kInaudible = 0.002;

std::size_t frames(double seconds) {
    return static_cast<std::size_t>(std::lround(seconds * kRate));
}

// A number of -1 to 1, the same row of them on every machine.
double random(std::minstd_rand &generator) {
    return 2.0 * static_cast<double>(generator() - std::minstd_rand::min()) /
               static_cast<double>(std::minstd_rand::max() - std::minstd_rand::min()) -
           1;
}

class Oscillator {
  public:
    virtual ~Oscillator() = default;
    // The next sample, at that frequency.
    virtual double next(double frequency) = 0;
};

class Wave final : public Oscillator {
  public:
    explicit Wave(Waveform waveform) : waveform_(waveform) {}

    double next(double frequency) override {
        const double step = frequency / kRate, at = phase_;
        phase_ = std::fmod(phase_ + step, 1);
        switch (waveform_) {
            case Waveform::triangle: return 1 - 4 * std::abs(std::fmod(at + 0.25, 1) - 0.5);
            case Waveform::square:
                return (at < 0.5 ? 1 : -1) + smooth(at, step) - smooth(std::fmod(at + 0.5, 1), step);
            case Waveform::saw: return 2 * at - 1 - smooth(at, step);
            case Waveform::noise: return random(generator_);
            default: return std::sin(2 * std::numbers::pi * at);
        }
    }

  private:
    // What a jump of the wave at phase 0 lacks to a bandlimited one (the polynomial BLEP).
    static double smooth(double at, double step) {
        if (at < step) return -(at / step - 1) * (at / step - 1);
        if (at > 1 - step) return ((at - 1) / step + 1) * ((at - 1) / step + 1);
        return 0;
    }

    Waveform waveform_;
    double phase_ = 0;
    std::minstd_rand generator_{1};
};

// A plucked string after Karplus and Strong: a burst of noise goes round a delay of one period and loses its
// high tones.
class String final : public Oscillator {
  public:
    String(double frequency, double decay) {
        // The averaging below delays by half a sample, the all-pass by the part of one that the line cannot.
        const double period = kRate / frequency - 0.5;
        const auto length = static_cast<std::size_t>(std::max(2.0, std::floor(period - 0.1)));
        const double part = period - static_cast<double>(length);
        all_pass_ = (1 - part) / (1 + part);
        loss_ = std::exp(-1 / (frequency * std::max(decay, 0.01)));
        std::minstd_rand generator(static_cast<unsigned>(frequency));
        // The burst is dulled, as by a finger, and has no constant part, which would go round for long.
        double before = 0, sum = 0;
        for (std::size_t i = 0; i < length; ++i) {
            line_.push_back(before = 0.6 * before + 0.4 * random(generator));
            sum += before;
        }
        for (double &sample : line_) sample -= sum / static_cast<double>(length);
    }

    double next(double) override {
        double &place = line_[at_];
        at_ = (at_ + 1) % line_.size();
        const double out = place, average = loss_ * 0.5 * (out + last_);
        last_ = out;
        passed_ = all_pass_ * (average - passed_) + last_average_;
        last_average_ = average;
        place = passed_;
        return out;
    }

  private:
    std::vector<double> line_;
    std::size_t at_ = 0;
    double all_pass_ = 0, loss_ = 1, last_ = 0, passed_ = 0, last_average_ = 0;
};

// Attack and decay to the sustained level, until the note is let go after length seconds. A string dies away
// by itself.
double envelope(const MusicVoice &voice, double time, double length) {
    const auto held = [&](double at) {
        if (at < voice.attack) return at / voice.attack;
        if (voice.waveform == Waveform::pluck) return 1.0;
        if (voice.decay <= 0) return voice.sustain;
        return voice.sustain + (1 - voice.sustain) * std::exp(-5 * (at - voice.attack) / voice.decay);
    };
    if (time < length) return held(time);
    return voice.release > 0 ? held(length) * std::exp(-5 * (time - length) / voice.release) : 0;
}

void play(const MusicVoice &voice, const Note &note, int pitch, double beat, Sound &sound) {
    constexpr double kVibratoRate = 5.5, kVibratoDelay = 0.25;
    const double length = note.length * beat, frequency = 440 * std::exp2((pitch - 69) / 12.0);
    if (frequency > kRate / 4) return;
    std::unique_ptr<Oscillator> oscillator;
    if (voice.waveform == Waveform::pluck)
        oscillator = std::make_unique<String>(frequency, voice.decay);
    else
        oscillator = std::make_unique<Wave>(voice.waveform);
    // Equally loud wherever between the sides it stands.
    const double angle = (voice.pan + 1) * std::numbers::pi / 4, level = voice.volume * note.level;
    const std::array<double, 2> sides{level * std::cos(angle), level * std::sin(angle)};
    const std::size_t first = frames(note.start * beat), count = frames(length + voice.release);
    if (sound.size() < first + count) sound.resize(first + count);
    for (std::size_t i = 0; i < count; ++i) {
        const double time = static_cast<double>(i) / kRate;
        const double sway = voice.vibrato * std::min(1.0, time / kVibratoDelay) *
                            std::sin(2 * std::numbers::pi * kVibratoRate * time);
        const double value =
            oscillator->next(frequency * std::exp2(sway / 12)) * envelope(voice, time, length);
        sound[first + i][0] += value * sides[0];
        sound[first + i][1] += value * sides[1];
    }
}

// Repeats what was heard after a while, softer and softer, from side to side.
void add_echo(Sound &sound, std::size_t delay, double level) {
    if (delay == 0 || level <= 0) return;
    std::size_t repeats = 0;
    for (double heard = 1; heard > kInaudible; heard *= level) ++repeats;
    sound.resize(sound.size() + delay * repeats);
    for (std::size_t i = delay; i < sound.size(); ++i)
        for (std::size_t side = 0; side < 2; ++side) sound[i][side] += level * sound[i - delay][1 - side];
}

}  // namespace

Track play_notes(const Music &music) {
    const double beat = 60 / music.tempo;
    Sound sound;
    for (const MusicVoice &voice : music.voices) {
        for (const Note &note : voice.notes) {
            for (const int pitch : note.pitches) play(voice, note, pitch, beat, sound);
            // A rest at the end belongs to the music, too.
            sound.resize(std::max(sound.size(), frames((note.start + note.length) * beat)));
        }
    }
    add_echo(sound, frames(music.echo_beats * beat), music.echo_level);

    double peak = 0;
    for (const auto &frame : sound) peak = std::max({peak, std::abs(frame[0]), std::abs(frame[1])});
    const double scale = peak > 0 ? kLoudest / peak : 0;
    Track track;
    for (const auto &frame : sound)
        track.push_back({to_sample(scale * frame[0]), to_sample(scale * frame[1])});
    return track;
}

}  // namespace ink::tool
