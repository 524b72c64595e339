// CD audio: the disc a CUE sheet makes up, what is heard of it, times, task list and platform calls.
#include "inkstone/cdaudio.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>

#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "support/calls.h"
#include "support/injection.h"
#include "support/new_process.h"
#include "support/sound.h"

namespace {

using test::Bytes;
using test::operator+;

constexpr int kSector = 588;

// An image in which every frame says where it lies: the sector on the left, the frame on the right.
Bytes image(int sectors) {
    Bytes made;
    for (int sector = 0; sector < sectors; ++sector)
        for (int frame = 0; frame < kSector; ++frame) {
            test::put(made, sector + 1, 2);
            test::put(made, frame, 2);
        }
    return made;
}
// Writes a disc and puts it into the drive.
std::int32_t insert(const std::string &tracks, const Bytes &bin,
                    const std::string &file = "FILE \"disc.bin\" BINARY\n") {
    test::write_file("disc.bin", bin);
    test::write_text("disc.cue", file + tracks);
    return HOST_insert_disc("disc.cue");
}
const std::string kOne = "TRACK 01 AUDIO\nINDEX 01 00:00:00\n";
// Three tracks of 10, 20 and 30 sectors.
void insert_three() {
    const char *more = "TRACK 02 AUDIO\nINDEX 01 00:00:10\nTRACK 03 AUDIO\nINDEX 01 00:00:30\n";
    ASSERT_EQ(insert(kOne + more, image(60)), 0);
}
void open_three() {
    insert_three();
    ASSERT_EQ(CDROM_open(), 0);
    ASSERT_EQ(CDROM_total(), 3);
}
void play_sectors(int sectors) {
    HOST_advance_clock(static_cast<std::uint64_t>(sectors) * 1000000 / 75 + 14);
}
// The sectors that are heard, each once.
std::vector<int> sectors_heard(int sectors) {
    std::vector<int> made;
    for (const auto &frame : test::listen(static_cast<std::size_t>(sectors * kSector)))
        if (made.empty() || made.back() != frame[0]) made.push_back(frame[0]);
    return made;
}
std::uint32_t time(std::uint32_t minutes, std::uint32_t seconds, std::uint32_t fraction) {
    return minutes << 16 | seconds << 8 | fraction;
}

TEST(CdAudio, NothingIsDoneBeforeItIsOpened) {
    insert_three();
    test::record_calls();
    for (const auto &function :
         {CDROM_close, CDROM_total, CDROM_stop, CDROM_pause, CDROM_resume, CDROM_status, CDROM_loop,
          CDROM_now_track, CDROM_clear_task, CDROM_check_task})
        EXPECT_EQ(function(), -1);
    for (const auto &function : {CDROM_play, CDROM_push_task, CDROM_exec_task}) EXPECT_EQ(function(1), -1);
    EXPECT_EQ(CDROM_track_time(1) + CDROM_now_time(), 0U);
    EXPECT_EQ(test::take_calls(), test::Calls{});
}

TEST(CdAudio, TrackIsHeardFromItsFirstSectorToItsLast) {
    open_three();
    for (const auto &[track, first, last] : {std::tuple{0, 1, 10}, {1, 11, 30}, {2, 31, 60}}) {
        EXPECT_EQ(CDROM_play(track), 0);
        EXPECT_EQ(CDROM_status(), -1);
        const int sectors = last - first + 1;
        const test::Heard heard = test::listen(static_cast<std::size_t>(sectors * kSector) + 100);
        EXPECT_EQ(CDROM_status(), 0);
        for (int i = 0; i < sectors * kSector + 100; ++i) {
            const auto &[left, right] = heard[static_cast<std::size_t>(i)];
            const bool over = i >= sectors * kSector;
            ASSERT_EQ(left, over ? 0 : first + i / kSector);
            ASSERT_EQ(right, over ? 0 : i % kSector);
        }
        EXPECT_EQ(CDROM_now_track(), track);
    }
    // Without anybody listening the end is reached all the same.
    CDROM_play(1);
    play_sectors(19);
    EXPECT_EQ(CDROM_status(), -1);
    play_sectors(1);
    EXPECT_EQ(CDROM_status(), 0);
}

TEST(CdAudio, SheetIsLaidOutAsADriveSeesIt) {
    // Data first, of another sector size; a gap in the file before track 3, gaps outside it around track 4.
    Bytes bin(4 * 2048, 0x55);
    const Bytes sound = image(30);
    bin.insert(bin.end(), sound.begin(), sound.end());
    bin.resize(bin.size() + 100);  // a part of a sector is none
    ASSERT_EQ(insert("REM made by hand\r\nTRACK 01 MODE1/2048\r\n  INDEX 01 00:00:00\r\n"
                     "TRACK 02 AUDIO\r\n  TITLE \"A title\"\r\n  FLAGS DCP\r\n  INDEX 01 00:00:04\r\n"
                     "TRACK 03 AUDIO\r\n  INDEX 00 00:00:14\r\n  INDEX 01 00:00:16\r\n  INDEX 02 00:00:18\r\n"
                     "track 4 audio\r\n  pregap 00:01:00\r\n  index 01 00:00:24\r\n  POSTGAP 00:00:05\r\n",
                     bin),
              0);
    CDROM_open();
    ASSERT_EQ(CDROM_total(), 4);
    // Each track ends where the next begins; its number is one less than the disc's, but not in
    // CDROM_track_time.
    const std::uint32_t lengths[] = {0, time(0, 0, 12), time(0, 1, 8), time(0, 0, 15), 0};
    for (std::int32_t track = 0; track < 5; ++track) EXPECT_EQ(CDROM_track_time(track), lengths[track]);
    EXPECT_EQ(CDROM_track_time(256) + CDROM_track_time(-1), 0U);
    // The sectors of the image that are heard of each track, and the silence after them.
    for (const auto &[track, first, last] : {std::tuple{0, 1, 0}, {1, 1, 12}, {2, 13, 20}, {3, 21, 30}}) {
        std::vector<int> sectors(static_cast<std::size_t>(last - first + 1));
        std::iota(sectors.begin(), sectors.end(), first);
        sectors.push_back(0);
        CDROM_play(track);
        EXPECT_EQ(sectors_heard(90), sectors);
    }
    EXPECT_EQ(CDROM_play(4), -1);  // not on the disc: the drive refuses and is closed
    EXPECT_EQ(CDROM_stop(), -1);
}

// Tracks in files of their own: a wave file, one of the bare sectors that ends with the next track's gap, and
// a wave file whose last sector is not whole.
TEST(CdAudio, TracksLieInFilesOfTheirOwn) {
    const Bytes whole = image(30);
    const auto part = [&](int first, int sectors) {
        return Bytes(whole.begin() + first * 2352, whole.begin() + (first + sectors) * 2352);
    };
    Bytes last = part(20, 10);
    last.resize(last.size() - 4 * 500);
    const auto wave_with_more = [](const Bytes &samples) {
        return test::riff(test::chunk("LIST", Bytes(77)) + test::chunk("fmt ", test::pcm(2, 44100, 16)) +
                          test::chunk("data", samples) + test::chunk("id3 ", Bytes(9000, 1)));
    };
    test::write_file("one.wav", wave_with_more(part(0, 8)));
    test::write_file("two.bin", part(8, 12));
    test::write_file("three.wav", wave_with_more(last));
    test::write_text("disc.cue",
                     "FILE ONE.WAV WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                     "FILE two.bin BINARY\nTRACK 02 AUDIO\nPREGAP 00:00:02\nINDEX 01 00:00:00\n"
                     "TRACK 03 AUDIO\nINDEX 00 00:00:09\nFILE three.wav WAVE\nINDEX 01 00:00:00\n");
    ASSERT_EQ(HOST_insert_disc("disc.cue"), 0);
    CDROM_open();
    ASSERT_EQ(CDROM_total(), 3);
    EXPECT_EQ(CDROM_track_time(1), time(0, 0, 12));
    EXPECT_EQ(CDROM_track_time(2), time(0, 0, 10));
    const std::vector<int> sectors[] = {{1, 2, 3, 4, 5, 6, 7, 8, 0},
                                        {9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 0},
                                        {21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 0}};
    for (std::int32_t track = 0; track < 3; ++track) {
        CDROM_play(track);
        EXPECT_EQ(sectors_heard(15), sectors[track]) << track;
    }
    CDROM_close();
    // Every file is there, is used and is what the sheet says.
    const std::string track = "TRACK 01 AUDIO\nINDEX 01 00:00:00\n";
    test::write_file("slow.wav", test::wave(2, 22050, 16, part(0, 2)));
    for (const char *files : {"FILE two.bin WAVE\n", "FILE slow.wav WAVE\n", "FILE one.wav MP3\n",
                              "FILE one.wav BINARY\nFILE two.bin BINARY\n"}) {
        test::write_text("disc.cue", files + track);
        EXPECT_EQ(HOST_insert_disc("disc.cue"), -2) << files;
    }
    for (const char *more :
         {"FILE two.bin BINARY\n", "FILE none.bin BINARY\nTRACK 02 AUDIO\nINDEX 01 00:00:00\n",
          "FILE three.wav WAVE\nTRACK 02 MODE1/2352\nINDEX 01 00:00:00\n"}) {
        test::write_text("disc.cue", "FILE one.wav WAVE\n" + track + more);
        EXPECT_EQ(HOST_insert_disc("disc.cue"), -2) << more;
    }
}

TEST_IN_NEW_PROCESS(CdAudio, BearsEveryRefusal) {
    insert_three();
    std::int32_t result = 0, opened = 0, total = 0, played = 0;
    test::inject({.group = "HOST_insert_disc",
                  .use = [&] { result = HOST_insert_disc("disc.cue"); },
                  .outcome =
                      [&] {
                          CDROM_open(), total = CDROM_total(), CDROM_close(), HOST_eject_disc();
                          return std::to_string(result) + ' ' + std::to_string(total);
                      },
                  .right = "0 3",
                  .memory = {"-2 -1"},
                  .files = {"-2 -1"},
                  .prepare = HOST_eject_disc,
                  .in_process_of_its_own = true});
    test::inject({.group = "CDROM_open, CDROM_total, CDROM_play, CDROM_pause, CDROM_resume",
                  .use =
                      [&] {
                          opened = CDROM_open(), total = CDROM_total(), played = CDROM_play(1);
                          CDROM_pause();
                          result = CDROM_resume();
                      },
                  .outcome =
                      [&] {
                          return std::to_string(opened) + ' ' + std::to_string(total) + ' ' +
                                 std::to_string(played) + ' ' + std::to_string(result) +
                                 (sectors_heard(2)[0] == 11 ? " heard" : " silent");
                      },
                  .right = "0 3 0 0 heard",
                  .machine = {"-1 -1 -1 -1 silent", "0 -1 -1 -1 silent", "0 3 -1 -1 silent", "0 3 0 -1 heard",
                              "0 3 0 -1 silent"},
                  .prepare = [] { CDROM_open(), CDROM_stop(), CDROM_close(), insert_three(); },
                  .in_process_of_its_own = true});
    test::inject(
        {.group = "CDROM_clear_task, CDROM_push_task, CDROM_task_type, CDROM_exec_task, CDROM_check_task, "
                  "CDROM_now_track, CDROM_now_time, CDROM_track_time, CDROM_loop, CDROM_stop, CDROM_close",
         .use =
             [&] {
                 CDROM_clear_task(), CDROM_push_task(1), CDROM_task_type(1);
                 played = CDROM_exec_task(0), total = CDROM_check_task();
                 opened =
                     CDROM_now_track() + static_cast<std::int32_t>(CDROM_now_time() + CDROM_track_time(1));
                 result = CDROM_loop() + CDROM_stop() + CDROM_close();
             },
         .outcome =
             [&] {
                 return std::to_string(played) + ' ' + std::to_string(total) + ' ' + std::to_string(opened) +
                        ' ' + std::to_string(result);
             },
         .right = "0 0 21 -1",
         .machine = {"-1 -1 -1 -3", "-1 0 19 -3", "0 0 -1 -3", "0 0 21 -2", "0 0 21 -3"},
         .prepare = [] { insert_three(), CDROM_open(), CDROM_total(); },
         .in_process_of_its_own = true});
    // A disc whose file can no longer be read is silent where it cannot, and plays on.
    test::inject({.group = "CDROM_play, CDROM_status (disc of files)",
                  .use =
                      [&] {
                          HOST_insert_disc("disc.cue");
                          CDROM_open(), CDROM_total(), CDROM_play(0);
                          HOST_capture_sound(1);
                          play_sectors(10);
                      },
                  .outcome =
                      [&] {
                          test::Heard frames(10 * kSector);
                          HOST_read_sound(frames[0].data(), 10 * kSector);
                          HOST_capture_sound(0);
                          const auto silent = [](const auto &frame) { return frame[0] == 0; };
                          const std::int32_t status = CDROM_status();
                          HOST_eject_disc();
                          return std::to_string(status) +
                                 (std::all_of(frames.begin(), frames.end(), silent)    ? " silent"
                                  : std::none_of(frames.begin(), frames.end(), silent) ? " heard"
                                                                                       : " broken");
                      },
                  .right = "0 heard",
                  .memory = {"-1 silent"},
                  .files = {"-1 silent"},
                  .machine = {"-1 silent", "0 silent"},
                  .prepare = [] { CDROM_open(), CDROM_stop(), CDROM_close(), HOST_eject_disc(); },
                  .in_process_of_its_own = true});
}

TEST(CdAudio, SheetsThatAreNoneAreRefused) {
    const std::string file = "FILE disc.bin BINARY\n", two = "TRACK 02 AUDIO\n";
    insert_three();
    for (const std::string &sheet :
         {std::string(), kOne, "FILE none.bin BINARY\n" + kOne, file, file + "INDEX 01 00:00:00\n" + kOne,
          file + two + "INDEX 01 00:00:00\n", file + kOne + two, file + "TRACK 01 AUDIO\nINDEX 00 00:00:00\n",
          file + "TRACK 01 AUDIO\n" + two + "INDEX 01 00:00:00\n",
          file + "TRACK 01 VIDEO\nINDEX 01 00:00:00\n", file + "TRACK 01 AUDIO\nINDEX 01 00:00:75\n",
          file + "TRACK 01 AUDIO\nINDEX 01 4294967296:00:00\n", file + "TRACK 01 AUDIO\nINDEX 01 00:00\n",
          file + "TRACK 01 AUDIO\nINDEX 01 00:01:00\n",  // beyond the file, as the last but one
          file + kOne + two + "INDEX 00 00:00:10\nINDEX 01 00:00:05\n",
          file + "TRACK 01 AUDIO\nINDEX 01 00:00:20\n" + two + "INDEX 01 00:00:10\n",
          file + kOne + two + "INDEX 00 00:00:10\nINDEX 01 00:00:31\n",
          file + kOne + two + "PREGAP 255:59:74\nINDEX 01 00:00:10\n"})
        EXPECT_EQ(insert(sheet, image(30), ""), -2) << sheet;
    EXPECT_EQ(HOST_insert_disc("none.cue"), -2);
    EXPECT_EQ(HOST_insert_disc(nullptr), -2);
    EXPECT_EQ(insert(kOne, image(1), "FILE \"C:\\music\\DISC.BIN\" BINARY\n"), 0);  // went with its sheet
}

TEST(CdAudio, DriveWithoutADiscAndOneItIsTakenOutOf) {
    EXPECT_EQ(CDROM_open(), 0);
    for (const auto &function : {CDROM_open, CDROM_status, CDROM_loop}) EXPECT_EQ(function(), -1);
    EXPECT_EQ(CDROM_stop(), 0);
    EXPECT_EQ(CDROM_total(), -1);  // closes the drive
    EXPECT_EQ(CDROM_stop(), -1);
    CDROM_open();
    EXPECT_EQ(CDROM_play(0), -1);
    EXPECT_EQ(CDROM_close(), -1);
    open_three();
    CDROM_play(2);
    HOST_eject_disc();
    EXPECT_EQ(sectors_heard(5), std::vector<int>{0});
    EXPECT_EQ(CDROM_status(), -1);  // not stopped: not ready
    EXPECT_EQ(CDROM_pause(), 0);
    EXPECT_EQ(CDROM_resume(), -1);
    EXPECT_EQ(CDROM_now_track(), 2);
    insert_three();
    EXPECT_EQ(CDROM_loop(), 0);
    EXPECT_EQ(sectors_heard(2), (std::vector<int>{31, 32}));
    insert_three();  // another disc in its place ends the playing too
    EXPECT_EQ(CDROM_status(), 0);
}

TEST_IN_NEW_PROCESS(CdAudio, MakesItsPlatformCallsInOrder) {
    test::record_calls();
    open_three();
    EXPECT_EQ(test::take_calls(),
              (test::Calls{"open_disc", "set_disc_time_format msf", "disc_track_count", "disc_track_length 1",
                           "disc_track_length 2", "disc_track_length 3"}));
    test::record_calls();
    CDROM_play(1);
    SetTimerTick(13, 1000);
    EXPECT_EQ(CDROM_pause(), 0);
    EXPECT_EQ(CDROM_pause(), -1);
    SetTimerTick(13, 7);
    EXPECT_EQ(CDROM_resume(), 0);
    EXPECT_EQ(CDROM_resume(), -1);
    EXPECT_EQ(GetTimerTick(13), 1000U);
    CDROM_status();
    ExecQuitProc();
    EXPECT_EQ(test::take_calls(),
              (test::Calls{"set_disc_time_format tmsf", "play_disc 2:0:0:0 2:0:0:20", "stop_disc",
                           "set_disc_time_format tmsf", "play_disc 2:0:55:55 2:0:0:20", "disc_mode",
                           "stop_disc", "close_disc"}));
    EXPECT_EQ(CDROM_stop(), -1);
}

TEST(CdAudio, PauseAndPlayTime) {
    ASSERT_EQ(insert(kOne, image(200)), 0);
    CDROM_open();
    CDROM_total();
    CDROM_play(0);
    SetTimerTick(13, 18 + 6);  // 1 second and 33 hundredths
    CDROM_pause();
    EXPECT_EQ(CDROM_status(), 0);
    EXPECT_EQ(CDROM_now_time(), time(0, 1, 33));
    SetTimerTick(13, 30);
    EXPECT_EQ(CDROM_now_time(), time(0, 1, 33));
    EXPECT_EQ(GetTimerTick(13), 24U);
    CDROM_resume();
    EXPECT_EQ(sectors_heard(2), (std::vector<int>{75 + 33 + 1, 75 + 33 + 2}));
    SetTimerTick(13, 17);  // 94 hundredths: no frame, and taken as the last of the second
    CDROM_pause();
    EXPECT_EQ(CDROM_resume(), 0);
    EXPECT_EQ(sectors_heard(2), (std::vector<int>{74 + 1, 75 + 1}));
    SetTimerTick(13, 1000000);  // far beyond the end: over at once
    CDROM_pause();
    EXPECT_EQ(CDROM_resume(), 0);
    EXPECT_EQ(CDROM_status(), 0);
    // A length of 2 seconds and 50 frames, of which 100 are taken to be in a second: 36 + 9 ticks.
    ASSERT_EQ(insert(kOne, image(2 * 75 + 50)), 0);
    CDROM_total();
    SetTimerTick(13, 99);
    CDROM_play(0);
    EXPECT_EQ(GetTimerTick(13), 0U);
    SetTimerTick(13, 30);
    EXPECT_EQ(CDROM_now_time(), time(0, 1, 66));
    SetTimerTick(13, 5000);
    EXPECT_EQ(CDROM_now_time(), time(0, 2, 50));
    EXPECT_EQ(GetTimerTick(13), 45U);
    CDROM_stop();
    EXPECT_EQ(CDROM_now_time(), 0U);
    EXPECT_EQ(CDROM_now_track(), 0);
    EXPECT_EQ(CDROM_pause(), -1);
    test::record_calls();
    EXPECT_EQ(CDROM_loop(), 0);
    EXPECT_EQ(test::take_calls()[1], "stop_disc");
    EXPECT_EQ(CDROM_loop(), -1);
    // Minutes: a track of 3 minutes, 7 seconds and 15 frames, nearly all of it silence.
    ASSERT_EQ(
        insert(kOne + "TRACK 02 AUDIO\nPREGAP 03:07:05\nINDEX 01 00:00:10\nPOSTGAP 61:00:00\n", image(20)),
        0);
    CDROM_total();
    EXPECT_EQ(CDROM_track_time(1), time(61, 0, 10));
    test::record_calls();
    CDROM_play(0);
    SetTimerTick(13, (2 * 60 + 5) * 18 + 9);
    CDROM_pause();
    EXPECT_EQ(CDROM_now_time(), time(2, 5, 50));
    CDROM_resume();
    const test::Calls calls = test::take_calls();
    EXPECT_EQ(calls[1], "play_disc 1:0:0:0 1:3:7:15");
    EXPECT_EQ(calls.back(), "play_disc 1:2:5:50 1:3:7:15");
    SetTimerTick(13, 100000);
    EXPECT_EQ(CDROM_now_time(), time(3, 7, 11));  // 2 of 18 ticks
}

// Ten seconds of music are ten seconds on its clock.
TEST(CdAudio, PlayTimeKeepsStepWithTheMusic) {
    ASSERT_EQ(insert(kOne, image(75 * 12)), 0);
    SetupTimerProc(nullptr);
    CDROM_open();
    CDROM_total();
    CDROM_play(0);
    clear_time_delay();
    wait_time_delay(10000);
    EXPECT_EQ(CDROM_now_time() >> 8, 10U);
    CDROM_pause();
    CDROM_resume();
    EXPECT_NEAR(sectors_heard(2).front(), 751, 8);
    ExecQuitProc();
}

// Lets the track end and asks the list; the track that plays then, or -1.
std::int32_t next_task() {
    play_sectors(30);
    EXPECT_EQ(CDROM_check_task(), 0);
    return CDROM_status() != 0 ? CDROM_now_track() : -1;
}

TEST_IN_NEW_PROCESS(CdAudio, TaskListGoesOnByItsType) {
    CDROM_task_type(0);
    open_three();
    EXPECT_EQ(CDROM_clear_task(), 0);
    EXPECT_EQ(CDROM_check_task(), -2);
    EXPECT_EQ(CDROM_exec_task(0), -2);
    for (const std::int32_t track : {2, 0, 1}) EXPECT_EQ(CDROM_push_task(track), 0);
    EXPECT_EQ(CDROM_check_task(), 0);  // nothing was ever started
    EXPECT_EQ(CDROM_now_track(), -1);
    EXPECT_EQ(CDROM_exec_task(0), 0);
    play_sectors(5);
    EXPECT_EQ(CDROM_check_task(), 0);  // still plays
    EXPECT_EQ(CDROM_exec_task(0), 0);  // goes on undisturbed
    EXPECT_EQ(sectors_heard(1), std::vector<int>{36});
    test::record_calls();
    EXPECT_EQ(CDROM_exec_task(1), 0);
    EXPECT_EQ(test::take_calls().front(), "stop_disc");
    EXPECT_EQ(sectors_heard(1), std::vector<int>{31});
    std::vector<std::int32_t> played;
    for (int i = 0; i < 5; ++i) played.push_back(next_task());
    EXPECT_EQ(played,
              (std::vector<std::int32_t>{0, 1, -1, 0, 1}));  // after the pause it goes on with entry 1
    CDROM_task_type(1);
    for (std::int32_t &track : played) track = next_task();
    EXPECT_EQ(played, (std::vector<std::int32_t>{2, 0, 1, 2, 0}));
    CDROM_task_type(77);
    EXPECT_EQ(next_task(), 0);
    CDROM_task_type(2);
    // The generator starts at 1 and draws 41, 18467, 6334, 26500: modulo 3 the entries 2, 2, 1, 1.
    EXPECT_EQ(CDROM_exec_task(1), 0);
    played = {CDROM_now_track(), next_task(), next_task(), next_task()};
    EXPECT_EQ(played, (std::vector<std::int32_t>{1, 1, 0, 0}));
    // Emptied, the list begins with its first entry.
    CDROM_clear_task();
    for (const std::int32_t track : {1, 2}) CDROM_push_task(track);
    CDROM_task_type(77);
    EXPECT_EQ(next_task(), 1);
    HOST_eject_disc();
    EXPECT_EQ(CDROM_check_task(), 0);
}

TEST(CdAudio, TaskListHolds256) {
    open_three();
    CDROM_clear_task();
    CDROM_task_type(1);
    for (int i = 0; i < 256; ++i) CDROM_push_task(i == 255 ? 0 : 1);
    EXPECT_EQ(CDROM_push_task(2), 0);
    CDROM_exec_task(0);
    for (int i = 0; i < 255; ++i) next_task();
    EXPECT_EQ(CDROM_now_track(), 0);
    EXPECT_EQ(next_task(), 1);
    CDROM_clear_task();
    CDROM_push_task(1000);  // no track at all: nothing plays, and the drive stays open
    EXPECT_EQ(CDROM_exec_task(0), -1);
    EXPECT_EQ(CDROM_play(-1), -1);
    EXPECT_EQ(CDROM_stop(), 0);
}

TEST_IN_NEW_PROCESS(CdAudio, RefusalsOfTheDrive) {
    const auto play = [] { return CDROM_play(0); };
    const std::tuple<const char *, std::function<std::int32_t()>, bool> cases[] = {
        {"set_disc_time_format", CDROM_total, true},
        {"disc_track_count", CDROM_total, true},
        {"disc_track_length 3", CDROM_total, true},
        {"disc_mode", CDROM_status, true},
        {"set_disc_time_format", play, true},
        {"play_disc", play, true},
        {"stop_disc", CDROM_stop, false},
        {"stop_disc", CDROM_pause, false},
        {"close_disc", CDROM_close, false}};
    for (const auto &[call, function, closes] : cases) {
        open_three();
        CDROM_play(1);
        test::record_calls(call);
        EXPECT_EQ(function(), -1) << call;
        EXPECT_EQ(test::take_calls().back(), closes ? "close_disc" : call);
        EXPECT_EQ(CDROM_close(), closes ? -1 : 0) << call;
    }
    EXPECT_EQ(test::take_log(), "");
    // What is known after a command that failed.
    open_three();
    CDROM_play(1);
    test::record_calls("stop_disc");
    CDROM_pause();
    HOST_observe(nullptr);
    EXPECT_EQ(CDROM_pause(), -1);  // paused all the same
    EXPECT_EQ(CDROM_resume(), 0);
    test::record_calls("stop_disc");
    CDROM_stop();
    HOST_observe(nullptr);
    EXPECT_EQ(CDROM_pause(), -1);  // stopped all the same
    CDROM_play(1);
    test::record_calls("play_disc");
    CDROM_play(2);
    test::take_calls();
    CDROM_open();
    EXPECT_EQ(CDROM_pause(), -1);  // nothing plays
    EXPECT_EQ(CDROM_now_track(), 1);
    EXPECT_EQ(CDROM_track_time(2), time(0, 0, 30));
    test::record_calls("disc_track_count");
    CDROM_total();
    test::take_calls();
    CDROM_open();
    EXPECT_EQ(CDROM_track_time(2), 0U);  // the table was emptied
    CDROM_close();
    open_three();
    CDROM_play(1);
    CDROM_pause();
    test::record_calls("play_disc");
    EXPECT_EQ(CDROM_resume(), -1);
    HOST_observe(nullptr);
    EXPECT_EQ(CDROM_resume(), 0);  // still paused, and not closed
    CDROM_close();
    test::record_calls("open_disc");
    EXPECT_EQ(CDROM_open(), -1);
    HOST_observe(nullptr);
    while (PushQuitProc([] {}) == 0) continue;
    EXPECT_EQ(CDROM_open(), -1);
    EXPECT_EQ(test::take_log(), "Push Quit Proc Error!!!\n");
    EXPECT_EQ(CDROM_close(), 0);  // it was open all the same
}

TEST(CdAudio, DiscsOfManyTracks) {
    std::string tracks;
    for (int i = 1; i <= 257; ++i) {
        tracks += "TRACK " + std::to_string(i) + " AUDIO\nINDEX 01 00:" + std::to_string(i / 75) + ":" +
                  std::to_string(i % 75) + "\n";
        if (i < 256) continue;
        ASSERT_EQ(insert(tracks, image(300)), 0);
        CDROM_open();
        EXPECT_EQ(CDROM_total(), i == 256 ? 256 : -1);
        if (i > 256) continue;
        EXPECT_EQ(CDROM_play(255), 0);
        EXPECT_EQ(sectors_heard(1), std::vector<int>{257});
    }
    EXPECT_EQ(CDROM_close(), -1);
}

}  // namespace
