// Chance and waves that are the same on every machine: plain arithmetic, nothing of the mathematical library.
#pragma once

#include <cstdint>

namespace paint {

inline std::uint32_t hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x9E3779B1U ^ y * 0x85EBCA77U ^ seed * 0xC2B2AE3DU;
    h = (h ^ (h >> 15)) * 0x2C1B3C6DU;
    h = (h ^ (h >> 12)) * 0x297A2D39U;
    return h ^ (h >> 15);
}

// Random numbers one after another. No two belong into the arguments of one call, whose order is the compiler's.
class Chance {
  public:
    explicit Chance(std::uint32_t seed) : seed_(seed) {}
    double unit() { return (hash(++count_, 0, seed_) >> 8) / 16777216.0; }
    double between(double low, double high) { return low + (high - low) * unit(); }
    int below(int limit) { return static_cast<int>(unit() * limit); }

  private:
    std::uint32_t seed_, count_ = 0;
};

inline int floor_of(double value) {
    const int whole = static_cast<int>(value);
    return whole > value ? whole - 1 : whole;
}
inline double clamp01(double value) {
    return value < 0 ? 0 : value > 1 ? 1 : value;
}
inline double smooth(double t) {
    t = clamp01(t);
    return t * t * (3 - 2 * t);
}
// From 0 where value is low to 1 where it is high, smoothly.
inline double rise(double low, double high, double value) {
    return smooth((value - low) / (high - low));
}
inline double mix(double a, double b, double t) {
    return a + (b - a) * t;
}

// Smooth noise of 0 to 1 with a grain of one unit.
inline double noise(double x, double y, std::uint32_t seed) {
    const int column = floor_of(x), row = floor_of(y);
    const auto corner = [&](int dx, int dy) {
        return (hash(static_cast<std::uint32_t>(column + dx), static_cast<std::uint32_t>(row + dy), seed) >>
                8) /
               16777216.0;
    };
    const double tx = smooth(x - column), ty = smooth(y - row);
    return mix(mix(corner(0, 0), corner(1, 0), tx), mix(corner(0, 1), corner(1, 1), tx), ty);
}

// Four octaves of it.
inline double cloud(double x, double y, std::uint32_t seed) {
    return noise(x, y, seed) * 0.53 + noise(x * 2.03, y * 2.03, seed + 1) * 0.27 +
           noise(x * 4.1, y * 4.1, seed + 2) * 0.13 + noise(x * 8.2, y * 8.2, seed + 3) * 0.07;
}

// Sine and cosine of an angle in turns.
inline double sine(double turns) {
    double x = turns - floor_of(turns);
    if (x > 0.5) return -sine(x - 0.5);
    if (x > 0.25) x = 0.5 - x;
    x *= 6.283185307179586;
    const double y = x * x;
    return x * (1 - y / 6 * (1 - y / 20 * (1 - y / 42 * (1 - y / 72))));
}
inline double cosine(double turns) {
    return sine(turns + 0.25);
}

}  // namespace paint
