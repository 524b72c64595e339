// Loads any file as a wave and plays it, alone and over itself, through both loaders.
#include "inkstone/wave.h"

#include <cstdlib>
#include <cstring>

#include "inkstone/host.h"
#include "inkstone/runtime.h"
#include "scratch.h"

namespace {

struct Fatal {};

// A fatal exit begins with its message box: there the input's life ends.
std::int32_t end_at_message_box(const char *call) {
    if (std::strncmp(call, "message_box", 11) == 0) throw Fatal();
    return 0;
}

void load_and_play(const char *name, std::size_t size) {
    std::int16_t heard[2 * 441];
    if (DS_load_wave_channel(name, 2) == 0) DS_start(2, static_cast<std::int32_t>(size % 2));
    if (DS_load_wave(name) != 0) std::abort();
    DS_start(0, 1);
    HOST_advance_clock(5000);
    DS_start(2, 0);
    DS_set_volume(0, -static_cast<std::int32_t>(size));
    HOST_advance_clock(4900);
    DS_stop(0);
    if (HOST_read_sound(heard, 441) < 430) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const char *name = fuzz::as_file(data, size);
    HOST_observe(end_at_message_box);
    DS_init(nullptr);
    HOST_capture_sound(1);
    try {
        load_and_play(name, size);
    } catch (const Fatal &) {
    }
    DS_destroy();
    return 0;
}
