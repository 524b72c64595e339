#include <array>
#include <cstdint>

#include "core/counters.h"
#include "core/hooks.h"
#include "draw/palette.h"
#include "inkstone/palette.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "inkstone/view.h"

namespace ink::draw {
namespace {

using Palette = std::array<std::uint8_t, kPaletteSize>;

constexpr std::int32_t kLastStep = 63;

// Where the fades lead and what pumps messages meanwhile. The target stays the caller's.
const std::uint8_t *target = nullptr;
INK_PROCEDURE callback = nullptr;

// The fade that goes on from call to call.
Palette stepped_start{};
std::int32_t stepped_count = 0;

INK_PROCEDURE pump_procedure() {
    return callback != nullptr ? callback : fnCheckMessage;
}

void pump() {
    pump_procedure()();
}

Palette displayed() {
    Palette palette;
    SCR_get_palette(palette.data());
    return palette;
}

void show_target() {
    if (target != nullptr) SCR_set_palette(target);
}

// Step 0 is the start, the last step the target; in between each component lags towards the start.
void show_blend(const Palette &start, std::int32_t step) {
    if (target == nullptr) return;
    Palette blend;
    for (std::size_t i = 0; i < blend.size(); ++i)
        blend[i] = static_cast<std::uint8_t>(start[i] + (target[i] - start[i]) * step / kLastStep);
    SCR_set_palette(blend.data());
}

}  // namespace
}  // namespace ink::draw

using namespace ink::draw;

void PAL_fade_init(const uint8_t *palette, INK_PROCEDURE procedure) {
    target = palette;
    callback = procedure;
}

// The callback may set another target, so each step looks at the one of the moment.
void PAL_fade_effect(int32_t delay) {
    if (target == nullptr) return;
    const Palette start = displayed();
    for (std::int32_t step = 0; step <= kLastStep; ++step) {
        SetTimerTick(ink::kFadeCounter, 0);
        pump();
        show_blend(start, step);
        for (ink::Wait wait; GetTimerTick(ink::kFadeCounter) < static_cast<std::uint32_t>(delay); pump())
            wait.rest(pump_procedure());
    }
    show_target();
}

void PAL_step_fade_effect(int32_t mode) {
    if (mode == 0) {
        stepped_start = displayed();
        stepped_count = 0;
        return;
    }
    if (target == nullptr || stepped_count >= kLastStep) return;
    show_blend(stepped_start, stepped_count++);
    // The blend of the last step made is not yet the target.
    if (stepped_count == kLastStep) show_target();
}
