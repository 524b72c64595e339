// Reads any file; a picture that was read comes back the same after it was saved.
#include "inkstone/pcx.h"

#include <cstdlib>
#include <vector>

#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const char *name = fuzz::as_file(data, size);
    std::int32_t width = 0, height = 0;
    const std::int32_t pixels = PCX_get_image_size(name, &width, &height);
    if (pixels < 0 || pixels > 1 << 20) return 0;
    std::vector<std::uint8_t> picture(static_cast<std::size_t>(pixels)), again(picture.size());
    if (PCX_read_file(name, picture.data()) != 0 || width > 32767 || height > 32767) return 0;
    std::vector<std::uint8_t> palette(768);
    PCX_export_palette(palette.data());
    PCX_inport_palette(palette.data());
    if (PCX_save_file("no/saved", 0, 0, width, height, picture.data(), width, 0) == 0 ||
        PCX_get_image_size("nothing", &width, &height) >= 0 || PCX_read_file("nothing", picture.data()) == 0)
        std::abort();
    if (PCX_save_file("saved", 0, 0, width, height, picture.data(), width, 0) != 0) std::abort();
    if (PCX_get_image_size("saved", &width, &height) != pixels) std::abort();
    if (PCX_read_file("saved", again.data()) != 0 || again != picture) std::abort();
    return 0;
}
