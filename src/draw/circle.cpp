#include <algorithm>
#include <cmath>
#include <type_traits>

#include "draw/surface.h"
#include "inkstone/line.h"

namespace ink::draw {
namespace {

constexpr double kRadians = 3.1415926 / 180;  // of a degree; a longer pi would move pixels
constexpr std::int64_t kMostSteps = 1 << 24;  // what a call may cost: a whole circle of radius 2,097,152

// An arc as it is asked for. The radii and angles are those of the calls, the sums of them pass 32 bits.
struct Arc {
    std::int64_t x, y;                  // the centre
    std::int64_t vertical, horizontal;  // the radii
    std::int64_t start, span;           // degrees

    std::int64_t radius() const { return std::max(vertical, horizontal); }
};

// The signed turn from one angle to the other, at most one full turn; a full turn for equal angles.
std::int64_t make_span(std::int64_t start, std::int64_t end) {
    const std::int64_t turn = end - start;
    if (turn == 0) return 360;
    return turn > 0 ? (turn - 1) % 360 + 1 : (turn + 1) % 360 - 1;
}

// How far the walk round the whole circle has come at an angle.
double walk_position(double radius, std::int64_t angle) {
    const std::int64_t quarters = angle >= 90 ? angle / 90 : 0;
    const double rest = static_cast<double>(angle - quarters * 90) * kRadians;
    return 2 * radius * static_cast<double>(quarters) + radius - radius * std::cos(rest) +
           radius * std::sin(rest);
}

// The steps of the walk along the arc. Away from the quarters the positions have fractions, and for some
// negative start angles the difference is negative: it is rounded to the nearest whole number, at least 0.
double step_count(const Arc &arc) {
    const auto radius = static_cast<double>(arc.radius());
    const std::int64_t end = arc.start + arc.span;
    const double from = walk_position(radius, arc.start);
    double steps = 0;
    if (arc.span > 0) {
        steps = walk_position(radius, end) - from - 1;
    } else if (end >= 0) {
        steps = from - walk_position(radius, end) - 1;
    } else {
        steps = from + walk_position(radius, -end) - 1;
    }
    return std::max(std::round(steps), 0.0);
}

// The directions in which the two offsets start.
struct Directions {
    int vertical, horizontal;
};
Directions directions(double cosine, double sine, bool clockwise) {
    const int sense = clockwise ? 1 : -1;
    Directions result{sine > 0 ? -sense : sense, cosine > 0 ? sense : -sense};
    if (sine == 0) result.vertical = cosine > 0 ? -1 : 1;
    if (cosine == 0) result.horizontal = sine > 0 ? -1 : 1;
    return result;
}

// One of the two axes of the walk.
template <typename Number>
struct WalkAxis {
    Number slope = 0;  // what a step along it changes of the error; grows by 2 with each
    std::int64_t share = 0,
                 sum = 0;  // the offset moves each time that the sum of the shares reaches the radius
    int dx = 0, dy = 0;    // the move of the offset
    bool mark = false;     // moved last, and not plotted there yet

    void turn_back() { dx = -dx, dy = -dy; }
};

// The walk round the circle, in unit steps along one axis at a time; the offsets of the ellipse follow, each
// at the share of its radius. A move along one axis followed by a move along the other is plotted once, as
// one diagonal move.
template <typename Number>
class Walk {
  public:
    Walk(const Surface &surface, std::int32_t colour, std::int64_t x, std::int64_t y, std::int64_t radius,
         const WalkAxis<Number> &first, const WalkAxis<Number> &second)
        : surface_(surface),
          colour_(low_byte(colour)),
          x_(x),
          y_(y),
          radius_(radius),
          first_(first),
          second_(second) {}

    void plot() const { plot(x_, y_); }

    void step() {
        if (error_ >= 0) {
            move(first_, second_);
            error_ -= std::abs(first_.slope);
            advance(first_, second_);
        } else {
            move(second_, first_);
            error_ += std::abs(second_.slope);
            advance(second_, first_);
        }
    }

    // Takes as many steps as are alike, for a circle: where one axis is the steeper, each of its steps is
    // followed by one along the other. Returns how many were taken, no more than there are left.
    std::int64_t stretch(std::int64_t left) requires std::is_integral_v<Number> {
        // With the error turned round the second axis has the part of the first.
        if (std::abs(first_.slope) >= std::abs(second_.slope)) return stretch(second_, first_, error_, left);
        Number turned = -error_ - 1;
        const std::int64_t taken = stretch(first_, second_, turned, left);
        error_ = -turned - 1;
        return taken;
    }

    void finish() const {
        if (first_.mark || second_.mark) plot();
    }

  private:
    void plot(std::int64_t x, std::int64_t y) const {
        if (surface_.contains(x, y)) *surface_.at(x, y) = colour_;
    }

    void move(WalkAxis<Number> &along, WalkAxis<Number> &across) {
        along.sum += along.share;
        if (along.sum < radius_) return;
        along.sum -= radius_;
        if (along.mark) plot();
        x_ += along.dx;
        y_ += along.dy;
        if (across.mark) plot();
        along.mark = !across.mark;
        across.mark = false;
    }

    // Where the walk crosses the centre line of the axis, the other one turns back.
    void advance(WalkAxis<Number> &along, WalkAxis<Number> &across) {
        along.slope += 2;
        if (along.slope >= 0 && along.slope < 2) {
            across.turn_back();
            across.slope = 2 - across.slope;
            error_ = -error_;
        }
    }

    // Pairs of a step along the minor axis, where the error is not negative, and one along the major axis. As
    // the minor slope is the steeper, the error is negative after a minor step. The steps stop short of the
    // end of the octant, where the slopes become equal or the major axis is crossed.
    std::int64_t stretch(WalkAxis<Number> &major, WalkAxis<Number> &minor, Number &error, std::int64_t left) {
        Number major_slope = std::abs(major.slope), minor_slope = std::abs(minor.slope);
        const Number major_change = major.slope < 0 ? -2 : 2, minor_change = minor.slope < 0 ? -2 : 2;
        std::int64_t pairs = left / 2;
        if (major_change < 0) pairs = std::min(pairs, major_slope / 2 - 1);
        if (minor.mark || error >= minor_slope) return 0;

        std::int64_t x = x_, y = y_, taken = 0;
        std::int64_t marked = major.mark ? -1 : 0;  // masks: all ones for yes
        for (; pairs > 0 && minor_slope >= major_slope && minor_slope > 2; --pairs) {
            const std::int64_t turn = ~(error >> 63);
            taken += 1 - turn;
            error += major_slope - (turn & minor_slope);
            major_slope += major_change;
            minor_slope += turn & minor_change;
            x += turn & minor.dx;
            y += turn & minor.dy;
            // The place before the major step is plotted, or the one after it where both moves make a
            // diagonal.
            const std::int64_t diagonal = turn & ~marked;
            plot(x + (diagonal & major.dx), y + (diagonal & major.dy));
            x += major.dx;
            y += major.dy;
            marked |= ~turn;
        }
        x_ = x;
        y_ = y;
        major.mark = marked != 0;
        major.slope = major_change < 0 ? -major_slope : major_slope;
        minor.slope = minor_change < 0 ? -minor_slope : minor_slope;
        return taken;
    }

    Surface surface_;
    std::uint8_t colour_;
    std::int64_t x_, y_;
    std::int64_t radius_;
    Number error_ = 0;
    WalkAxis<Number> first_, second_;
};

bool whole(double number) {
    return number == std::floor(number);
}

void draw_arc(const Arc &arc, std::int32_t colour, const Surface &surface) {
    const double steps = step_count(arc);
    if (steps > static_cast<double>(kMostSteps)) return;

    const auto radius = static_cast<double>(arc.radius());
    const double angle = static_cast<double>(arc.start) * kRadians;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    const double down = cosine * radius + 0.5, left = sine * radius + 0.5;
    const Directions turn = directions(down, left, arc.span > 0);
    const double first = 2 * turn.vertical * down + 1, second = 2 * turn.horizontal * left + 1;
    const auto x = arc.x - static_cast<std::int64_t>(sine * static_cast<double>(arc.horizontal) + 0.5);
    const auto y = arc.y + static_cast<std::int64_t>(cosine * static_cast<double>(arc.vertical) + 0.5);

    const auto draw = [&]<typename Number>(Number) {
        Walk<Number> walk(surface, colour, x, y, arc.radius(),
                          {static_cast<Number>(first), arc.vertical, 0, 0, turn.vertical, false},
                          {static_cast<Number>(second), arc.horizontal, 0, -turn.horizontal, 0, false});
        walk.plot();
        for (auto to_go = static_cast<std::int64_t>(steps); to_go > 0; --to_go) {
            if constexpr (std::is_integral_v<Number>) to_go -= walk.stretch(to_go - 1);
            walk.step();
        }
        walk.finish();
    };
    // From straight below every quantity of the walk is a whole number, and so of the same value in both
    // types.
    if (arc.vertical == arc.horizontal && whole(first) && whole(second)) {
        draw(std::int64_t{});
    } else {
        draw(double{});
    }
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

void BUF_circle(int32_t cx, int32_t cy, int32_t rv, int32_t rh, int32_t start, int32_t end, int32_t colour,
                uint8_t *buf) {
    draw_arc({cx, cy, rv, rh, start, make_span(start, end)}, colour, screen(buf));
}

void MEM_circle(int32_t cx, int32_t cy, int32_t rv, int32_t rh, int32_t start, int32_t end, int32_t colour,
                int32_t bw, int32_t bh, uint8_t *mem) {
    draw_arc({cx, cy, rv, rh, start, make_span(start, end)}, colour, memory(mem, bw, bh));
}
