// ink disc: discs of wave files and notes, heard by putting them into the machine's drive.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "inkstone/cdaudio.h"
#include "support/sound.h"
#include "support/tool.h"

namespace {

using test::Bytes;
using test::ink;
using test::operator+;

test::Heard track(std::int32_t number, std::size_t frames) {
    EXPECT_EQ(CDROM_play(number), 0);
    return test::listen(frames);
}
// What ink disc render makes of the notes, one side.
std::vector<int> play(const std::string &notes) {
    test::write_text("a.notes", notes);
    EXPECT_EQ(ink("disc render a.notes -o a.wav"), 0) << test::read_text("err");
    const Bytes file = test::read_file("a.wav");
    std::vector<int> left;
    for (std::size_t i = 44; i + 4 <= file.size(); i += 4)
        left.push_back(static_cast<std::int16_t>(file[i] | file[i + 1] << 8));
    return left;
}
// How strong that frequency is in some frames.
double strength(const std::vector<int> &sound, std::size_t from, std::size_t count, double frequency) {
    double real = 0, imaginary = 0;
    for (std::size_t i = from; i < std::min(from + count, sound.size()); ++i) {
        const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(i) / 44100;
        real += sound[i] * std::cos(angle);
        imaginary += sound[i] * std::sin(angle);
    }
    return 2 * std::hypot(real, imaginary) / static_cast<double>(count);
}

TEST(DiscTool, BuildsADiscOfWaveFilesOfAllKinds) {
#if defined(_WIN32)
    GTEST_SKIP() << "this ink changes no rates";
#endif
    Bytes floats, wide, extensible = test::pcm(2, 44100, 24, 0xFFFE) + Bytes(6);
    for (const float value : {0.5F, -1.0F, 2.0F}) test::put(floats, std::bit_cast<std::uint32_t>(value), 4);
    for (const double value : {-0.25, 0.0, 1.0}) test::put(wide, std::bit_cast<std::uint64_t>(value), 8);
    test::put(extensible, 1, 2);
    const auto wave = [](const Bytes &format, const Bytes &data) {
        return test::riff(test::chunk("fmt ", format) + test::chunk("data", data));
    };
    const std::pair<Bytes, test::Heard> cases[] = {
        {wave(test::pcm(2, 44100, 16), test::words({1, -2, 32767, -32768, 5, 6})),
         {{1, -2}, {32767, -32768}, {5, 6}}},
        {wave(test::pcm(1, 44100, 8), {128, 0, 255}), {{0, 0}, {-32768, -32768}, {32512, 32512}}},
        {wave(extensible, {0, 1, 0, 0, 255, 255, 0, 0, 128, 255, 255, 127}),
         {{1, -1}, {-32768, 32767}, {0, 0}}},
        {wave(test::pcm(3, 44100, 32), Bytes(2) + test::words({7, 0, 8, 0, 9})), {{7, 8}, {0, 0}, {0, 0}}},
        {wave(test::pcm(1, 44100, 32, 3), floats), {{16384, 16384}, {-32768, -32768}, {32767, 32767}}},
        {wave(test::pcm(1, 44100, 64, 3), wide), {{-8192, -8192}, {0, 0}, {32767, 32767}}},
        {wave(test::pcm(1, 22050, 16), test::words(std::vector<int>(600, 1000))), {}},
    };
    std::string names;
    for (const auto &[file, heard] : cases) {
        const std::string name = std::to_string(names.size()) + ".wav";
        test::write_file(name, file);
        names += " " + name;
    }
    std::filesystem::create_directory("disc");
    ASSERT_EQ(ink("disc build --gap 0.1 -o disc/music.cue" + names), 0) << test::read_text("err");
    ASSERT_EQ(HOST_insert_disc("disc/music.cue"), 0);
    CDROM_open();
    ASSERT_EQ(CDROM_total(), std::ssize(cases));
    EXPECT_EQ(CDROM_track_time(1), 9U);  // one sector, and the gap of eight before the next track
    EXPECT_EQ(CDROM_track_time(6), 3U);  // 1200 frames
    for (std::int32_t i = 0; i < 6; ++i) EXPECT_EQ(track(i, 3), cases[i].second) << i;
    EXPECT_EQ(track(6, 1100)[500], (std::array<std::int16_t, 2>{1000, 1000}));
}

TEST(DiscTool, PlaysNotes) {
    // At 120 beats a minute a beat lasts 22050 frames.
    const std::vector<int> sound = play(
        "tempo 120\nmeter 5/2\nvoice v wave=sine release=0  # a voice\nv A4:1 - C#5+E5:1/2~ | C#5+E5 [ "
        "Bb3:1/4 "
        "- ]3\n");
    const std::pair<double, double> heard[] = {{0.1, 440},      {2.2, 554.365},  {2.2, 659.255},
                                               {3.05, 233.082}, {3.55, 233.082}, {4.05, 233.082}};
    ASSERT_EQ(sound.size(), 22050U * 9 / 2);
    for (const auto &[beat, frequency] : heard) {
        const auto from = static_cast<std::size_t>(beat * 22050);
        EXPECT_GT(strength(sound, from, 4000, frequency), 3000) << beat;
        EXPECT_LT(strength(sound, from, 4000, frequency * 1.1), 2500) << beat;
    }
    for (const char *wave : {"triangle", "square", "saw", "pluck"}) {
        const std::vector<int> tone = play(std::string("voice v decay=5000 wave=") + wave + "\nv A4:4\n");
        for (const double off : {438.0, 442.0})
            EXPECT_GT(strength(tone, 2000, 40000, 440), 2 * strength(tone, 2000, 40000, off)) << wave;
    }
    for (const double beat : {1.5, 3.3, 3.8, 4.3})
        EXPECT_EQ(sound[static_cast<std::size_t>(beat * 22050)], 0);
    int peak = 0, step = 0;
    for (std::size_t i = 1; i < sound.size(); ++i) peak = std::max(peak, std::abs(sound[i]));
    for (std::size_t i = 50000; i < 60000; ++i) step = std::max(step, std::abs(sound[i] - sound[i - 1]));
    EXPECT_NEAR(peak, 0.84 * 32768, 400);
    EXPECT_LT(step, 4000);  // the tied notes are one: no attack where the bar ends
}

TEST(DiscTool, RefusesWhatItCannotReadAndWritesNothing) {
    const std::pair<const char *, const char *> cases[] = {
        {"", "ink: a.notes: there is no voice\n"},
        {"voice v\nw A4\n", "a.notes:2:1: there is no voice w\n"},
        {"voice piano\r\n paino A4\r\n", "a.notes:2:2: there is no voice paino; did you mean \"piano\"?\n"},
        {"voice v volume=101\n", "a.notes:1:9: \"101\" is out of range\n"},
        {"voice v wave\n", "a.notes:1:9: a setting is written NAME=VALUE\n"},
        {"voice v\nv A4 H4\n", "a.notes:2:6: \"H4\" is no note\n"},
        {"voice v\nv A4:1/0\n", "a.notes:2:3: \"1/0\" is out of range\n"},
        {"voice v\nv [ A4\n", "a.notes:2:5: voice v has a [ without its ]\n"},
        {"voice v\nv A4 ]\n", "a.notes:2:6: ] without a [\n"},
        {"voice v\nv [ [ [ A4:64 ]1000 ]1000 ]1000\n", "a.notes:2:15: the voice is too long\n"},
        {"meter 4\nvoice v\nv A4:1 A4 A4 | A4\n", "a.notes:3:14: the bar has 3 beats, not 4\n"},
    };
    for (const auto &[notes, message] : cases) {
        test::write_text("a.notes", notes);
        EXPECT_EQ(ink("disc build a.notes -o a.cue"), 1) << notes;
        EXPECT_TRUE(test::read_text("err").starts_with(message)) << test::read_text("err");
    }
    test::write_file("b.wav", test::riff(test::chunk("fmt ", test::pcm(1, 44100, 16, 85)) +
                                         test::chunk("data", Bytes(4))));
    test::write_file(
        "c.wav", test::riff(test::chunk("fmt ", test::pcm(1, 44100, 16)) + test::chunk("data", {1}, 1000)));
    for (const char *name : {"b.wav", "c.wav", "none.wav"}) {
        EXPECT_EQ(ink(std::string("disc build ") + name + " -o a.cue"), 1);
        EXPECT_TRUE(test::read_text("err").starts_with(std::string("ink: ") + name))
            << test::read_text("err");
    }
    EXPECT_FALSE(test::exists("a.cue") || test::exists("a.bin"));
}

}  // namespace
