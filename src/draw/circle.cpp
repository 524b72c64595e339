#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>
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
    const std::int64_t degrees = angle - quarters * 90;
    const double whole = 2 * radius * static_cast<double>(quarters);
    if (degrees == 0) return whole;
    const double rest = static_cast<double>(degrees) * kRadians;
    return whole + radius - radius * std::cos(rest) + radius * std::sin(rest);
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
    // A move along the axis leaves the place before it out: it came there by a move along the other axis from a
    // place that was plotted, and both moves make one diagonal.
    bool leaves_out = false;

    void turn_back() { dx = -dx, dy = -dy; }
};

// Where the pixels of a walk lie: at coordinates that are looked at one by one, or wholly on the surface, where
// a place is an address.
struct Anywhere {
    Surface surface;
    std::int64_t x, y;

    bool visible() const { return surface.contains(x, y); }
    std::uint8_t *address() const { return surface.at(x, y); }
    // A move of the offset, under a mask of all ones or none.
    struct Move {
        std::int64_t dx, dy;
    };
    Move move(int dx, int dy) const { return {dx, dy}; }
    void go(const Move &by, std::int64_t mask = -1) { x += mask & by.dx, y += mask & by.dy; }
};
struct Inside {
    std::uint8_t *place;
    std::ptrdiff_t width;

    static constexpr bool visible() { return true; }
    std::uint8_t *address() const { return place; }
    using Move = std::ptrdiff_t;
    Move move(int dx, int dy) const { return dy * width + dx; }
    void go(Move by, std::int64_t mask = -1) { place += static_cast<std::ptrdiff_t>(mask) & by; }
};

// The walk round the circle, in unit steps along one axis at a time; the offsets of the ellipse follow, each
// at the share of its radius. Each place is plotted when the walk moves on from it.
template <typename Number, class Place>
class Walk {
  public:
    Walk(const Place &place, std::uint8_t colour, std::int64_t radius, const WalkAxis<Number> &first,
         const WalkAxis<Number> &second)
        : place_(place), colour_(colour), radius_(radius), first_(first), second_(second) {}

    void plot() const {
        if (place_.visible()) *place_.address() = colour_;
    }

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

    // Takes as many steps as are alike: where one axis is the steeper, each of its steps is followed by one
    // along the other. Returns how many were taken, no more than there are left.
    std::int64_t stretch(std::int64_t left) requires std::is_integral_v<Number> {
        // With the error turned round the first axis has the part of the second.
        if (std::abs(first_.slope) < std::abs(second_.slope)) return stretch(first_, second_, error_, left);
        Number turned = -error_ - 1;
        const std::int64_t taken = stretch(second_, first_, turned, left);
        error_ = -turned - 1;
        return taken;
    }

  private:
    using Axis = WalkAxis<Number>;

    void move(Axis &along, Axis &across) {
        along.sum += along.share;
        if (along.sum < radius_) return;
        along.sum -= radius_;
        if (!along.leaves_out) plot();
        across.leaves_out = !along.leaves_out;
        along.leaves_out = false;
        place_.go(place_.move(along.dx, along.dy));
    }

    // Where the walk crosses the centre line of the axis, the other one turns back.
    void advance(Axis &along, Axis &across) {
        along.slope += 2;
        if (along.slope >= 0 && along.slope < 2) {
            across.turn_back();
            across.slope = 2 - across.slope;
            error_ = -error_;
        }
    }

    // Pairs of a step along the minor axis, where the error is negative, and one along the major axis. As the
    // minor slope is the steeper, the error is not negative after a minor step. The steps stop short of the end
    // of the octant, where the slopes become equal or the major axis is crossed. One of the radii is the
    // circle's, so the offset moves with every step along its axis.
    std::int64_t stretch(Axis &major, Axis &minor, Number &error, std::int64_t left) {
        constexpr std::int64_t kSmall = 4;  // where a slope may end before the slopes are equal
        if (radius_ < kSmall || error < -std::abs(minor.slope)) return 0;
        // One of the slopes comes from below 0 and the other goes on above, but in arcs that leave the ellipse.
        if ((major.slope < 0) == (minor.slope < 0)) return 0;
        return major.slope < 0 ? stretch<-2>(major, minor, error, left)
                               : stretch<2>(major, minor, error, left);
    }
    template <int change>
    std::int64_t stretch(Axis &major, Axis &minor, Number &error, std::int64_t left) {
        if (major.share != radius_) return pairs<change, false, true>(major, minor, error, left);
        if (major.leaves_out) return 0;
        return minor.share != radius_ ? pairs<change, true, false>(major, minor, error, left)
                                      : pairs<change, true, true>(major, minor, error, left);
    }

    // The masks are all ones for yes: the loop has no branch but its end. All it needs stands in variables of
    // its own, which a pixel that is written cannot be taken to change. The major slope's size changes by so
    // much with each step, and the minor slope's by as much the other way.
    template <int change, bool major_whole, bool minor_whole>
    std::int64_t pairs(Axis &major, Axis &minor, Number &sum, std::int64_t left) {
        Number error = sum, major_slope = std::abs(major.slope), minor_slope = std::abs(minor.slope);
        std::int64_t most = left / 2;
        if (change < 0) most = std::min(most, major_slope / 2 - 1);
        if (most <= 0) return 0;
        const Number start = major_slope, end = start + most * change, minor_start = minor_slope;

        Place place = place_;
        const auto major_move = place.move(major.dx, major.dy), minor_move = place.move(minor.dx, minor.dy);
        const std::uint8_t colour = colour_;
        const std::int64_t radius = radius_, major_share = major.share, minor_share = minor.share;
        // What is missing for the next move.
        std::int64_t major_lack = radius - 1 - major.sum, minor_lack = radius - 1 - minor.sum;
        std::int64_t major_left_out = major.leaves_out ? -1 : 0, minor_left_out = minor.leaves_out ? -1 : 0;
        // One pair's steps; whether the minor offset moves.
        const auto step_both = [&] {
            const std::int64_t turn = error >> 63;
            error += (turn & minor_slope) - major_slope;
            major_slope += change;
            minor_slope += turn * change;
            return minor_whole ? turn : moves(minor_lack, turn & minor_share, radius);
        };
        const auto more = [&] { return major_slope != end && (change < 0 || minor_slope >= major_slope); };
        if constexpr (major_whole) {
            // The place before the minor move is plotted, and that after it left out, until an offset moves alone.
            while (minor_left_out == 0 && more()) {
                const std::int64_t across = step_both();
                if (place.visible()) *place.address() = colour;
                place.go(minor_move, across);
                place.go(major_move);
                minor_left_out = ~across;
            }
            // From then on it is the other way round.
            while (more()) {
                place.go(minor_move, step_both());
                if (place.visible()) *place.address() = colour;
                place.go(major_move);
            }
        } else {
            std::uint8_t nowhere = 0, *spot = &nowhere;
            while (more()) {
                const std::int64_t across = step_both(), before = across & ~minor_left_out;
                spot = choose(before, place, spot);
                *spot = colour;
                place.go(minor_move, across);
                major_left_out = before | (~across & major_left_out);
                minor_left_out &= ~across;
                const std::int64_t along = moves(major_lack, major_share, radius),
                                   between = along & ~major_left_out;
                spot = choose(between, place, spot);
                *spot = colour;
                place.go(major_move, along);
                minor_left_out = between | (~along & minor_left_out);
                major_left_out &= ~along;
            }
        }
        place_ = place;
        sum = error;
        major.sum = radius - 1 - major_lack, minor.sum = radius - 1 - minor_lack;
        major.leaves_out = major_left_out != 0, minor.leaves_out = minor_left_out != 0;
        major.slope = change < 0 ? -major_slope : major_slope;
        minor.slope = change < 0 ? minor_slope : -minor_slope;
        return (major_slope - start - (minor_slope - minor_start)) / change;
    }

    // Whether a step along an axis, which takes its share of what is missing, moves the offset.
    static std::int64_t moves(std::int64_t &lack, std::int64_t share, std::int64_t radius) {
        lack -= share;
        const std::int64_t moved = lack >> 63;
        lack += moved & radius;
        return moved;
    }

    // The place's address, or the spot that was plotted last where this one is not to be.
    static std::uint8_t *choose(std::int64_t mask, const Place &place, std::uint8_t *spot) {
        return mask != 0 && place.visible() ? place.address() : spot;
    }

    Place place_;
    std::uint8_t colour_;
    std::int64_t radius_;
    Number error_ = 0;
    Axis first_, second_;
};

bool whole(double number) {
    return number == static_cast<double>(static_cast<std::int64_t>(number));
}

// Whether an arc that turns clockwise from straight below lies on the surface, with room for the pixels by
// which its offsets pass the radii.
bool lies_inside(const Arc &arc, const Surface &surface) {
    constexpr std::int64_t kRoom = 4, kLargest = 4096;
    const std::int64_t down = arc.vertical + kRoom, across = arc.horizontal + kRoom;
    return arc.vertical > 0 && arc.horizontal > 0 && arc.radius() <= kLargest &&
           surface.contains(arc.x - across, arc.y - down) && surface.contains(arc.x + across, arc.y + down);
}

void walk_arc(const Arc &arc, std::int32_t colour, const Surface &surface) {
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

    const auto draw = [&]<typename Number, class Place>(Number, const Place &place) {
        Walk<Number, Place> walk(
            place, low_byte(colour), arc.radius(),
            {static_cast<Number>(first), arc.vertical, 0, 0, turn.vertical, false},
            {static_cast<Number>(second), arc.horizontal, 0, -turn.horizontal, 0, false});
        for (auto to_go = static_cast<std::int64_t>(steps); to_go > 0; --to_go) {
            if constexpr (std::is_integral_v<Number>) to_go -= walk.stretch(to_go - 1);
            walk.step();
        }
        walk.plot();
    };
    // From straight below every quantity of the walk is a whole number, and so of the same value in both
    // types.
    if (!whole(first) || !whole(second)) {
        draw(double{}, Anywhere{surface, x, y});
    } else if (arc.span > 0 && lies_inside(arc, surface)) {
        draw(std::int64_t{}, Inside{surface.at(x, y), static_cast<std::ptrdiff_t>(surface.width)});
    } else {
        draw(std::int64_t{}, Anywhere{surface, x, y});
    }
}

// The pixels of a whole figure of radii up to some. Small ones are drawn from lists, made when the first of their size
// is drawn: where a walk turns no processor foresees, and that would be most of their cost.
template <std::size_t largest>
class Figure {
  public:
    void draw(const Arc &arc, std::uint8_t colour, const Surface &surface) {
        std::call_once(found_, [&] { find_pixels(arc); });
        std::uint8_t *const centre = surface.at(arc.x, arc.y);
        const auto width = static_cast<std::ptrdiff_t>(surface.width);
        for (std::size_t i = 0; i < count_; ++i) centre[pixels_[i].y * width + pixels_[i].x] = colour;
    }

  private:
    struct Offset {
        std::int8_t x, y;
    };

    void find_pixels(Arc arc) {
        constexpr int kMiddle = largest + 4, kSide = 2 * kMiddle + 1;
        std::array<std::uint8_t, kSide * kSide> drawn{};
        arc.x = arc.y = kMiddle;
        walk_arc(arc, 1, {drawn.data(), kSide, kSide});
        for (int y = -kMiddle; y <= kMiddle; ++y)
            for (int x = -kMiddle; x <= kMiddle; ++x)
                if (drawn[static_cast<std::size_t>((y + kMiddle) * kSide + x + kMiddle)] != 0)
                    pixels_[count_++] = {static_cast<std::int8_t>(x), static_cast<std::int8_t>(y)};
    }

    std::once_flag found_;  // buffers may be drawn on from several threads
    std::size_t count_ = 0;
    std::array<Offset, 8 * largest> pixels_{};  // one for each step and the end, which is one less than that
};

constexpr std::int64_t kListedCircle = 64, kListedEllipse = 16;
Figure<kListedCircle> circles[kListedCircle];
Figure<kListedEllipse> ellipses[kListedEllipse][kListedEllipse];

void draw_arc(const Arc &arc, std::int32_t colour, const Surface &surface) {
    const bool whole_inside = arc.start == 0 && arc.span == 360 && lies_inside(arc, surface);
    if (whole_inside && arc.vertical == arc.horizontal && arc.radius() <= kListedCircle)
        circles[arc.vertical - 1].draw(arc, low_byte(colour), surface);
    else if (whole_inside && arc.radius() <= kListedEllipse)
        ellipses[arc.vertical - 1][arc.horizontal - 1].draw(arc, low_byte(colour), surface);
    else
        walk_arc(arc, colour, surface);
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
