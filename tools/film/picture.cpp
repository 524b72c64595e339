#include "film/picture.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/reader.h"
#include "inkstone/pcx.h"

namespace ink::tool {

void append(Bytes &to, std::span<const std::uint8_t> bytes) {
    const std::size_t end = to.size();
    to.resize(end + bytes.size());
    std::copy(bytes.begin(), bytes.end(), to.begin() + static_cast<std::ptrdiff_t>(end));
}

Bytes read_bytes(const std::filesystem::path &name) {
    std::ifstream file(name, std::ios::binary);
    Bytes bytes(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || std::filesystem::is_directory(name))
        throw std::runtime_error("cannot read " + name.string());
    return bytes;
}

void write_bytes(const std::filesystem::path &name, const Bytes &bytes) {
    std::ofstream file(name, std::ios::binary);
    if (!file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()))
             .flush())
        throw std::runtime_error("cannot write " + name.string());
}

IndexedPicture read_picture(const std::filesystem::path &name) {
    const Bytes file = read_bytes(name);
    Reader header(file);
    header.seek(4);
    IndexedPicture picture;
    picture.x = header.i16();
    picture.y = header.i16();
    // The library logs why it refuses a file; here the user is told.
    if (PCX_get_image_size(name.string().c_str(), &picture.width, &picture.height) <= 0)
        throw std::runtime_error(name.string() + " is not a PCX picture of 256 colours");
    picture.pixels.resize(static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
    if (PCX_read_file(name.string().c_str(), picture.pixels.data()) != 0)
        throw std::runtime_error(name.string() + " has no palette of 256 colours");
    PCX_export_palette(picture.palette.data());
    return picture;
}

std::array<std::uint8_t, 768> bright_palette(const std::array<std::uint8_t, 768> &palette) {
    std::array<std::uint8_t, 768> bright;
    for (std::size_t i = 0; i < bright.size(); ++i)
        bright[i] = static_cast<std::uint8_t>((palette[i] & 63) * 255 / 63);
    return bright;
}

}  // namespace ink::tool
