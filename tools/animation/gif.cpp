#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "animation/formats.h"
#include "core/reader.h"

namespace ink::tool {
namespace {

constexpr std::int64_t kMostPixels = 1 << 26;  // of all frames together

[[noreturn]] void fail(int error) {
    const char *reason = GifErrorString(error);
    throw std::runtime_error(std::string("the GIF file: ") + (reason != nullptr ? reason : "is damaged"));
}

struct CloseReader {
    void operator()(GifFileType *gif) const { DGifCloseFile(gif, nullptr); }
};
struct CloseWriter {
    void operator()(GifFileType *gif) const { EGifCloseFile(gif, nullptr); }
};
struct FreeMap {
    void operator()(ColorMapObject *map) const { GifFreeMapObject(map); }
};

int read_from(GifFileType *gif, GifByteType *to, int count) {
    auto &left = *static_cast<std::span<const std::uint8_t> *>(gif->UserData);
    const std::size_t taken = std::min(left.size(), static_cast<std::size_t>(count));
    std::memcpy(to, left.data(), taken);
    left = left.subspan(taken);
    return static_cast<int>(taken);
}
int write_to(GifFileType *gif, const GifByteType *from, int count) {
    append(*static_cast<Bytes *>(gif->UserData), {from, static_cast<std::size_t>(count)});
    return count;
}

// The pixels of all images together, as their headers state them: giflib takes memory for them before it finds
// out whether they are there.
std::int64_t stated_pixels(const Bytes &file) {
    constexpr std::uint8_t kImage = 0x2C, kExtension = 0x21;
    Reader reader(file);
    const auto skip_colours = [&](int flags) {
        if ((flags & 0x80) != 0) reader.skip(std::size_t{6} << (flags & 7));
    };
    const auto skip_blocks = [&] {
        while (const std::size_t size = reader.u8()) reader.skip(size);
    };
    reader.skip(10);
    const int flags = reader.u8();
    reader.skip(2);
    skip_colours(flags);
    std::int64_t pixels = 0;
    while (reader.ok()) {
        const std::uint8_t kind = reader.u8();
        if (kind == kImage) {
            reader.skip(4);
            const std::int64_t width = reader.u16();
            pixels += width * reader.u16();
            skip_colours(reader.u8());
            reader.skip(1);
        } else if (kind == kExtension) {
            reader.skip(1);
        } else {
            break;
        }
        skip_blocks();
    }
    return pixels;
}

// Draws one image onto what is seen.
void draw(ColourPicture &seen, const GifFileType &gif, const SavedImage &image, int transparent) {
    const GifImageDesc &place = image.ImageDesc;
    const ColorMapObject *map = place.ColorMap != nullptr ? place.ColorMap : gif.SColorMap;
    if (map == nullptr) throw std::runtime_error("the GIF file: an image has no colours");
    for (int y = 0; y < place.Height; ++y)
        for (int x = 0; x < place.Width; ++x) {
            const int entry = image.RasterBits[std::ptrdiff_t{y} * place.Width + x];
            const int to_x = place.Left + x, to_y = place.Top + y;
            if (entry == transparent || entry >= map->ColorCount || to_x < 0 || to_y < 0 ||
                to_x >= seen.width || to_y >= seen.height)
                continue;
            const GifColorType &colour = map->Colors[entry];
            seen.pixels[static_cast<std::size_t>(to_y) * static_cast<std::size_t>(seen.width) +
                        static_cast<std::size_t>(to_x)] = {colour.Red, colour.Green, colour.Blue, 255};
        }
}

}  // namespace

bool is_gif(std::span<const std::uint8_t> file) {
    const std::string_view text = as_text(file);
    return text.starts_with("GIF87a") || text.starts_with("GIF89a");
}

RawAnimation decode_gif(const Bytes &file) {
    std::span<const std::uint8_t> left = file;
    int error = 0;
    const std::unique_ptr<GifFileType, CloseReader> gif(DGifOpen(&left, read_from, &error));
    if (!gif) fail(error);
    if (std::int64_t{gif->SWidth} * gif->SHeight > kMostPixels || gif->SWidth < 1 || gif->SHeight < 1 ||
        stated_pixels(file) > kMostPixels)
        throw std::runtime_error("the GIF file: it is too large, or has no pixel");
    if (DGifSlurp(gif.get()) != GIF_OK) fail(gif->Error);
    if (std::int64_t{gif->SWidth} * gif->SHeight * gif->ImageCount > kMostPixels)
        throw std::runtime_error("the GIF file: its frames are too large together");
    RawAnimation made;
    ColourPicture seen{gif->SWidth, gif->SHeight, {}};
    seen.pixels.resize(static_cast<std::size_t>(gif->SWidth) * static_cast<std::size_t>(gif->SHeight));
    for (int i = 0; i < gif->ImageCount; ++i) {
        GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
        DGifSavedExtensionToGCB(gif.get(), i, &control);
        const ColourPicture before = seen;
        draw(seen, *gif, gif->SavedImages[i], control.TransparentColor);
        RawFrame frame;
        frame.picture.colours = seen;
        // Players take no time at all, and less than 2 hundredths, for a tenth of a second.
        frame.milliseconds = control.DelayTime < 2 ? 100 : 10 * control.DelayTime;
        made.frames.push_back(std::move(frame));
        if (control.DisposalMode == DISPOSE_PREVIOUS) seen = before;
        if (control.DisposalMode != DISPOSE_BACKGROUND) continue;
        const GifImageDesc &place = gif->SavedImages[i].ImageDesc;
        for (int y = std::max(0, place.Top); y < std::min(seen.height, place.Top + place.Height); ++y)
            for (int x = std::max(0, place.Left); x < std::min(seen.width, place.Left + place.Width); ++x)
                seen.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(seen.width) +
                            static_cast<std::size_t>(x)] = {};
    }
    if (made.frames.empty()) throw std::runtime_error("the GIF file: it has no frame");
    return made;
}

Bytes encode_gif(const Animation &animation, bool transparent) {
    Bytes file;
    int error = 0;
    std::unique_ptr<GifFileType, CloseWriter> gif(EGifOpen(&file, write_to, &error));
    if (!gif) fail(error);
    const auto check = [&](int result) {
        if (result != GIF_OK) fail(gif->Error);
    };
    const Box box = box_of(animation);
    if (box.width() > 0xFFFF || box.height() > 0xFFFF)
        throw std::runtime_error("a GIF picture has 65535 pixels a side at most");
    EGifSetGifVersion(gif.get(), true);
    check(EGifPutScreenDesc(gif.get(), box.width(), box.height(), 8, 0, nullptr));
    check(EGifPutExtensionLeader(gif.get(), APPLICATION_EXT_FUNC_CODE));
    check(EGifPutExtensionBlock(gif.get(), 11, "NETSCAPE2.0"));
    const std::uint8_t forever[] = {1, 0, 0};
    check(EGifPutExtensionBlock(gif.get(), sizeof forever, forever));
    check(EGifPutExtensionTrailer(gif.get()));
    for (const Frame &frame : animation.frames) {
        IndexedPicture picture = on_field(animation, frame);
        std::array<GifColorType, 256> colours;
        const Palette bright = bright_palette(picture.palette);
        for (std::size_t i = 0; i < 256; ++i)
            colours[i] = {bright[3 * i], bright[3 * i + 1], bright[3 * i + 2]};
        const std::unique_ptr<ColorMapObject, FreeMap> map(GifMakeMapObject(256, colours.data()));
        if (!map) throw std::runtime_error("there is no memory");
        const GraphicsControlBlock control{transparent ? DISPOSE_BACKGROUND : DISPOSE_DO_NOT, false,
                                           std::clamp((frame.milliseconds + 5) / 10, 2, 0xFFFF),
                                           transparent ? 0 : NO_TRANSPARENT_COLOR};
        std::array<GifByteType, 4> packed;
        const auto size = static_cast<int>(EGifGCBToExtension(&control, packed.data()));
        check(EGifPutExtension(gif.get(), GRAPHICS_EXT_FUNC_CODE, size, packed.data()));
        check(EGifPutImageDesc(gif.get(), 0, 0, picture.width, picture.height, false, map.get()));
        for (int y = 0; y < picture.height; ++y) check(EGifPutLine(gif.get(), picture.row(y), picture.width));
    }
    if (EGifCloseFile(gif.release(), &error) != GIF_OK) fail(error);
    return file;
}

}  // namespace ink::tool
