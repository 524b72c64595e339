// What recording and replaying have in common: a machine in front of another one that asks it, or the record,
// and does everything that is seen and heard on the mirror as well.
#pragma once

#include <deque>
#include <vector>

#include "host/host.h"
#include "host/replay/answer.h"
#include "host/replay/mirror.h"

namespace ink::host {

class Tape {
  public:
    // behind is the machine that a recorded program runs on, or the one that shows a replay; null where
    // nobody looks.
    explicit Tape(Machine *behind) : behind_(behind) {}

    Machine *behind() { return behind_; }
    Mirror &mirror() { return mirror_; }
    virtual bool records() const = 0;

    // The answer to one question. ask(machine, answer) puts it to the machine behind, where there is one, and
    // notes what it says; a replay then has the recorded answer in its place.
    template <class Ask>
    Answer ask(Kind kind, Ask ask) {
        before(kind);
        Answer answer;
        answer.kind = kind;
        if (behind_ != nullptr) ask(*behind_, answer);
        settle(answer);
        return answer;
    }
    // The same for a question that is answered by yes or no.
    template <class Ask>
    bool allows(Kind kind, Ask carry_out) {
        return ask(kind, [&](Machine &machine, Answer &answer) {
                   answer.values[0] = carry_out(machine);
               }).values[0] != 0;
    }

    // A disc was put in that the record knows by this print.
    virtual void compare_disc(const std::string & /*recorded*/, const std::string & /*found*/) {}
    // The time without moving it on, in microseconds.
    virtual std::uint64_t now() = 0;
    virtual bool simulated() = 0;

    // The window of the machine behind, and that of the mirror, for the one that the program knows. A window
    // that was not opened here is one of the machine's own.
    HWND real(HWND window) const {
        const OpenWindow *found = find(window);
        return found != nullptr ? found->real : records() ? window : nullptr;
    }
    HWND mirrored(HWND window) const {
        const OpenWindow *found = find(window);
        return found != nullptr ? found->mirrored : nullptr;
    }

  protected:
    struct OpenWindow {
        HWND given = nullptr, real = nullptr, mirrored = nullptr;
        HOST_WINDOW_PROCEDURE procedure = nullptr;
    };
    struct OpenTimer {
        HWND window = nullptr;
        std::uint32_t id = 0;
        TimerProcedure procedure = nullptr;
    };

    ~Tape() = default;
    // Before a question is put, and when it has been: a record writes what comes with it.
    virtual void before(Kind kind) = 0;
    virtual void settle(Answer &answer) = 0;

    // Handles may be given again, so the window that was opened last counts.
    const OpenWindow *find(HWND window) const {
        if (window == nullptr) return nullptr;
        for (auto found = windows_.rbegin(); found != windows_.rend(); ++found)
            if (found->given == window) return &*found;
        return nullptr;
    }
    // Windows in the file: 1 and on in the order in which they were opened, 0 for any other.
    std::int64_t number_of(HWND window) const {
        const OpenWindow *found = find(window);
        return found != nullptr ? found - windows_.data() + 1 : 0;
    }
    HWND window_of(std::int64_t number) const {
        return number >= 1 && static_cast<std::uint64_t>(number) <= windows_.size()
                   ? windows_[static_cast<std::size_t>(number - 1)].given
                   : nullptr;
    }
    // What a message to a window and its timers leave when it is closed.
    void forget(HWND window) {
        std::erase_if(posted_, [window](const Message &message) { return message.window == window; });
        std::erase_if(timers_, [window](const OpenTimer &timer) { return timer.window == window; });
    }
    const OpenTimer *find_timer(HWND window, std::uint64_t id) const {
        for (const OpenTimer &timer : timers_)
            if (timer.window == window && timer.id == id) return &timer;
        return nullptr;
    }
    void keep_timer(const OpenTimer &timer) {
        drop_timer(timer.window, timer.id);
        timers_.push_back(timer);
    }
    void drop_timer(HWND window, std::uint32_t id) {
        std::erase_if(timers_,
                      [&](const OpenTimer &timer) { return timer.window == window && timer.id == id; });
    }
    // Messages that the program posts itself come back as they are: they may carry addresses of the process.
    void keep_posted(const Message &message) {
        constexpr std::size_t kMost = 10000;
        if (posted_.size() < kMost) posted_.push_back(message);
    }

    // A message as numbers: the halves of lparam apart, in which the mouse has its place.
    Answer told(Kind kind, const Message &message) const {
        Answer answer;
        answer.kind = kind;
        const auto wparam =
            message.id == WM_SETCURSOR
                ? number_of(reinterpret_cast<HWND>(static_cast<std::uintptr_t>(message.wparam)))
                : static_cast<std::int64_t>(message.wparam);
        const auto lparam = static_cast<std::int64_t>(message.lparam);
        const auto low = static_cast<std::int16_t>(lparam);
        answer.values = {number_of(message.window), message.id, wparam, low,
                         (lparam >> 16) + (low < 0 ? 1 : 0)};
        return answer;
    }
    Message message_of(const Answer &answer) const {
        Message message;
        message.window = window_of(answer.values[0]);
        message.id = static_cast<UINT>(answer.values[1]);
        message.wparam =
            message.id == WM_SETCURSOR
                ? static_cast<WPARAM>(reinterpret_cast<std::uintptr_t>(window_of(answer.values[2])))
                : static_cast<WPARAM>(answer.values[2]);
        message.lparam = static_cast<LPARAM>((static_cast<std::uint64_t>(answer.values[4]) << 16) +
                                             static_cast<std::uint64_t>(answer.values[3]));
        return message;
    }

    std::vector<OpenWindow> windows_;
    std::vector<OpenTimer> timers_;
    std::deque<Message> posted_;

  private:
    Machine *behind_;
    Mirror mirror_;
};

}  // namespace ink::host
