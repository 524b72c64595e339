// Wave sound: the samples that are heard, the files that load and do not, the order of platform calls.
#include "inkstone/wave.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <tuple>

#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "support/calls.h"
#include "support/injection.h"
#include "support/new_process.h"
#include "support/sound.h"

namespace {

using test::Bytes;
using test::operator+;

std::vector<int> noise(std::size_t count) {
    std::vector<int> made;
    std::uint32_t state = 7;
    for (std::size_t i = 0; i < count; ++i)
        made.push_back(static_cast<int>((state = state * 1664525 + 1013904223) >> 8) % 40000 - 20000);
    return made;
}

TEST(Wave, IsHeardSampleBySampleAndSummed) {
    DS_init(nullptr);
    const std::tuple<int, int, Bytes, test::Heard> cases[] = {
        {1, 8, {128, 255, 0, 64}, {{0, 0}, {32512, 32512}, {-32768, -32768}, {-16384, -16384}}},
        {2, 8, {128, 255, 0, 64}, {{0, 32512}, {-32768, -16384}, {0, 0}, {0, 0}}},
        {1, 16, test::words({1, -2, 32767, -32768}), {{1, 1}, {-2, -2}, {32767, 32767}, {-32768, -32768}}},
        {2, 16, test::words({1, -2, 32767, -32768}), {{1, -2}, {32767, -32768}, {0, 0}, {0, 0}}},
        {2, 16, test::words({1, -2, 3}), {{1, -2}, {0, 0}, {0, 0}, {0, 0}}},  // half a frame is none
        // Of wider samples the upper 16 bits, rounded.
        {2, 24, {127, 1, 0, 128, 1, 0, 0, 0, 128, 255, 255, 127}, {{1, 2}, {-32768, 32767}, {0, 0}, {0, 0}}},
        {1, 32, {9, 127, 254, 255, 0, 128, 254, 255}, {{-2, -2}, {-1, -1}, {0, 0}, {0, 0}}},
    };
    for (const auto &[channels, bits, samples, heard] : cases) {
        test::write_file("a.wav", test::wave(channels, 44100, bits, samples));
        ASSERT_EQ(DS_load_wave_channel("a.wav", 0), 0);
        for (int i = 0; i < 2; ++i) {  // from its start again when it has ended by itself
            DS_start(0, 0);
            EXPECT_EQ(DS_status(0), -2);
            EXPECT_EQ(test::listen(4), heard);
            EXPECT_EQ(DS_status(0), 0);
        }
    }
    // Two are summed, and the sum is clamped.
    test::write_wave("a.wav", {1000, -7, 30000, -30000});
    test::write_wave("b.wav", {-1, 50, 30000, -30000});
    DS_load_wave_channel("a.wav", 0);
    DS_load_wave_channel("b.wav", 3);
    DS_start(0, 0);
    DS_start(3, 0);
    EXPECT_EQ(test::left(test::listen(4)), (std::vector<int>{999, 43, 32767, -32768}));
}

TEST(Wave, LoopHasNoGapAndRestartsWhenStartedAgain) {
    DS_init(nullptr);
    const std::vector<int> sound = noise(441);
    test::write_wave("a.wav", sound);
    DS_load_wave_channel("a.wav", 2);
    DS_start(2, 1);
    const auto expect = [&](std::size_t from, std::size_t count) {
        const std::vector<int> heard = test::left(test::listen(count));
        for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(heard[i], sound[(from + i) % 441]) << i;
    };
    expect(0, 1323);
    HOST_advance_clock(3600'000'000 + 2268);  // an hour and 100.02 frames that nobody listens to
    EXPECT_EQ(DS_status(2), -2);
    expect(100, 800);
    DS_start(2, 0);  // begins again, and goes on looping; the 5 ms that fade out are past then
    test::listen(230);
    expect(230, 600);
}

TEST(Wave, StopKeepsThePlaceAndDoesNotClick) {
    DS_init(nullptr);
    test::write_wave("a.wav", std::vector<int>(4410, 10000));
    DS_load_wave("a.wav");
    DS_start(0, 0);
    EXPECT_EQ(test::left(test::listen(1000)), std::vector<int>(1000, 10000));
    DS_stop(0);
    EXPECT_EQ(DS_status(0), 0);
    const std::vector<int> stopped = test::left(test::listen(300));
    DS_start(0, 0);
    const std::vector<int> going = test::left(test::listen(3411));
    for (std::size_t i = 1; i < 300; ++i) {
        EXPECT_LE(stopped[i], stopped[i - 1]);
        EXPECT_LT(stopped[i - 1] - stopped[i], 60) << i;
        EXPECT_LT(std::abs(going[i] - going[i - 1]), 60) << i;
    }
    EXPECT_EQ(stopped.back(), 0);
    EXPECT_EQ(going[3409], 10000);  // 1000 frames were heard before, 3410 after
    EXPECT_EQ(going[3410], 0);
}

TEST(Wave, VolumeAttenuates) {
    DS_init(nullptr);
    const std::vector<int> sound = noise(500);
    test::write_wave("a.wav", sound);
    DS_load_wave("a.wav");
    const std::tuple<int, int, double> cases[] = {
        {-600, -600, 0.5012}, {-2000, -2000, 0.1}, {500, 0, 1}, {-20000, -10000, 0}, {0, 0, 1}};
    for (const auto &[asked, set, factor] : cases) {
        test::record_calls();
        DS_set_volume(0, asked);
        EXPECT_EQ(test::take_calls(), test::Calls{"set_buffer_volume 1 " + std::to_string(set)});
        DS_start(0, 0);
        const std::vector<int> heard = test::left(test::listen(500));
        for (std::size_t i = 0; i < heard.size(); ++i) ASSERT_NEAR(heard[i], sound[i] * factor, 1);
    }
    DS_start(0, 1);
    test::listen(10);
    DS_set_volume(0, -10000);  // while it plays it glides there
    EXPECT_NE(test::left(test::listen(230)), std::vector<int>(230, 0));
    EXPECT_EQ(test::left(test::listen(500)), std::vector<int>(500, 0));
}

// The power of what differs from the ideal sine, and of the sine, as a ratio in decibels.
double signal_to_noise(int rate, double frequency, double amplitude) {
    std::vector<int> sound;
    for (int i = 0; i < rate; ++i) {
        const double angle = 2 * std::numbers::pi * frequency * i / rate;
        sound.push_back(static_cast<int>(std::lround(amplitude * std::sin(angle))));
    }
    test::write_wave("a.wav", sound, rate);
    DS_load_wave_channel("a.wav", 0);
    DS_start(0, 1);  // whole periods: the loop's seam must not be heard either
    const std::vector<int> heard = test::left(test::listen(88200));
    DS_stop(0);
    test::listen(300);
    double error = 0;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(i) / 44100;
        const double ideal = frequency < 22050 ? amplitude * std::sin(angle) : 0;
        error += (heard[i] - ideal) * (heard[i] - ideal);
    }
    return 10 * std::log10(amplitude * amplitude / 2 * static_cast<double>(heard.size()) / error);
}

TEST(Wave, EveryRateIsResampledWell) {
    DS_init(nullptr);
    for (const auto &[rate, frequency] : {std::pair{8000, 1000},
                                          {11025, 3000},
                                          {22050, 8000},
                                          {44100, 15000},
                                          {48000, 15000},
                                          {200000, 5000}})
        EXPECT_GT(signal_to_noise(rate, frequency, 30000), 80) << rate << ' ' << frequency;
    // What the mix cannot carry must not come back as another tone.
    EXPECT_GT(signal_to_noise(96000, 30000, 30000), 80);
    EXPECT_GT(signal_to_noise(200000, 90000, 30000), 80);
}

// One channel is added up many samples at once, two are not: the same sound comes out of both, at its loudest, too.
TEST(Wave, OneChannelIsHeardAsTwoEqualOnes) {
    DS_init(nullptr);
    for (const int rate : {100, 22050, 48000, 132300, 200000}) {
        std::vector<int> one = noise(3000), two;
        for (std::size_t i = 500; i < 1500; ++i) one[i] = i / 7 % 2 == 0 ? 32767 : -32768;
        for (const int sample : one) two.insert(two.end(), 2, sample);
        test::write_file("one.wav", test::wave(1, rate, 16, test::words(one)));
        test::write_file("two.wav", test::wave(2, rate, 16, test::words(two)));
        test::Heard heard[2];
        for (int channels = 0; channels < 2; ++channels) {
            DS_load_wave_channel(channels == 0 ? "one.wav" : "two.wav", 0);
            DS_start(0, 1);
            heard[channels] = test::listen(4000);
            DS_stop(0);
            test::listen(300);  // what fades
        }
        EXPECT_EQ(heard[0], heard[1]) << rate;
    }
}

TEST_IN_NEW_PROCESS(Wave, MakesItsPlatformCallsInOrder) {
    test::record_calls();
    DS_init(nullptr);
    DS_init(nullptr);  // closes the device first
    EXPECT_EQ(test::take_calls(), (test::Calls{"create_sound", "set_cooperative_level 0", "release_sound",
                                               "create_sound", "set_cooperative_level 0"}));
    test::write_file("a.wav", test::wave(2, 22050, 8, Bytes(1000)));
    test::record_calls();
    DS_load_wave_channel("a.wav", 3);
    DS_start(3, 1);
    DS_start(3, 0);
    DS_stop(3);
    DS_stop(3);
    DS_start(3, 0);
    DS_load_wave_channel("a.wav", 3);
    ExecQuitProc();
    DS_destroy();
    EXPECT_EQ(test::take_calls(),
              (test::Calls{"create_buffer 2 22050 8 1000", "lock_buffer 1", "unlock_buffer 1",
                           "buffer_status 1", "play_buffer 1 1", "buffer_status 1", "set_buffer_position 1 0",
                           "stop_buffer 1", "buffer_status 1", "play_buffer 1 0", "stop_buffer 1",
                           "release_buffer 1", "create_buffer 2 22050 8 1000", "lock_buffer 2",
                           "unlock_buffer 2", "release_buffer 2", "release_sound"}));
}

TEST(Wave, GetsOverLostMemoryAndUnknownStatus) {
    DS_init(nullptr);
    test::write_wave("a.wav", {5, 6});
    HOST_observe([](const char *call) -> std::int32_t {
        test::calls.emplace_back(call);
        return test::calls.size() == 2 ? 2 : test::calls.back().starts_with("buffer_status") ? 1 : 0;
    });
    EXPECT_EQ(DS_load_wave("a.wav"), 0);
    DS_start(0, 1);
    EXPECT_EQ(DS_status(0), 0);
    DS_start(0, 0);
    EXPECT_EQ(test::take_calls(),
              (test::Calls{"create_buffer 1 44100 16 4", "lock_buffer 1", "restore_buffer 1", "lock_buffer 1",
                           "unlock_buffer 1", "buffer_status 1", "play_buffer 1 1", "buffer_status 1",
                           "buffer_status 1", "play_buffer 1 0"}));
    EXPECT_EQ(test::left(test::listen(3)), (std::vector<int>{5, 6, 0}));
}

TEST(WaveDeath, BearsEveryRefusal) {
    const HWND window = HOST_open_window("w", 8, 8, nullptr);
    test::write_wave("a.wav", std::vector<int>(20, 1000), 22050);
    std::int32_t result = 0;
    const auto outcome = [&] {
        return std::to_string(result) + (test::listen(2)[1][0] != 0 ? " heard" : "");
    };
    const auto play = [&] {
        for (int i = 0; i < 2; ++i) DS_start(0, 1);
        DS_set_volume(0, 0);
    };
    test::inject(
        {.group = "DS_init, DS_load_wave_channel, DS_start, DS_set_volume",
         .use = [&] { DS_init(window), result = DS_load_wave_channel("a.wav", 0), play(); },
         .outcome = outcome,
         .right = "0 heard",
         .memory = {"-2| ERROR : memory alloc error(DS)", "ends: SystemError: DS: CreateSoundBuffer error"},
         .files = {"-2", "-2| ERROR : a.wav not a WAVE file(DS)", "-2| ERROR : error open file a.wav (DS)"},
         .machine = {"ends: ", "ends: SystemError: Create DirectSound error",
                     "ends: SystemError: DS: Cannot set current position",
                     "ends: SystemError: DS: Cannot start playing",
                     "ends: SystemError: DS: CreateSoundBuffer error",
                     "ends: SystemError: DS: DirectSoundBuffer Lock error",
                     "ends: SystemError: DS: DirectSoundBuffer Unlock error",
                     "ends: SystemError: DS: can not set volume",
                     "ends: SystemError: Set DirectSound CooperativeLevel error"},
         .prepare = [] { DS_destroy(), HOST_advance_clock(1000000); },  // what fades out is past
         .in_process_of_its_own = true});
    test::inject(
        {.group = "DS_load_wave, DS_start, DS_stop, DS_status, DS_unload_wave, DS_destroy",
         .use =
             [&] {
                 result = DS_load_wave("a.wav"), play();
                 DS_stop(0), DS_start(0, 1), DS_status(0);
                 DS_unload_wave(1);
             },
         .outcome = outcome,
         .right = "0 heard",
         .memory = {"ends: SystemError: DS: CreateSoundBuffer error",
                    "ends: SystemError: DS: memory alloc error"},
         .files = {"ends: SystemError: DS: WAVE file has no data chunk",
                   "ends: SystemError: DS: can't open file", "ends: SystemError: DS: not a WAVE file"},
         .machine = {"ends: ", "ends: SystemError: DS: Cannot set current position",
                     "ends: SystemError: DS: Cannot start playing",
                     "ends: SystemError: DS: CreateSoundBuffer error",
                     "ends: SystemError: DS: DirectSoundBuffer Lock error",
                     "ends: SystemError: DS: DirectSoundBuffer Unlock error",
                     "ends: SystemError: DS: can not set volume",
                     "ends: SystemError: DS: can not stop sound"},
         .prepare = [&] { DS_init(window), HOST_advance_clock(1000000); },
         .in_process_of_its_own = true});
    DS_destroy();
    HOST_close_window(window);
}

TEST(WaveDeath, AFormatThatTheMixerDoesNotHaveIsFatal) {
    for (const Bytes &format :
         {test::pcm(1, 44100, 12), test::pcm(3, 44100, 16), test::pcm(1, 99, 8), test::pcm(2, 200001, 8)}) {
        test::write_file("b.wav", test::riff(test::chunk("fmt ", format) + test::chunk("data", Bytes(48))));
        EXPECT_EXIT((DS_init(nullptr), DS_load_wave_channel("b.wav", 0)), testing::ExitedWithCode(1),
                    "DS: CreateSoundBuffer error");
    }
}

TEST(WaveDeath, BadFilesAreRefusedEachWithItsMessage) {
    using test::chunk;
    using test::pcm;
    using test::riff;
    const Bytes format = chunk("fmt ", pcm(1, 44100, 16)), data = chunk("data", {1, 0, 2, 0});
    Bytes short_file = riff(format);
    short_file.resize(12 + 8 + 17);
    // The line for the log and the text of the fatal exit.
    using Messages = std::pair<const char *, const char *>;
    const Messages kNotWave{"ERROR : bad.wav not a WAVE file(DS)\n", "DS: not a WAVE file"},
        kNoFormat{"ERROR : bad.wav has no fmt chunk(DS)\n", "DS: WAVE file has no fmt chunk"},
        kShortFormat{"ERROR : unable read fmt chunk from file bad.wav(DS)\n", "DS: unable to read fmt chunk"},
        kNotPcm{"ERROR : WAVE file bad.wav is not PCM format(DS)\n", "DS: WAVE file is not PCM format"},
        kAscend{"ERROR : unable ascend file bad.wav\n", "DS: unable ascend"},
        kNoData{"", "DS: WAVE file has no data chunk"}, kShortData{"", "DS: unable to read data chunk "};
    const std::pair<Bytes, Messages> cases[] = {
        {{}, kNotWave},
        {riff(format + data, "AVI "), kNotWave},
        {riff(data), kNoFormat},
        {chunk("RIFF", test::letters("WAVE")) + format + data, kNoFormat},  // after the chunk's end
        {riff(chunk("fmt ", Bytes(14, 1)) + data), kShortFormat},
        {short_file, kShortFormat},
        {riff(chunk("fmt ", pcm(1, 44100, 16, 3)) + data), kNotPcm},
        {riff(chunk("fmt ", pcm(1, 44100, 16, 0xFFFE) + Bytes(22)) + data), kNotPcm},  // extensible
        {riff(chunk("fmt ", pcm(1, 44100, 16), 1000) + data), kAscend},
        {riff(format + chunk("LIST", {1, 2, 3})), kNoData},
        {riff(data + format), kNoData},
        {riff(format + chunk("data", {1, 0}, 4)), kShortData},
        {riff(format + chunk("data", {1, 0}, 0xFFFFFFFF)), kShortData},
    };
    test::write_wave("good.wav", {7, 8, 9});
    for (const auto &[file, messages] : cases) {
        test::write_file("bad.wav", file);
        DS_init(nullptr);
        ASSERT_EQ(DS_load_wave_channel("good.wav", 1), 0);
        DS_start(1, 1);
        EXPECT_EQ(DS_load_wave_channel("bad.wav", 1), -2);
        EXPECT_EQ(test::take_log(), messages.first) << messages.second;
        // The former sound goes when the samples have been found, not before.
        EXPECT_EQ(DS_status(1), messages == kShortData ? 0 : -2) << messages.second;
        const std::string text = std::string("SystemError: ") + messages.second + "\n";
        EXPECT_EXIT(DS_load_wave("bad.wav"), testing::ExitedWithCode(1), text);
    }
    EXPECT_EQ(DS_load_wave_channel("none.wav", 0), -2);
    EXPECT_EQ(DS_load_wave_channel(nullptr, 0), -2);
    EXPECT_EQ(test::take_log(), "ERROR : error open file none.wav (DS)\nERROR : error open file  (DS)\n");
    EXPECT_EXIT(DS_load_wave("none.wav"), testing::ExitedWithCode(1), "DS: can't open file");
}

TEST(Wave, FilesOfTheWildLoad) {
    using test::chunk;
    using test::riff;
    Bytes format16 = test::pcm(1, 44100, 16);
    format16.resize(16);
    const Bytes data = chunk("data", test::words({3, 4})), format = chunk("fmt ", test::pcm(1, 44100, 16));
    const Bytes files[] = {
        riff(chunk("fmt ", format16) + data),
        riff(chunk("LIST", {1, 2, 3}) + format + chunk("fact", {1}) + chunk("LIST", Bytes(5)) + data +
             chunk("id3 ", {9})),
        chunk("RIFF", test::letters("WAVE") + format + data, 0xFFFFFFFF),  // written to a pipe
        chunk("JUNK", Bytes(7)) + riff(format + data),
        chunk("RIFF", test::letters("WAVE") + format + data, 0),  // its writer never finished
        chunk("RIFF", test::letters("WAVE") + format + chunk("data", test::words({3, 4}), 0), 0),
        riff(chunk("fmt ", test::pcm(1, 44100, 16) + Bytes(6)) + data),
    };
    DS_init(nullptr);
    for (const Bytes &file : files) {
        test::write_file("a.wav", file);
        ASSERT_EQ(DS_load_wave_channel("A.WAV", 0), 0) << test::take_log();
        DS_start(0, 0);
        EXPECT_EQ(test::left(test::listen(3)), (std::vector<int>{3, 4, 0}));
    }
    test::write_wave("empty.wav", {});  // no sound at all is a sound that ends at once
    ASSERT_EQ(DS_load_wave_channel("empty.wav", 0), 0);
    DS_start(0, 1);
    EXPECT_EQ(DS_status(0), 0);
}

TEST(Wave, ChannelsAreGivenOutInOrderAndNotBeyond) {
    test::write_wave("a.wav", {1});
    EXPECT_EQ(DS_load_wave("a.wav"), -1);  // no device yet
    EXPECT_EQ(DS_load_wave_channel("a.wav", 0), -2);
    DS_destroy();
    DS_init(nullptr);
    for (int channel = 0; channel < 4; ++channel) EXPECT_EQ(DS_load_wave("a.wav"), channel);
    test::record_calls();
    EXPECT_EQ(DS_load_wave("a.wav"), -1);
    for (const std::int32_t channel : {-1, 4, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(DS_load_wave_channel("a.wav", channel), -2);
        DS_start(channel, 1);
        DS_stop(channel);
        DS_set_volume(channel, 0);
        DS_unload_wave(channel);
        EXPECT_EQ(DS_status(channel), 0);
    }
    EXPECT_EQ(test::take_calls(), test::Calls{});
    DS_unload_wave(1);
    EXPECT_EQ(DS_load_wave("a.wav"), 1);
    EXPECT_EQ(test::take_log(), "");
}

}  // namespace
