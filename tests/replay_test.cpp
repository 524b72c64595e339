// Records and replays: one program that asks the machine for everything, recorded in one process and run again in others,
// the same and changed; and files that are no records, or no longer.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "host/replay/record_reader.h"
#include "inkstone/inkstone.h"
#include "support/failing_files.h"
#include "support/new_process.h"
#include "support/script.h"
#include "support/sound.h"
#include "support/tool.h"

namespace {

namespace fs = std::filesystem;
using test::Bytes;

constexpr int kWidth = 64, kHeight = 48, kFrames = 50;
enum class Change { none, picture, sound, question, shorter, fatal };

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
    if (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK)
        fnMouseInterrupt(message, static_cast<std::uint32_t>(wparam), static_cast<std::int32_t>(lparam));
    return HOST_default_procedure(window, message, wparam, lparam);
}

// What the player does from outside, which a replay does not need.
void feed(int frame) {
    if (frame % 3 == 0) HOST_pointer_move(frame, 2 * frame - 20);
    if (frame % 7 == 0) HOST_pointer_button(frame % 2, frame % 3);
    if (frame % 5 == 0) HOST_key(0x10 + frame % 10, frame % 2);
    if (frame == 20) HOST_advance_clock(1'300'000);
    if (frame == 26) HOST_set_local_time(1980, 2, 29, 1, 2, 3);
    if (frame == 27) HOST_set_setting("CHINESBIG5(88)", "yes");
    if (frame == 28) HOST_set_timer_resolution(60);
}

// What is asked of the pointer, of windows, of timers and of the system, now and then.
void ask(int frame, HWND window) {
    static HWND second = nullptr;
    MOUSE_set_cursor(frame % 2);
    MOUSE_show(frame % 4 != 0);
    if (frame % 9 == 2) MOUSE_set_position(frame, 2 * frame);
    std::int32_t x = 0, y = 0, width = 0, height = 0;
    MOUSE_get_position(&x, &y);
    hear(x + y + check_big5() + get_cdrom_drive());
    if (frame == 11) hear(HOST_open_window("none", 0, 9, nullptr) != nullptr);
    if (frame == 13) second = HOST_open_window("second", 20, 10, procedure);
    if (frame == 23) HOST_close_window(second);
    hear(HOST_window_size(second, &width, &height) + width * height);
    if (frame == 29) HOST_kill_timer(window, 77), HOST_set_timer(window, 78, 10);
    if (frame == 41) HOST_eject_disc();
    if (frame == 45) HOST_post_quit(9);
    hear(HOST_exit_code());
}

// A channel whose buffer is lost once before it can be filled.
void load_lost(std::int32_t channel) {
    static int times;
    times = 0;
    HOST_observe([](const char *call) -> std::int32_t {
        return std::string(call).starts_with("lock_buffer") && times++ == 0 ? 2 : 0;
    });
    DS_load_wave_channel("beep.wav", channel);
    HOST_observe(nullptr);
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
    load_lost(1);
    fnMouseInit(window, nullptr, 3, 4, nullptr);
    MOUSE_load_cursor(1, HOST_load_cursor(HOST_CURSOR_HAND));
    Bytes sectors;
    for (std::uint32_t i = 0; i < 588 * 300; ++i) test::put(sectors, i * 2654435761U >> 20, 4);
    test::write_file("disc.bin", sectors);
    test::write_text("disc.cue",
                     "FILE disc.bin BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                     "TRACK 02 AUDIO\nINDEX 01 00:03:00\n");
    hear(HOST_insert_disc("disc.cue"));
    hear(CDROM_open() + CDROM_total() + static_cast<int>(CDROM_track_time(1)));
    hear(CDROM_play(0));
    run_random_init();
    HOST_capture_sound(1);
    int posted = 0;
    for (int frame = 0; frame < kFrames; ++frame) {
        posted = frame;
        if (frame == 30 && change == Change::shorter) std::exit(0);
        if (frame == 40 && change == Change::fatal) fnErrorExit(window, "over");
        if (fed) feed(frame);
        ask(frame, window);
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
    std::int32_t seconds = -1, different = -1;
    HOST_replay_state(&seconds, &different);
    test::write_text("progress", std::to_string(seconds) + ' ' + std::to_string(different));
    std::exit(0);
}

void live_play() {
    HOST_set_local_time(1999, 12, 31, 23, 59, 40);
    play(Change::none, true);
}

void record_play(const char *file = "play.rec", Change change = Change::none) {
    HOST_set_local_time(1999, 12, 31, 23, 59, 40);
    if (HOST_record(file) != 0) std::exit(1);
    play(change, true);
}

void replay_play(Change change, const char *file = "play.rec") {
    // All of which the record knows better.
    HOST_set_local_time(2001, 1, 1, 0, 0, 0);
    HOST_set_setting("CHINESBIG5(88)", "no");
    HOST_advance_clock(77'777);
    if (HOST_replay(file) != 0) std::exit(1);
    play(change, false);
}

class ReplayDeath : public testing::Test {
  protected:
    void SetUp() override {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        test::share_place();
        EXPECT_EXIT(record_play(), testing::ExitedWithCode(0), "^$");
    }
};

TEST_F(ReplayDeath, RunsAProgramAgainPictureForPictureAndSoundForSound) {
    EXPECT_EXIT(replay_play(Change::none), testing::ExitedWithCode(0), "replay: 4\\.. seconds, equal");
    EXPECT_EQ(test::read_text("progress"), "4 0");
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
    EXPECT_EQ(test::read_text("progress"), "4 4");
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

TEST_F(ReplayDeath, TellsOfAFatalExitWithoutABox) {
    EXPECT_EXIT(record_play("play.rec", Change::fatal), testing::ExitedWithCode(1), "^SystemError: over\n$");
    EXPECT_EXIT(replay_play(Change::fatal), testing::ExitedWithCode(1),
                "^SystemError: over\nreplay: 3\\.. seconds, equal\n$");
}

TEST_F(ReplayDeath, TellsOfAnotherDisc) {
    const auto with_disc = [](bool fed) {
        static char disc[] = "INKSTONE_DISC=disc.cue";
        putenv(disc);
        if (fed ? HOST_record("play.rec") != 0 : HOST_replay("play.rec") != 0) std::exit(1);
        const std::int32_t tracks = (CDROM_open(), CDROM_total());
        std::exit(tracks == 2 ? 7 : 1);
    };
    EXPECT_EXIT(with_disc(true), testing::ExitedWithCode(7), "^$");
    EXPECT_EXIT(with_disc(false), testing::ExitedWithCode(7), "^replay: 0\\.. seconds, equal\n$");
    Bytes image = test::read_file("disc.bin");
    image.resize(image.size() - 2352);
    test::write_file("disc.bin", image);
    EXPECT_EXIT(with_disc(false), testing::ExitedWithCode(7),
                "another disc: recorded with \"disc\\.cue 0\\+225");
}

// What the full disk does not take is missed, and the program goes on as it does otherwise.
TEST_F(ReplayDeath, EndsARecordThatTheDiskIsFullFor) {
    if (!test::kFilesCanFail) GTEST_SKIP();
    const std::string right = test::read_text("state");
    fs::remove("state");
    const auto record = [](std::size_t writes) {
        static test::FailingFiles failing(writes, test::FileFault::all, ".rec");
        record_play("full.rec");
    };
    EXPECT_EXIT(record(1), testing::ExitedWithCode(1), "full.rec cannot be recorded");
    EXPECT_EXIT(record(4), testing::ExitedWithCode(0), "^record: ended, since the file cannot be written\n$");
    EXPECT_EQ(test::read_text("state"), right);
    EXPECT_EXIT(replay_play(Change::none, "full.rec"), testing::ExitedWithCode(0),
                "replay: [0-3]\\.. seconds, equal");
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

// Disc frames say where they lie; a record that keeps sound has them as they were heard, one after the other.
TEST_F(ReplayDeath, KeepsTheSoundAsItWasHeard) {
    const auto record = [] {
        static char sound[] = "INKSTONE_RECORD_SOUND=1", pictures[] = "INKSTONE_RECORD_PICTURES=4";
        putenv(sound), putenv(pictures);
        HOST_insert_disc("disc.cue");
        if (HOST_record("sound.rec") != 0) std::exit(1);
        HOST_insert_disc("disc.cue"), CDROM_open(), CDROM_total(), CDROM_play(0);
        for (int i = 0; i < 100; ++i) HOST_advance_clock(20'000), fnCheckMessage();
        std::exit(7);
    };
    EXPECT_EXIT(record(), testing::ExitedWithCode(7), "^$");
    std::string reason;
    const auto reader = ink::host::RecordReader::open(test::read_file("sound.rec"), reason);
    ASSERT_NE(reader, nullptr) << reason;
    std::vector<std::int16_t> heard;
    for (ink::host::Answer answer; reader->next(answer);)
        for (const std::int16_t sample : reader->sound()) heard.push_back(sample);
    EXPECT_FALSE(reader->damaged());
    ASSERT_GT(heard.size(), 2U * 44100);
    const Bytes image = test::read_file("disc.bin");
    std::size_t first = 0;
    while (first < heard.size() && heard[first] == 0) ++first;
    const std::size_t begun = first / 2 * 2;
    std::size_t frame = 0;  // the first that is not silent on the disc
    while (image[4 * frame] == 0 && image[4 * frame + 1] == 0 && image[4 * frame + 2] == 0) ++frame;
    for (std::size_t i = 0; begun + i < heard.size() && i < 60'000; ++i) {
        const std::size_t at = 4 * frame + 2 * i;
        ASSERT_EQ(heard[begun + i], static_cast<std::int16_t>(image[at] | image[at + 1] << 8)) << i;
    }
}

}  // namespace
