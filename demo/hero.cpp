#include "hero.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstdlib>

#include "figure.h"
#include "sound.h"
#include "state.h"

namespace moon {
namespace {

// The frames of hero.can.
enum Frame : int { kWalking = 0, kWalkingFrames = 8, kStanding = 8, kBlinking = 9, kReaching = 10 };

constexpr std::int32_t kCounter = 1;  // 18 ticks a second since he began to walk or to stand
constexpr int kSpeed = 4;             // pixels a frame
constexpr std::uint32_t kReachTicks = 9;

Figure figure;
Point target;
bool walking = false, reaching = false;
int distance = 0;  // walked since the last step was heard

// A whole walk is two steps.
int walking_frame() {
    return kWalking + static_cast<int>(GetTimerTick(kCounter) * 2 / 3 % kWalkingFrames);
}

int standing_frame() {
    if (reaching) return kReaching + static_cast<int>(std::min(GetTimerTick(kCounter) / 4, 1U));
    return GetTimerTick(kCounter) % 70 < 3 ? kBlinking : kStanding;
}

}  // namespace

void load_hero() {
    figure.load("hero.can");
}

void place_hero(Point feet) {
    set(kHeroX, feet.x);
    set(kHeroY, feet.y);
    walking = false;
}

Point hero_feet() {
    return {get(kHeroX), get(kHeroY)};
}

void turn_hero_to(int x) {
    if (x != get(kHeroX)) set(kHeroMirrored, x < get(kHeroX) ? 1 : 0);
}

void walk_hero_to(Point feet) {
    target = feet;
    walking = feet.x != get(kHeroX) || feet.y != get(kHeroY);
    if (walking) SetTimerTick(kCounter, 0);
    reaching = false;
    turn_hero_to(feet.x);
}

void stop_hero() {
    walking = false;
}

bool hero_walks() {
    return walking;
}

void move_hero() {
    if (reaching && GetTimerTick(kCounter) > kReachTicks) reaching = false;
    if (!walking) return;
    const int dx = target.x - get(kHeroX), dy = target.y - get(kHeroY);
    // Up and down the floor he seems to go half as fast.
    const int way = std::max(std::abs(dx), std::abs(dy) * 2);
    if (way <= kSpeed) {
        place_hero(target);
        SetTimerTick(kCounter, 10);
        return;
    }
    set(kHeroX, get(kHeroX) + dx * kSpeed / way);
    set(kHeroY, get(kHeroY) + dy * kSpeed / way);
    constexpr int kStep = 44;
    if ((distance += kSpeed) >= kStep) {
        distance = 0;
        play(Sound::kStep);
    }
}

void hero_reaches() {
    reaching = true;
    SetTimerTick(kCounter, 0);
}

void draw_hero(int percent) {
    Figure::Look look;
    look.frame = walking ? walking_frame() : standing_frame();
    look.percent = percent;
    look.mirrored = get(kHeroMirrored) != 0;
    figure.draw(get(kHeroX), get(kHeroY), look, nullptr);
}

}  // namespace moon
