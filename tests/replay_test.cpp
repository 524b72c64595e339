// Records and replays: one program that asks the machine for everything, recorded in one process and run again in others,
// the same and changed; and files that are no records, or no longer.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "host/replay/record_reader.h"
#include "inkstone/inkstone.h"
#include "support/script.h"
#include "support/sound.h"
#include "support/tool.h"

namespace {

namespace fs = std::filesystem;
using test::Bytes;

constexpr int kWidth = 64, kHeight = 48, kFrames = 50;
enum class Change { none, picture, sound, question, shorter };

// Everything that the program hears of runs into this number, which it shows as pixels.
std::uint32_t state = 1;
void hear(std::int64_t what) {
    state = (state ^ static_cast<std::uint32_t>(what)) * 16777619U;
}

LRESULT procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    // A message of the program's own carries an address.
    if (message == WM_USER) hear(*reinterpret_cast<const int *>(lparam));
    if (message != WM_USER && message != WM_SETCURSOR) hear(lparam + static_cast<LPARAM>(wparam));
    hear(message);
    if (message == WM_KEYDOWN) fnKeyBoardInterrupt(static_cast<std::uint8_t>(lparam >> 16 & 0x7F));
    return HOST_default_procedure(window, message, wparam, lparam);
}

// What the player does from outside, which a replay does not need.
void feed(int frame) {
    if (frame % 3 == 0) HOST_pointer_move(frame, 2 * frame - 20);
    if (frame % 7 == 0) HOST_pointer_button(frame % 2, frame % 3);
    if (frame % 5 == 0) HOST_key(0x10 + frame % 10, frame % 2);
    if (frame == 20) HOST_advance_clock(1'300'000);
}

void run_script() {
    using namespace test;
    const std::string body = op(18, constant(0) + constant(1));
    const auto end = static_cast<std::int32_t>(17 + body.size() + 6);
    write_text("loop.mac", script_file({op(2, word(end) + constant(0) + '<' + constant(90'000)) + body +
                                        op(13, word(0)) + op(1)}));
    MAC_init(".", ".", 4, nullptr);
    MAC_load("loop.mac");
    MAC_driver(0);
}

void play(Change change, bool fed) {
    static std::uint8_t screen[INK_SCREEN_WIDTH * INK_SCREEN_HEIGHT], palette[768];
    const HWND window = HOST_open_window("w", kWidth, kHeight, procedure);
    WViewInit(window, 0, 0, kWidth, kHeight, screen);
    WViewEnable();
    SetupTimerProc(window);
    HOST_set_timer(window, 77, 130);
    std::vector<int> samples;
    for (int i = 0; i < 9000; ++i) samples.push_back(i * 37 % 20000);
    test::write_wave("beep.wav", samples, 11025);
    DS_init(window);
    DS_load_wave_channel("beep.wav", 0);
    DS_load_wave_channel("beep.wav", 1);
    Bytes sectors;
    for (std::uint32_t i = 0; i < 588 * 300; ++i) test::put(sectors, i * 2654435761U >> 20, 4);
    test::write_file("disc.bin", sectors);
    test::write_text("disc.cue", "FILE disc.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n");
    hear(HOST_insert_disc("disc.cue"));
    hear(CDROM_open());
    hear(CDROM_play(0));
    hear(check_big5() + get_cdrom_drive());
    run_random_init();
    HOST_capture_sound(1);
    int posted = 0;
    for (int frame = 0; frame < kFrames; ++frame) {
        posted = frame;
        if (frame == 30 && change == Change::shorter) std::exit(0);
        if (fed) feed(frame);
        if (frame % 10 == 9) HOST_post_message(window, WM_USER, 0, reinterpret_cast<LPARAM>(&posted));
        clear_time_delay();
        if (frame == 8) run_script();
        if (frame == 12) PAL_fade_init(palette, nullptr), PAL_fade_effect(0);
        if (frame % 11 == 4) DS_start(frame % 2, frame % 4 == 0), DS_set_volume(0, frame);
        if (frame == 30) DS_start(change == Change::sound ? 1 : 0, 0);
        if (frame == 31 && change == Change::question) HOST_clock();
        hear(DS_status(0));
        hear(CDROM_status() + static_cast<int>(CDROM_now_time()));
        hear(static_cast<std::int64_t>(HOST_clock()));
        char time[26];
        get_time(time);
        for (const char letter : time) hear(letter);
        std::int16_t heard[512];
        const std::int32_t frames = HOST_read_sound(heard, 256);
        for (std::int32_t i = 0; i < 2 * frames; ++i) hear(heard[i]);
        hear(static_cast<std::int64_t>(GetTimerTick(3)));
        for (int i = 0; i < 4; ++i) screen[frame * kWidth + i] = static_cast<std::uint8_t>(state >> 8 * i);
        if (frame == 34 && change == Change::picture) ++screen[0];
        for (int i = 0; i < 768; ++i) palette[i] = static_cast<std::uint8_t>(i * (frame + 1) % 64);
        if (frame % 16 == 1) WViewSetPalette(palette);
        WViewBuffer2Screen();
        wait_time_delay(3);
        tick_wait(1);
        if (frame % 6 == 0) hear(HOST_wait_messages());
        hear(HOST_run_messages());
    }
    std::vector<std::uint8_t> rgb(3 * kWidth * kHeight);
    hear(HOST_read_picture(window, rgb.data()));
    for (const std::uint8_t byte : rgb) hear(byte);
    screen[kWidth * kHeight - 1] = static_cast<std::uint8_t>(state);
    WViewBuffer2Screen();
    HOST_close_window(window);
    ExecQuitProc();
    test::write_text("state", std::to_string(state));
    std::exit(0);
}

// The place that the new processes of a test share with it.
void enter_place() {
    static std::string set;
    const char *place = std::getenv("INKSTONE_TEST_PLACE");
    if (place == nullptr) {
        set = "INKSTONE_TEST_PLACE=" + fs::current_path().string();
        putenv(set.data());
    } else {
        fs::current_path(place);
    }
}

void live_play() {
    HOST_set_local_time(1999, 12, 31, 23, 59, 40);
    play(Change::none, true);
}

void record_play() {
    HOST_set_local_time(1999, 12, 31, 23, 59, 40);
    if (HOST_record("play.rec") != 0) std::exit(1);
    play(Change::none, true);
}

void replay_play(Change change) {
    // All of which the record knows better.
    HOST_set_local_time(2001, 1, 1, 0, 0, 0);
    HOST_set_setting("CHINESBIG5(88)", "no");
    HOST_advance_clock(77'777);
    if (HOST_replay("play.rec") != 0) std::exit(1);
    play(change, false);
}

class ReplayDeath : public testing::Test {
  protected:
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        enter_place();
        EXPECT_EXIT(record_play(), testing::ExitedWithCode(0), "^$");
    }
};

TEST_F(ReplayDeath, RunsAProgramAgainPictureForPictureAndSoundForSound) {
    EXPECT_EXIT(replay_play(Change::none), testing::ExitedWithCode(0), "replay: 4\\.. seconds, equal");
    // And neither recording nor replaying changes what it sees and hears.
    const std::string replayed = test::read_text("state");
    EXPECT_EXIT(live_play(), testing::ExitedWithCode(0), "^$");
    EXPECT_EQ(test::read_text("state"), replayed);
    // What is kept of every second agrees with its check value.
    EXPECT_EQ(test::ink("info play.rec"), 0);
    EXPECT_NE(test::read_text("out").find("with the program"), std::string::npos);
    EXPECT_EQ(test::ink("replay cut play.rec -o cut.rec --until 3.5"), 0);
    fs::rename("cut.rec", "play.rec");
    EXPECT_EXIT(replay_play(Change::none), testing::ExitedWithCode(0), "replay: 3\\.. seconds, equal");
    EXPECT_EQ(test::ink("replay pictures play.rec -o shots"), 0);
    EXPECT_EQ(test::read_text("out"), "3 pictures in shots\n");
}

TEST_F(ReplayDeath, TellsWhereAChangedProgramDiffers) {
    EXPECT_EXIT(replay_play(Change::sound), testing::ExitedWithCode(3),
                "second 4 differs: the sound\n.*different from second 4 on");
    EXPECT_FALSE(fs::exists("play.rec-replayed.bmp"));
    EXPECT_EXIT(replay_play(Change::question), testing::ExitedWithCode(3),
                "second 4 differs: the program asked for \"clock\" where \".*\" was recorded");
    EXPECT_EXIT(replay_play(Change::shorter), testing::ExitedWithCode(3),
                "the program ended, and the record goes on");
    EXPECT_EXIT(replay_play(Change::picture), testing::ExitedWithCode(3), "second 4 differs: the picture\n");
    const Bytes recorded = test::read_file("play.rec-recorded.bmp"),
                replayed = test::read_file("play.rec-replayed.bmp");
    ASSERT_EQ(recorded.size(), 54U + 1024 + kWidth * kHeight);
    ASSERT_EQ(replayed.size(), recorded.size());
    std::vector<std::size_t> different;
    for (std::size_t i = 0; i < recorded.size(); ++i)
        if (recorded[i] != replayed[i]) different.push_back(i);
    // The first pixel of the upper row, which such files have last.
    EXPECT_EQ(different, std::vector<std::size_t>{recorded.size() - kWidth});
}

std::vector<std::string> answers_in(Bytes file, std::string &reason) {
    using namespace ink::host;
    std::vector<std::string> answers;
    const auto reader = RecordReader::open(std::move(file), reason);
    if (reader == nullptr) return answers;
    for (Answer answer; reader->next(answer);) {
        std::string told = facts_of(answer.kind).name + answer.text + std::to_string(reader->time());
        for (std::size_t i = 0; i < facts_of(answer.kind).values; ++i)
            told += ' ' + std::to_string(answer.values[i]);
        answers.push_back(told);
    }
    reader->picture();
    EXPECT_FALSE(reader->damaged());
    return answers;
}

TEST_F(ReplayDeath, BeginsNothingWithABrokenFile) {
    const Bytes whole = test::read_file("play.rec");
    std::string reason;
    const auto answers = answers_in(whole, reason);
    ASSERT_GT(answers.size(), 1000U);
    // The beginning of a record is one of a program that crashed; what was changed is seen.
    std::size_t most = 0;
    for (std::size_t size = 0; size < whole.size(); size += size < 100 ? 1 : 211) {
        const auto some =
            answers_in(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)), reason);
        most = std::max(most, some.size());
        EXPECT_TRUE(some.size() < answers.size() && std::equal(some.begin(), some.end(), answers.begin()))
            << size;
    }
    EXPECT_GT(most, answers.size() / 2);
    for (std::size_t bit = 0; bit < 8 * whole.size(); bit += bit < 800 ? 7 : 1597) {
        Bytes changed = whole;
        changed[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
        const auto some = answers_in(changed, reason);
        EXPECT_TRUE(some.size() < answers.size() && std::equal(some.begin(), some.end(), answers.begin()))
            << bit;
    }
    const auto refuse = [] {
        const Bytes good = test::read_file("play.rec");
        Bytes newer = good, damaged = good;
        newer[7] = 9;
        damaged.back() ^= 1;
        for (const Bytes &bytes : {newer, damaged, Bytes{'M', 'Z'}, Bytes()}) {
            test::write_file("bad.rec", bytes);
            if (HOST_replay("bad.rec") != -2) std::exit(1);
        }
        std::int32_t seconds = 0;
        std::exit(HOST_replay("none.rec") == -2 && HOST_replay(nullptr) == -2 &&
                          HOST_record("no/such") == -2 && HOST_record(nullptr) == -2 &&
                          HOST_replay_state(&seconds, nullptr) == -2
                      ? 7
                      : 1);
    };
    EXPECT_EXIT(refuse(), testing::ExitedWithCode(7),
                "of version 9, and this reads version 1\n.*damaged at byte .*\n.*no record\n.*no "
                "record\n.*no such file");
}

TEST(RecordDeath, EndsARecordWhenAskedTo) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto live = [] {
        HOST_record("short.rec");
        HOST_advance_clock(2'500'000);
        fnCheckMessage();
        const bool ended = HOST_record(nullptr) == 0;
        HOST_advance_clock(5'000'000);
        fnCheckMessage();
        std::string reason;
        const auto answers = answers_in(test::read_file("short.rec"), reason);
        std::exit(ended && answers.size() == 3 && answers.back() == "end2500001" &&
                          HOST_record("short.rec") == -2
                      ? 7
                      : 1);
    };
    EXPECT_EXIT(live(), testing::ExitedWithCode(7), "");
}

}  // namespace
