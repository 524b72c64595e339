// Wave files, disc images and what the machine lets be heard, for the tests.
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "inkstone/host.h"
#include "support/files.h"

namespace test {

inline Bytes operator+(Bytes a, const Bytes &b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
inline Bytes letters(const std::string &text) {
    return Bytes(text.begin(), text.end());
}
// A RIFF chunk, padded to an even size; a size that is given stands in place of the true one.
inline Bytes chunk(const std::string &name, const Bytes &contents, std::int64_t size = -1) {
    Bytes made = letters(name);
    put(made, size >= 0 ? static_cast<std::uint64_t>(size) : contents.size(), 4);
    made = made + contents;
    if (contents.size() % 2 != 0) made.push_back(0);
    return made;
}
inline Bytes pcm(int channels, int rate, int bits, int tag = 1) {
    Bytes made;
    put(made, tag, 2);
    put(made, channels, 2);
    put(made, rate, 4);
    put(made, rate * channels * bits / 8, 4);
    put(made, channels * bits / 8, 2);
    put(made, bits, 2);
    put(made, 0, 2);
    return made;
}
inline Bytes riff(const Bytes &chunks, const std::string &form = "WAVE") {
    return chunk("RIFF", letters(form) + chunks);
}
inline Bytes wave(int channels, int rate, int bits, const Bytes &samples) {
    return riff(chunk("fmt ", pcm(channels, rate, bits)) + chunk("data", samples));
}
inline Bytes words(const std::vector<int> &samples) {
    Bytes made;
    for (const int sample : samples) put(made, static_cast<std::uint64_t>(sample), 2);
    return made;
}
inline void write_wave(const std::string &name, const std::vector<int> &samples, int rate = 44100) {
    write_file(name, wave(1, rate, 16, words(samples)));
}

// What is heard: frames of left and right.
using Heard = std::vector<std::array<std::int16_t, 2>>;

// Everything heard in the time of that many frames.
inline Heard listen(std::size_t frames) {
    HOST_capture_sound(1);
    HOST_advance_clock((std::uint64_t{frames} * 1000000 + 44099) / 44100);
    Heard heard(frames);
    heard.resize(
        static_cast<std::size_t>(HOST_read_sound(heard.front().data(), static_cast<std::int32_t>(frames))));
    HOST_capture_sound(0);
    return heard;
}
inline std::vector<int> left(const Heard &heard) {
    std::vector<int> made;
    for (const auto &frame : heard) made.push_back(frame[0]);
    return made;
}

}  // namespace test
