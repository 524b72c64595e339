// Takes any text for a CUE sheet over small images, one of them a wave file, and plays the ends of every track it gives.
#include <cstdlib>

#include "inkstone/cdaudio.h"
#include "inkstone/host.h"
#include "scratch.h"
#include "support/sound.h"

namespace {

// They lie beside the sheet under the names that the kept sheets use.
void write_images() {
    const test::Bytes image(2352 * 40 + 5, 0x11);
    test::write_file("d.bin", image);
    test::write_file("d.wav", test::wave(2, 44100, 16, image));
    test::write_file("slow.wav", test::wave(2, 22050, 16, image));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const char *name = fuzz::as_file(data, size);
    [[maybe_unused]] static const bool written = (write_images(), true);
    if (HOST_insert_disc(name) != 0) return 0;
    if (CDROM_stop() != 0) CDROM_open();
    const std::int32_t tracks = CDROM_total();
    std::int16_t heard[2 * 588];
    for (std::int32_t track = 0; track < tracks && track < 255; ++track) {
        if (CDROM_play(track) != 0) std::abort();
        HOST_capture_sound(1);
        HOST_advance_clock(14000);
        HOST_read_sound(heard, 588);
        HOST_capture_sound(0);
        HOST_advance_clock(256ULL * 60 * 1000000);
        if (CDROM_status() != 0) std::abort();
    }
    HOST_eject_disc();
    return 0;
}
