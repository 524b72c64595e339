// GIF files of a tool that was built without the library for them.
#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "animation/formats.h"

namespace ink::tool {
namespace {

[[noreturn]] void refuse() {
    throw std::runtime_error("this ink was built without GIF files; turn them into PNG pictures or an .apng");
}

}  // namespace

bool is_gif(std::span<const std::uint8_t> file) {
    constexpr std::string_view kMagic = "GIF8";
    return file.size() >= kMagic.size() && std::equal(kMagic.begin(), kMagic.end(), file.begin());
}

RawAnimation decode_gif(const Bytes &) {
    refuse();
}

Bytes encode_gif(const Animation &, bool) {
    refuse();
}

}  // namespace ink::tool
