// The scripted player of the demo: plays on the machine's keyboard and mouse, and takes pictures of its
// screen.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "game.h"

namespace demo {

class Player {
  public:
    // Pictures go into the directory, which is made when it is missing.
    Player(const Game &game, std::filesystem::path pictures);
    // Does what is due by now on the machine's clock.
    void play();
    int pictures_taken() const { return taken_; }

  private:
    struct Step {
        std::uint64_t time;  // microseconds
        std::function<void()> action;
    };

    void then(std::uint64_t milliseconds, std::function<void()> action);
    void type(const char *text);
    void tap(std::int32_t scan_code);
    void move(std::int32_t x, std::int32_t y);
    void click();
    void picture(const char *name);
    void write_script();

    const Game &game_;
    std::filesystem::path pictures_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    std::uint64_t start_ = 0, time_ = 0;
    std::int32_t x_ = 320, y_ = 240;
    int taken_ = 0;
};

}  // namespace demo
