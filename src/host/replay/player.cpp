#include "host/replay/player.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <utility>

#include "host/input_file.h"
#include "host/replay/bitmap_file.h"
#include "host/replay/disc_print.h"
#include "host/replay/record_reader.h"
#include "host/replay/tape.h"
#include "host/replay/traced_display.h"
#include "host/replay/traced_sound.h"
#include "host/replay/traced_system.h"

namespace ink::host {
namespace {

constexpr int kDiffers = 3;  // the exit code of a replay that is not equal to its record
constexpr std::uint64_t kSecond = 1'000'000;

class Player final : public Tape, public Windows, public Messages, public Timers {
  public:
    Player(Machine *shown, std::string name, std::unique_ptr<RecordReader> reader)
        : Tape(shown),
          name_(std::move(name)),
          reader_(std::move(reader)),
          shown_from_(shown != nullptr ? shown->bench.now() : 0) {
        read_on();
    }

    Machine &machine() { return machine_; }
    void put_in_disc(const char *name);
    void finish();
    ReplayState state() const {
        return {static_cast<std::int32_t>(time_ / kSecond), static_cast<std::int32_t>(first_difference_)};
    }

    bool records() const override { return false; }
    std::uint64_t now() override {
        return reader_->header().start + time_ + (simulated() ? head_.idle - idle_left_ : 0);
    }
    bool simulated() override { return reader_->header().simulated; }
    void compare_disc(const std::string &recorded, const std::string &found) override;

    HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                     HOST_WINDOW_PROCEDURE procedure) override;
    void close_window(HWND window) override;
    LRESULT default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) override;

    bool peek(Message &message) override;
    std::uint32_t idle_peeks() override;
    void skip_peeks(std::uint32_t count) override {
        idle_left_ -= std::min<std::uint64_t>(count, idle_left_);
    }
    bool get(Message &message) override;
    void dispatch(const Message &message) override;
    void post(const Message &message) override;
    void post_quit(std::int32_t) override {}
    void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) override;

    bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                   TimerProcedure procedure) override;
    bool kill_timer(HWND window, std::uint32_t id) override;
    std::uint32_t milliseconds() override;

  private:
    void before(Kind kind) override;
    void settle(Answer &answer) override;
    void read_on();
    Answer take();
    bool pass_marks_and_sent();
    void check_mark();
    Message message_taken();
    void keep_pace();
    void show_at(std::uint64_t time);

    std::uint64_t second_of(std::uint64_t mark) const {
        const std::uint64_t rate = reader_->header().marks_per_second;
        return (mark + rate - 1) / rate;
    }
    void differs(std::uint64_t second, const char *what);
    void save(const char *which, const Picture &picture) const;
    [[noreturn]] void go_astray(const char *asked);
    [[noreturn]] void leave(int exit_code);
    void tell() const;

    static LRESULT watch(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    std::string name_;
    std::unique_ptr<RecordReader> reader_;
    // The next answer. While some of the times are left that the queue had nothing before it, its turn has
    // not come; without kind there is none.
    Answer head_;
    std::uint64_t idle_left_ = 0;
    std::uint64_t time_ = 0, marks_ = 0, first_difference_ = 0;
    std::uint64_t shown_from_, pumped_ = 0;
    bool over_ = false, exiting_ = false;

    TracedDisplay display_{*this};
    TracedPointer pointer_{*this};
    TracedSound sound_{*this};
    TracedDisc disc_{*this};
    TracedSystem system_{*this};
    TracedBench bench_{*this};
    Machine machine_{reader_->header().host.c_str(),
                     *this,
                     bench_,
                     *this,
                     *this,
                     display_,
                     pointer_,
                     sound_,
                     disc_,
                     system_};
};

Player *the_player = nullptr;
bool closed = false;  // by whoever watched

// ---- Reading ----

void Player::read_on() {
    try {
        if (!reader_->next(head_)) head_ = Answer();
    } catch (const std::bad_alloc &) {
        head_ = Answer();
    }
    idle_left_ = head_.idle;
}

Answer Player::take() {
    time_ = reader_->time();
    mirror().advance_to(time_);
    Answer taken = std::exchange(head_, Answer());
    read_on();
    return taken;
}

// Goes on to the next answer; false when the queue must be asked in vain before.
bool Player::pass_marks_and_sent() {
    for (;;) {
        if (idle_left_ > 0) return false;
        if (head_.kind == Kind::mark) {
            check_mark();
        } else if (head_.kind == Kind::sent) {
            keep_pace();
            const Message message = message_of(take());
            const OpenWindow *window = find(message.window);
            if (window != nullptr && window->procedure != nullptr) {
                const HOST_WINDOW_PROCEDURE procedure = window->procedure;
                procedure(message.window, message.id, message.wparam, message.lparam);
            }
        } else if (head_.kind == Kind::pause) {
            // What there is of the record is over, and with it what can be replayed.
            if (reader_->damaged()) std::fprintf(stderr, "replay: %s is damaged\n", name_.c_str());
            leave(reader_->damaged() ? 1 : first_difference_ != 0 ? kDiffers : 0);
        } else {
            return true;
        }
    }
}

void Player::before(Kind kind) {
    if (over_) return;
    if (!pass_marks_and_sent() || head_.kind != kind) go_astray(facts_of(kind).name);
    keep_pace();
}

void Player::settle(Answer &answer) {
    if (over_) {
        answer = Answer();
        return;
    }
    answer = take();
    const std::uint64_t clock = reader_->header().start + time_;
    if (answer.kind == Kind::milliseconds)
        answer.values[0] =
            static_cast<std::uint32_t>(answer.values[0]) + static_cast<std::uint32_t>(clock / 1000);
    if (answer.kind == Kind::clock)
        answer.values[0] = static_cast<std::int64_t>(static_cast<std::uint64_t>(answer.values[0]) + clock);
}

// ---- Comparing ----

void Player::check_mark() {
    keep_pace();
    // The picture that belongs to the mark is known until the next block is read.
    const Picture *recorded = nullptr;
    const std::uint32_t seen_then = static_cast<std::uint32_t>(head_.values[1]),
                        heard_then = static_cast<std::uint32_t>(head_.values[2]);
    marks_ = static_cast<std::uint64_t>(head_.values[0]);
    time_ = reader_->time();
    mirror().advance_to(time_);
    const bool seen = mirror().picture_check() == seen_then,
               heard = mirror().take_sound_check() == heard_then;
    if ((!seen || !heard) && first_difference_ == 0) {
        if (!seen && (recorded = reader_->picture()) != nullptr) save("recorded", *recorded);
        if (!seen) save("replayed", mirror().picture());
        differs(second_of(marks_), seen ? "the sound" : heard ? "the picture" : "the picture and the sound");
    }
    take();
}

void Player::differs(std::uint64_t second, const char *what) {
    if (first_difference_ != 0) return;
    first_difference_ = std::max<std::uint64_t>(second, 1);
    std::fprintf(stderr, "replay: second %llu differs: %s\n",
                 static_cast<unsigned long long>(first_difference_), what);
}

void Player::save(const char *which, const Picture &picture) const {
    const std::string base = name_.substr(name_.find_last_of("/\\") + 1);
    for (std::size_t i = 0; i < picture.panes.size(); ++i) {
        const std::string number = i == 0 ? "" : "-" + std::to_string(i + 1);
        const std::string name = base + "-" + which + number + ".bmp";
        if (write_bitmap(name.c_str(), picture.panes[i], picture.palette))
            std::fprintf(stderr, "replay: %s holds the %s picture\n", name.c_str(), which);
    }
}

// The program asks something else than it asked when it was recorded, so that no answer fits any more.
void Player::go_astray(const char *asked) {
    const char *recorded = idle_left_ > 0 ? "message" : facts_of(head_.kind).name;
    const std::string what =
        std::string("the program asked for \"") + asked + "\" where \"" + recorded + "\" was recorded";
    if (first_difference_ == 0) {
        if (const Picture *picture = reader_->picture()) save("recorded", *picture);
        save("replayed", mirror().picture());
    }
    differs(time_ / kSecond + 1, what.c_str());
    leave(kDiffers);
}

void Player::compare_disc(const std::string &recorded, const std::string &found) {
    if (!over_ && recorded != found)
        std::fprintf(stderr, "replay: another disc: recorded with \"%s\", here is \"%s\"\n", recorded.c_str(),
                     found.c_str());
}

void Player::put_in_disc(const char *name) {
    compare_disc(reader_->header().disc, disc_print(name));
    if (name != nullptr && *name != '\0') mirror().insert_disc(name);
}

void Player::tell() const {
    const auto seconds = static_cast<unsigned long long>(time_ / kSecond);
    const auto tenths = static_cast<unsigned>(time_ % kSecond / (kSecond / 10));
    if (first_difference_ == 0)
        std::fprintf(stderr, "replay: %llu.%u seconds, equal\n", seconds, tenths);
    else
        std::fprintf(stderr, "replay: %llu.%u seconds, different from second %llu on\n", seconds, tenths,
                     static_cast<unsigned long long>(first_difference_));
}

// Ends the program in the middle of it.
void Player::leave(int exit_code) {
    over_ = true;
    tell();
    if (!exiting_) std::exit(exit_code);
    std::fflush(nullptr);
    std::_Exit(exit_code);
}

// The program has ended.
void Player::finish() {
    if (std::exchange(exiting_, true) || over_) return;
    if (idle_left_ == 0)
        while (head_.kind == Kind::mark) check_mark();
    if (head_.kind == Kind::end && idle_left_ == 0)
        take();
    else if (head_.kind != Kind::pause || idle_left_ > 0)
        differs(time_ / kSecond + 1, "the program ended, and the record goes on");
    over_ = true;
    tell();
    if (first_difference_ == 0) return;
    std::fflush(nullptr);
    std::_Exit(kDiffers);
}

// ---- Showing ----

LRESULT Player::watch(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message != WM_CLOSE)
        return the_player->behind()->windows.default_procedure(window, message, wparam, lparam);
    closed = true;
    return 0;
}

// Waits until the moment of the next answer has come, and lets the window that shows the replay live.
void Player::keep_pace() {
    if (behind() != nullptr) show_at(reader_->time());
}

void Player::show_at(std::uint64_t time) {
    constexpr std::uint64_t kPumpEach = 1000;
    Machine &shown = *behind();
    for (;;) {
        const std::uint64_t now = shown.bench.now() - shown_from_;
        if (now - pumped_ >= kPumpEach) {
            pumped_ = now;
            for (Message message; shown.messages.peek(message);) {
                shown.messages.translate(message);
                shown.messages.dispatch(message);
            }
        }
        if (closed) {
            std::fputs("replay: the window was closed\n", stderr);
            leave(first_difference_ != 0 ? kDiffers : 0);
        }
        if (now >= time) return;
        shown.messages.rest(static_cast<std::uint32_t>((time - now) / 1000 + 1));
    }
}

// ---- Windows ----

HWND Player::open_window(const char *title, std::int32_t width, std::int32_t height,
                         HOST_WINDOW_PROCEDURE procedure) try {
    OpenWindow opened;
    opened.mirrored = opened.given = mirror().machine().windows.open_window(title, width, height, nullptr);
    opened.procedure = procedure;
    windows_.push_back(opened);
    const bool allowed = allows(Kind::open_window, [&](Machine &machine) {
        opened.real = machine.windows.open_window(title, width, height, watch);
        return true;
    });
    // Messages that the window got while it was opened may have opened others.
    const auto kept = std::find_if(windows_.begin(), windows_.end(), [&](const OpenWindow &window) {
        return window.mirrored == opened.mirrored;
    });
    kept->real = opened.real;
    if (allowed) return opened.given;
    mirror().machine().windows.close_window(opened.mirrored);
    if (opened.real != nullptr) behind()->windows.close_window(opened.real);
    *kept = OpenWindow();
    return nullptr;
} catch (const std::bad_alloc &) {
    return nullptr;
}

void Player::close_window(HWND window) {
    ask(Kind::close_window, [](Machine &, Answer &) {});
    const HWND shown = real(window);
    mirror().machine().windows.close_window(mirrored(window));
    if (shown != nullptr) behind()->windows.close_window(shown);
    forget(window);
}

LRESULT Player::default_procedure(HWND, UINT, WPARAM, LPARAM) {
    return static_cast<LRESULT>(ask(Kind::default_procedure, [](Machine &, Answer &) {}).values[0]);
}

// ---- Messages ----

bool Player::peek(Message &message) {
    if (idle_left_ > 0) {
        --idle_left_;
        return false;
    }
    if (over_ || !pass_marks_and_sent()) {
        if (!over_) --idle_left_;
        return false;
    }
    message = message_taken();
    return true;
}

std::uint32_t Player::idle_peeks() {
    constexpr std::uint64_t kMost = 0xFFFFFFFF;
    return static_cast<std::uint32_t>(std::min(idle_left_, kMost));
}

Message Player::message_taken() {
    keep_pace();
    switch (head_.kind) {
        case Kind::message: return message_of(take());
        case Kind::timer: {
            const Answer timer = take();
            return {window_of(timer.values[0]), WM_TIMER, static_cast<WPARAM>(timer.values[1]), 0};
        }
        case Kind::own_message:
            if (static_cast<std::uint64_t>(head_.values[0]) < posted_.size()) {
                const auto own = posted_.begin() + static_cast<std::ptrdiff_t>(take().values[0]);
                const Message message = *own;
                posted_.erase(own);
                return message;
            }
            [[fallthrough]];
        default: go_astray(facts_of(Kind::message).name);
    }
}

bool Player::get(Message &message) {
    if (over_) return false;
    const bool found = ask(Kind::get, [](Machine &, Answer &) {}).values[0] != 0;
    if (!found) return false;
    if (!pass_marks_and_sent()) go_astray(facts_of(Kind::message).name);
    message = message_taken();
    return message.id != WM_QUIT;
}

void Player::dispatch(const Message &message) {
    const OpenTimer *timer = message.id == WM_TIMER ? find_timer(message.window, message.wparam) : nullptr;
    if (timer != nullptr && timer->procedure != nullptr) {
        timer->procedure(message.window, WM_TIMER, message.wparam,
                         static_cast<std::uint32_t>((reader_->header().start + time_) / 1000));
        return;
    }
    const OpenWindow *window = find(message.window);
    if (window == nullptr || window->procedure == nullptr) return;
    const HOST_WINDOW_PROCEDURE procedure = window->procedure;
    procedure(message.window, message.id, message.wparam, message.lparam);
}

void Player::post(const Message &message) try { keep_posted(message); } catch (const std::bad_alloc &) {
    // It is missed when its turn comes.
}

// The text alone: nobody need close a box.
void Player::message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) {
    ask(Kind::message_box, [](Machine &, Answer &) {});
    Messages::message_box(owner, text, caption, style);
}

// ---- Timers ----

bool Player::set_timer(HWND window, std::uint32_t id, std::uint32_t, TimerProcedure procedure) try {
    const bool set = allows(Kind::set_timer, [](Machine &) { return true; });
    if (set) keep_timer({window, id, procedure});
    return set;
} catch (const std::bad_alloc &) {
    return false;
}

bool Player::kill_timer(HWND window, std::uint32_t id) {
    drop_timer(window, id);
    return allows(Kind::kill_timer, [](Machine &) { return true; });
}

// Exit handlers that outlive the replay may wait: their time passes.
std::uint32_t Player::milliseconds() {
    if (over_) time_ += 1000;
    const Answer answer = ask(Kind::milliseconds, [](Machine &, Answer &) {});
    return over_ ? static_cast<std::uint32_t>((reader_->header().start + time_) / 1000)
                 : static_cast<std::uint32_t>(answer.values[0]);
}

std::vector<std::uint8_t> contents_of(InputFile file) {
    std::vector<std::uint8_t> contents(static_cast<std::size_t>(file.size()));
    contents.resize(file.read(0, contents));
    return contents;
}

}  // namespace

Machine *replay(Machine &machine, const char *name, std::string &reason) {
    reason = "a replay has been begun before";
    if (the_player != nullptr) return nullptr;
    InputFile file(name);
    reason = "there is no such file";
    if (!file.is_open()) return nullptr;
    auto reader = RecordReader::open(contents_of(std::move(file)), reason);
    if (reader == nullptr) return nullptr;
    the_player =
        new Player(machine.bench.has_simulated_clock() ? nullptr : &machine, name, std::move(reader));
    the_player->put_in_disc(std::getenv("INKSTONE_DISC"));
    std::atexit([] { the_player->finish(); });
    return &the_player->machine();
}

bool replay_state(ReplayState &state) {
    if (the_player == nullptr) return false;
    state = the_player->state();
    return true;
}

}  // namespace ink::host
