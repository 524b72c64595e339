// Animated PNG: a PNG file whose further frames stand in chunks that other readers pass over.
#include <zlib.h>

#include <stdexcept>

#include "animation/formats.h"

namespace ink::tool {
namespace {

constexpr std::uint8_t kTrueColourWithAlpha = 6, kLeave = 0, kReplace = 0;

// PNG's numbers have their most significant byte first.
void add_number(Bytes &to, std::uint32_t value, int bytes) {
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        to.push_back(static_cast<std::uint8_t>(value >> shift));
}

void add_chunk(Bytes &to, std::string_view type, const Bytes &data) {
    Bytes checked;
    append(checked, type);
    append(checked, data);
    add_number(to, static_cast<std::uint32_t>(data.size()), 4);
    append(to, checked);
    add_number(to, static_cast<std::uint32_t>(crc32(0, checked.data(), static_cast<uInt>(checked.size()))),
               4);
}

Bytes packed_rows(const IndexedPicture &picture, bool transparent) {
    const Palette bright = bright_palette(picture.palette);
    Bytes rows;
    for (int y = 0; y < picture.height; ++y) {
        rows.push_back(0);  // no filter
        for (int x = 0; x < picture.width; ++x) {
            const std::uint8_t pixel = picture.row(y)[x];
            append(rows, std::span(bright).subspan(std::size_t{3} * pixel, 3));
            rows.push_back(transparent && pixel == 0 ? 0 : 255);
        }
    }
    uLongf size = compressBound(static_cast<uLong>(rows.size()));
    Bytes packed(size);
    if (compress2(packed.data(), &size, rows.data(), static_cast<uLong>(rows.size()), Z_BEST_COMPRESSION) !=
        Z_OK)
        throw std::runtime_error("there is no memory");
    packed.resize(size);
    return packed;
}

}  // namespace

Bytes encode_apng(const Animation &animation, bool transparent) {
    const Box box = box_of(animation);
    const auto width = static_cast<std::uint32_t>(box.width()),
               height = static_cast<std::uint32_t>(box.height());
    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    Bytes head;
    add_number(head, width, 4);
    add_number(head, height, 4);
    append(head, std::array<std::uint8_t, 5>{8, kTrueColourWithAlpha, 0, 0, 0});
    add_chunk(file, "IHDR", head);
    Bytes control;
    add_number(control, static_cast<std::uint32_t>(animation.frames.size()), 4);
    add_number(control, 0, 4);  // for ever
    add_chunk(file, "acTL", control);
    std::uint32_t sequence = 0;
    for (const Frame &frame : animation.frames) {
        const bool first = sequence == 0;
        Bytes of_frame;
        add_number(of_frame, sequence++, 4);
        add_number(of_frame, width, 4);
        add_number(of_frame, height, 4);
        add_number(of_frame, 0, 4);
        add_number(of_frame, 0, 4);
        add_number(of_frame, static_cast<std::uint32_t>(frame.milliseconds), 2);
        add_number(of_frame, 1000, 2);
        of_frame.push_back(kLeave);
        of_frame.push_back(kReplace);
        add_chunk(file, "fcTL", of_frame);
        Bytes data;
        if (!first) add_number(data, sequence++, 4);
        append(data, packed_rows(on_field(animation, frame), transparent));
        add_chunk(file, first ? "IDAT" : "fdAT", data);
    }
    add_chunk(file, "IEND", {});
    return file;
}

}  // namespace ink::tool
