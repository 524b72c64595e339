// The time of a machine, in microseconds since it started.
#pragma once

#include <cstdint>

namespace ink::host {

class Clock {
  public:
    using Source = std::uint64_t (*)();

    // Without a source the clock is simulated: it moves on by one microsecond with each reading, and by
    // advance(). Every wait of the library therefore ends, in moments and the same way every time.
    explicit Clock(Source source) : source_(source) {}

    bool simulated() const { return source_ == nullptr; }
    std::uint64_t tick() { return source_ != nullptr ? source_() : ++now_; }
    // The time without moving a simulated clock on.
    std::uint64_t now() const { return source_ != nullptr ? source_() : now_; }
    void advance(std::uint64_t microseconds) { now_ += microseconds; }

  private:
    Source source_;
    std::uint64_t now_ = 0;
};

}  // namespace ink::host
