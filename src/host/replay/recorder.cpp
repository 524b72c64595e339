#include "host/replay/recorder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "host/disc/disc_device.h"
#include "host/replay/disc_print.h"
#include "host/replay/record_writer.h"
#include "host/replay/tape.h"
#include "host/replay/traced_display.h"
#include "host/replay/traced_sound.h"
#include "host/replay/traced_system.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kSecond = 1'000'000;

// Messages that are sent, and not posted, and that a program for every machine knows. Others, of which many
// carry addresses, are between Windows and its windows.
bool is_known(UINT id) {
    return id == WM_DESTROY || id == WM_CLOSE || id == WM_SETCURSOR ||
           (id >= WM_KEYDOWN && id <= WM_SYSKEYUP) || (id >= WM_MOUSEMOVE && id <= WM_MBUTTONDBLCLK) ||
           id >= WM_USER;
}

class Recorder final : public Tape, public Windows, public Messages, public Timers {
  public:
    Recorder(Machine &behind, const RecordHeader &header, std::unique_ptr<RecordWriter> writer)
        : Tape(&behind), header_(header), writer_(std::move(writer)) {
        mirror().keep_sound(header.sound);
    }

    Machine &machine() { return machine_; }
    void put_in_disc(const char *name) { mirror().insert_disc(name); }
    bool end();

    bool records() const override { return true; }
    std::uint64_t now() override { return behind()->bench.now(); }
    bool simulated() override { return behind()->bench.has_simulated_clock(); }

    HWND open_window(const char *title, std::int32_t width, std::int32_t height,
                     HOST_WINDOW_PROCEDURE procedure) override;
    void close_window(HWND window) override;
    LRESULT default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) override;

    bool peek(Message &message) override;
    std::uint32_t idle_peeks() override;
    void skip_peeks(std::uint32_t count) override;
    bool get(Message &message) override;
    void translate(const Message &message) override { behind()->messages.translate(message); }
    void dispatch(const Message &message) override;
    void post(const Message &message) override;
    void post_quit(std::int32_t exit_code) override { behind()->messages.post_quit(exit_code); }
    void rest(std::uint32_t milliseconds) override { behind()->messages.rest(milliseconds); }
    void message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) override;

    bool set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms,
                   TimerProcedure procedure) override;
    bool kill_timer(HWND window, std::uint32_t id) override;
    std::uint32_t milliseconds() override;

  private:
    bool writing() const { return writer_ != nullptr && !muted_; }
    std::uint64_t record_time() { return now() - header_.start; }
    void before(Kind kind) override;
    void settle(Answer &answer) override;
    void stamp(Answer &answer);
    template <class Work>
    void write(Work work);
    void mark(std::uint64_t number);
    void note(const Message &message);
    static LRESULT receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT deliver(OpenWindow window, const Message &message);

    RecordHeader header_;
    std::unique_ptr<RecordWriter> writer_;
    std::uint64_t idle_ = 0, time_ = 0, marks_ = 0;
    std::optional<std::uint32_t> kept_;  // the check value of the picture that was kept last
    // While the machine calls the program with what is not recorded, and while it does so for a message that
    // is.
    bool muted_ = false;
    const Message *dispatching_ = nullptr;

    TracedDisplay display_{*this};
    TracedPointer pointer_{*this};
    TracedSound sound_{*this};
    TracedDisc disc_{*this};
    TracedSystem system_{*this};
    TracedBench bench_{*this};
    Machine machine_{behind()->name, *this, bench_, *this, *this, display_, pointer_, sound_, disc_, system_};
};

Recorder *the_recorder = nullptr;

// ---- Writing ----

// What cannot be written ends the record, of which everything before is whole.
template <class Work>
void Recorder::write(Work work) {
    const char *fault = nullptr;
    try {
        if (!work()) fault = "the file cannot be written";
    } catch (const std::bad_alloc &) {
        fault = "there is no memory";
    }
    if (fault == nullptr) return;
    writer_.reset();
    std::fprintf(stderr, "record: ended, since %s\n", fault);
}

// Gives the answer its time, to which the mirror follows.
void Recorder::stamp(Answer &answer) {
    const std::uint64_t unit = header_.unit();
    const std::uint64_t time = std::max(record_time() / unit * unit, time_);
    answer.idle = std::exchange(idle_, 0);
    answer.step = static_cast<std::int64_t>((time - time_ - (header_.simulated ? answer.idle : 0)) / unit);
    time_ = time;
    mirror().advance_to(time);
}

void Recorder::mark(std::uint64_t number) {
    write([&] {
        Answer answer;
        answer.kind = Kind::mark;
        stamp(answer);
        const std::uint32_t seen = mirror().picture_check(), heard = mirror().take_sound_check();
        answer.values = {static_cast<std::int64_t>(number), seen, heard};
        writer_->add(answer);
        std::vector<std::int16_t> sound = mirror().take_sound();
        std::optional<Picture> picture;
        if (header_.pictures && kept_ != seen) {
            kept_ = seen;
            picture = mirror().picture();
            std::size_t pixels = 0;
            for (const Pane &pane : picture->panes) pixels += pane.pixels.size();
            if (pixels > Picture::kMostPixels) picture.reset();
        }
        return writer_->end_block(picture ? &*picture : nullptr, header_.sound ? &sound : nullptr);
    });
    marks_ = number;
}

void Recorder::before(Kind) {
    if (!writing()) return;
    const std::uint64_t time = record_time(), rate = header_.marks_per_second;
    const std::uint64_t due = time / kSecond * rate + time % kSecond * rate / kSecond;
    if (due > marks_) mark(due);
}

void Recorder::settle(Answer &answer) {
    if (!writing()) return;
    write([&] {
        Answer written = answer;
        stamp(written);
        // Clocks are told by how far they are from where the record's own time is.
        if (answer.kind == Kind::milliseconds) {
            const auto expected = static_cast<std::uint32_t>((header_.start + time_) / 1000);
            written.values[0] =
                static_cast<std::int32_t>(static_cast<std::uint32_t>(answer.values[0]) - expected);
        }
        if (answer.kind == Kind::clock)
            written.values[0] = answer.values[0] - static_cast<std::int64_t>(header_.start + time_);
        writer_->add(written);
        return true;
    });
}

bool Recorder::end() {
    if (writer_ == nullptr) return false;
    muted_ = false;
    mark(marks_ + 1);
    if (writer_ != nullptr)
        write([&] {
            Answer answer;
            answer.kind = Kind::end;
            stamp(answer);
            writer_->add(answer);
            return writer_->end_block(nullptr, nullptr);
        });
    return std::exchange(writer_, nullptr) != nullptr;
}

// ---- Windows ----

HWND Recorder::open_window(const char *title, std::int32_t width, std::int32_t height,
                           HOST_WINDOW_PROCEDURE procedure) try {
    before(Kind::open_window);
    windows_.push_back(
        {nullptr, nullptr, mirror().machine().windows.open_window(title, width, height, nullptr), procedure});
    const std::size_t number = windows_.size() - 1;
    const HWND real =
        behind()->windows.open_window(title, width, height, procedure != nullptr ? receive : nullptr);
    OpenWindow &window = windows_[number];
    window.given = window.real = real;
    if (real == nullptr) mirror().machine().windows.close_window(std::exchange(window.mirrored, nullptr));
    Answer answer;
    answer.kind = Kind::open_window;
    answer.values[0] = real != nullptr;
    settle(answer);
    return real;
} catch (const std::bad_alloc &) {
    return nullptr;
}

void Recorder::close_window(HWND window) {
    before(Kind::close_window);
    behind()->windows.close_window(window);
    mirror().machine().windows.close_window(mirrored(window));
    forget(window);
    Answer answer;
    answer.kind = Kind::close_window;
    settle(answer);
}

LRESULT Recorder::default_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const Answer answer = ask(Kind::default_procedure, [&](Machine &machine, Answer &told) {
        told.values[0] = machine.windows.default_procedure(window, message, wparam, lparam);
    });
    return static_cast<LRESULT>(answer.values[0]);
}

// Every window's procedure, as far as the machine behind knows.
LRESULT Recorder::receive(HWND handle, UINT id, WPARAM wparam, LPARAM lparam) {
    Recorder &recorder = *the_recorder;
    // A window that is about to be opened gets its first messages before its handle is known.
    const OpenWindow *found = recorder.find(handle);
    return recorder.deliver(found != nullptr ? *found : recorder.windows_.back(),
                            {handle, id, wparam, lparam});
}

LRESULT Recorder::deliver(OpenWindow window, const Message &message) {
    const auto call = [&] {
        return window.procedure(message.window, message.id, message.wparam, message.lparam);
    };
    // What was taken from the queue has been noted.
    if (dispatching_ != nullptr && dispatching_->window == message.window && dispatching_->id == message.id) {
        dispatching_ = nullptr;
        return call();
    }
    const bool was_muted = std::exchange(muted_, !is_known(message.id));
    if (writing()) {
        Answer answer = told(Kind::sent, message);
        settle(answer);
    }
    const LRESULT result = call();
    muted_ = was_muted;
    return result;
}

// ---- Messages ----

bool Recorder::peek(Message &message) {
    if (!writing()) return behind()->messages.peek(message);
    before(Kind::message);
    if (!behind()->messages.peek(message)) {
        ++idle_;
        return false;
    }
    note(message);
    return true;
}

// None of those that may be left out crosses a mark.
std::uint32_t Recorder::idle_peeks() {
    const std::uint32_t certain = behind()->messages.idle_peeks();
    if (!writing()) return certain;
    const std::uint64_t rate = header_.marks_per_second;
    const std::uint64_t next = ((marks_ + 1) * kSecond + rate - 1) / rate, time = record_time();
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(certain, next > time ? next - time : 0));
}

void Recorder::skip_peeks(std::uint32_t count) {
    behind()->messages.skip_peeks(count);
    if (writing()) idle_ += count;
}

bool Recorder::get(Message &message) {
    if (!writing()) return behind()->messages.get(message);
    bool more = false;
    const Answer answer = ask(Kind::get, [&](Machine &machine, Answer &told) {
        more = machine.messages.get(message);
        told.values[0] = more || message.id == WM_QUIT;
    });
    if (answer.values[0] != 0) note(message);
    return more;
}

void Recorder::note(const Message &message) {
    const auto own = std::find_if(posted_.begin(), posted_.end(), [&](const Message &posted) {
        return posted.window == message.window && posted.id == message.id &&
               posted.wparam == message.wparam && posted.lparam == message.lparam;
    });
    Answer answer;
    if (own != posted_.end()) {
        answer.kind = Kind::own_message;
        answer.values[0] = own - posted_.begin();
        posted_.erase(own);
    } else {
        answer = told(Kind::message, message);
        // Of Windows' timers without a window the number is the system's; their procedure comes with them.
        const auto timer = std::find_if(timers_.begin(), timers_.end(), [&](const OpenTimer &set) {
            return message.id == WM_TIMER && set.window == message.window &&
                   (set.id == message.wparam || (message.lparam != 0 && set.procedure != nullptr &&
                                                 reinterpret_cast<LPARAM>(set.procedure) == message.lparam));
        });
        if (timer != timers_.end()) {
            answer.kind = Kind::timer;
            answer.values = {answer.values[0], timer->id};
        }
    }
    settle(answer);
}

void Recorder::dispatch(const Message &message) {
    const Message *outer = std::exchange(dispatching_, &message);
    behind()->messages.dispatch(message);
    dispatching_ = outer;
}

void Recorder::post(const Message &message) {
    if (writing()) write([&] { return keep_posted(message), true; });
    behind()->messages.post(message);
}

void Recorder::message_box(HWND owner, const char *text, const char *caption, std::uint32_t style) {
    ask(Kind::message_box,
        [&](Machine &machine, Answer &) { machine.messages.message_box(owner, text, caption, style); });
}

// ---- Timers ----

bool Recorder::set_timer(HWND window, std::uint32_t id, std::uint32_t interval_ms, TimerProcedure procedure) {
    const bool set = allows(Kind::set_timer, [&](Machine &machine) {
        return machine.timers.set_timer(window, id, interval_ms, procedure);
    });
    if (set && writer_ != nullptr) write([&] { return keep_timer({window, id, procedure}), true; });
    return set;
}

bool Recorder::kill_timer(HWND window, std::uint32_t id) {
    drop_timer(window, id);
    return allows(Kind::kill_timer, [&](Machine &machine) { return machine.timers.kill_timer(window, id); });
}

std::uint32_t Recorder::milliseconds() {
    const Answer answer = ask(Kind::milliseconds, [](Machine &machine, Answer &told) {
        told.values[0] = machine.timers.milliseconds();
    });
    return static_cast<std::uint32_t>(answer.values[0]);
}

// A number out of the environment.
long number_set(const char *name, long otherwise, long most) {
    const char *text = std::getenv(name);
    return text != nullptr && *text != '\0' ? std::clamp(std::strtol(text, nullptr, 10), 0L, most)
                                            : otherwise;
}

}  // namespace

Machine *record(Machine &machine, const char *file) {
    if (the_recorder != nullptr) return nullptr;
    constexpr long kMostMarks = 60;
    const long pictures = number_set("INKSTONE_RECORD_PICTURES", 1, kMostMarks);
    const char *disc = std::getenv("INKSTONE_DISC");
    RecordHeader header;
    header.marks_per_second = static_cast<std::uint8_t>(std::max(pictures, 1L));
    header.pictures = pictures != 0;
    header.sound = number_set("INKSTONE_RECORD_SOUND", 0, 1) != 0;
    header.simulated = machine.bench.has_simulated_clock();
    header.start = machine.bench.now() / header.unit() * header.unit();
    header.host = machine.name;
    header.disc = disc_print(disc);
    auto writer = RecordWriter::create(file, header);
    if (writer == nullptr) return nullptr;
    the_recorder = new Recorder(machine, header, std::move(writer));
    if (!header.disc.empty()) the_recorder->put_in_disc(disc);
    std::atexit([] { the_recorder->end(); });
    return &the_recorder->machine();
}

bool end_record() {
    return the_recorder != nullptr && the_recorder->end();
}

}  // namespace ink::host
