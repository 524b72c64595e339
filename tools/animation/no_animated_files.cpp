// Animated GIF and PNG for a tool that was built without the libraries for them.
#include <stdexcept>

#include "animation/formats.h"

namespace ink::tool {
namespace {

[[noreturn]] void refuse() {
    throw std::runtime_error(
        "this ink was built without giflib and zlib: it knows folders of pictures and sheets, but no "
        "animated files");
}

}  // namespace

bool is_gif(std::span<const std::uint8_t> file) {
    return as_text(file).starts_with("GIF8");
}
RawAnimation decode_gif(const Bytes &) {
    refuse();
}
Bytes encode_gif(const Animation &, bool) {
    refuse();
}
Bytes encode_apng(const Animation &, bool) {
    refuse();
}

}  // namespace ink::tool
