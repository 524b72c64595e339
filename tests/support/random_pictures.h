// Random pictures for the drawing tests, the same in every run.
#pragma once

#include <algorithm>
#include <random>

#include "support/files.h"

namespace test {

class Random {
  public:
    explicit Random(unsigned seed = 20240229) : engine_(seed) {
        for (std::uint8_t &pixel : pool_)
            pixel = static_cast<std::uint8_t>((*this)(0, 2) == 0 ? 0 : (*this)(0, 255));
    }
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    // Pixels out of a pool, one in three of them 0.
    Bytes pixels(int count) {
        const auto start = pool_.begin() + (*this)(0, 1000);
        return Bytes(start, start + count);
    }
    // Mostly of small sprites, now and then of none or beyond any target; multiples of 16 are common.
    int size() {
        const int kind = (*this)(0, 19);
        return kind == 0 ? (*this)(100, 700) : kind < 5 ? 16 * (*this)(0, 5) : (*this)(0, 90);
    }
    // A start from which the length ends up inside, across either border, or beside the target.
    int place(int length, int target) {
        return (*this)(0, 1) == 0 ? around(-length) : around(target - length / 2);
    }
    int around(int at) { return at + (*this)(-40, 40); }

  private:
    std::mt19937 engine_;
    Bytes pool_ = Bytes(500'000);
};

}  // namespace test
