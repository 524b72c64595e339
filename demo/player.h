// The scripted player: plays the game on the machine's keyboard and mouse as a person would, by what is on the
// screen and not by the clock, and keeps pictures and the sound.
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "frame.h"
#include "layout.h"

namespace moon {

class Player {
  public:
    // Pictures and sound go into the directory. half is 0 for a whole play, 1 for one that leaves after it has
    // saved, 2 for one that goes on from there.
    Player(std::filesystem::path pictures, int half);
    // Does what is due by now; called once a frame.
    void play();
    // Writes the sound down.
    void finish();
    // Whether it did all that it wanted to.
    bool at_the_end() const { return next_goal_ == goals_.size(); }

    // A step of the play: done when the game waits for the like, and after so many clicks that go on.
    enum class What { kUse, kHold, kKey, kType, kPaint, kPicture, kDrop };
    struct Goal {
        What what;
        Waiting when;
        int number = 0;  // the key of a mask, a thing, a scan code, clicks to let pass, or milliseconds
        const char *text = "";
    };

  private:
    struct Input {
        std::uint64_t time;  // microseconds
        std::function<void()> action;
    };

    void react();
    void pursue(const Goal &goal);
    void paint();

    void then(std::uint64_t milliseconds, std::function<void()> action);
    void tap(std::int32_t scan_code);
    void type(const char *text);
    void move(Point to);
    void click(Point at);
    void stroke(const std::vector<Point> &points);
    void picture(const std::string &name);
    void take_sound();

    std::filesystem::path pictures_;
    std::vector<Goal> goals_;
    std::size_t next_goal_ = 0;
    std::deque<Input> inputs_;
    std::uint64_t time_ = 0;  // when the last of them is due
    Point pointer_{320, 240};
    std::vector<std::int16_t> sound_;
    int taken_ = 0, clicks_ = 0;
};

}  // namespace moon
