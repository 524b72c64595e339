// Any bytes as a picture or an animation that the tool converts: what is read of it can be written in every kind that
// holds it, and is the same when it is read again.
#include "picture/picture_file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

#include "animation/animation.h"
#include "can/reader.h"
#include "film/can_file.h"
#include "film/flic_film.h"
#include "flic/reader.h"
#include "inkstone/draw.h"
#include "png/png_file.h"
#include "scratch.h"

namespace {

using namespace ink::tool;

std::string reason;  // of the last refusal

void require(bool holds) {
    if (holds) return;
    std::fprintf(stderr, "last refused: %s\n", reason.c_str());
    std::abort();
}

// What an attempt gives, unless it is refused with a reason.
template <class Attempt>
auto unless_refused(Attempt attempt) -> std::optional<decltype(attempt())> {
    try {
        return attempt();
    } catch (const std::runtime_error &error) {
        reason = error.what();
        return std::nullopt;
    }
}

const char *as_file(const Bytes &bytes) {
    return fuzz::as_file(bytes.data(), bytes.size());
}

void write_again(const IndexedPicture &picture) {
    for (const char *name : {"png", "pcx", "img", "cim"}) {
        const PictureKind kind = picture_kind(name).value();
        require(extension_of(kind) == std::string_view(name));
        const auto file = unless_refused([&] { return encode_picture(picture, kind); });
        if (!file) continue;
        const IndexedPicture again = read_any_picture(as_file(*file)).indexed.value();
        require(again.width == picture.width && again.height == picture.height &&
                again.pixels == picture.pixels);
        const bool has_palette = kind == PictureKind::png || kind == PictureKind::pcx;
        require(!has_palette || again.palette == picture.palette);
    }
    // As colours, by libpng's own way of reading and writing.
    if (picture.pixels.empty()) return;
    write_png("colours", picture.width, picture.height, picture.pixels, bright_palette(picture.palette));
    const RgbPicture colours = read_png_rgb("colours");
    write_png_rgb("colours", colours.width, colours.height, colours.rgb);
    require(read_png_rgb("colours").rgb == colours.rgb && colours.rgb.size() == 3 * picture.pixels.size());
}

void write_again(const Animation &animation) {
    for (const char *place : {"again.gif", "again.apng", "again.sheet", "again"}) {
        const auto files = unless_refused([&] { return files_of(animation, place, true); });
        if (!files || place == std::string_view("again.apng")) continue;
        std::filesystem::create_directories("again");
        for (const auto &[name, bytes] : *files) write_bytes(name, bytes, true);
        const auto raw = unless_refused([&] { return read_raw_animation({files->back().first.string()}); });
        require(raw && raw->frames.size() >= animation.frames.size());
    }
    std::vector<IndexedPicture> pictures;
    for (const Frame &frame : animation.frames) pictures.push_back(frame.picture);
    if (const auto file = unless_refused([&] { return can_file(pictures, 0, 0); })) {
        const auto can = unless_refused([&] { return read_can(*file); });
        require(can && can->frames.size() == pictures.size());
    }
    if (const auto file = unless_refused([&] { return flic::film(pictures, 70); })) {
        const auto film = unless_refused([&] { return read_flic(*file); });
        // A film is read as it is played: what reaches beyond the screen is cut off.
        const IndexedPicture &last = pictures.back();
        const int width = std::min(last.width, INK_SCREEN_WIDTH),
                  height = std::min(last.height, INK_SCREEN_HEIGHT);
        require(film && film->frames.back().picture.pixels == cut(last, 0, 0, width, height).pixels);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0 || size > 1 << 14) return 0;
    take_touched();
    const Bytes file(data + 1, data + size);
    const Colouring colouring{
        std::nullopt, {data[0] % 5, 255 - data[0] / 2}, data[0] % 2 != 0, data[0] % 3 == 0};
    if (const auto picture = unless_refused([&] { return read_picture(as_file(file), colouring); })) {
        if (picture->pixels.size() > 1 << 18) return 0;
        write_again(*picture);
    }
    unless_refused([&] { return palette_inside(file); });
    const auto animation = unless_refused([&] { return read_can(file); });
    for (auto &made : {animation, unless_refused([&] { return read_flic(file); }), unless_refused([&] {
                           return coloured(read_raw_animation({as_file(file)}), colouring);
                       })}) {
        if (!made || made->frames.size() > 20 ||
            std::int64_t{box_of(*made).width()} * box_of(*made).height() > 1 << 16)
            continue;
        Animation trimmed = *made;
        trim(trimmed);
        write_again(trimmed);
    }
    return 0;
}
