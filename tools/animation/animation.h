// Animations: pictures one after another, each at its place and for its time.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "picture/picture.h"
#include "picture/picture_file.h"

namespace ink::tool {

inline constexpr int kUsualMilliseconds = 70;

struct Frame {
    IndexedPicture picture;  // placed relative to the anchor
    int milliseconds = kUsualMilliseconds;
};

struct Animation {
    std::vector<Frame> frames;
    int anchor_x = 0, anchor_y = 0;
};

// One frame as an editor has it: of indices or of colours.
struct RawFrame {
    AnyPicture picture;
    int x = 0, y = 0, milliseconds = kUsualMilliseconds;
};
struct RawAnimation {
    std::vector<RawFrame> frames;
    int anchor_x = 0, anchor_y = 0;
};

// Reads pictures, animated GIFs and descriptions of sheets, one after another. placed says that pictures lie
// where their own files place them; descriptions place them in any case. Throws FileError and SourceError.
RawAnimation read_raw_animation(const std::vector<std::string> &names, bool placed = true);

// Every frame of an animated GIF as it is seen, on the whole of the picture. Throws std::runtime_error.
bool is_gif(std::span<const std::uint8_t> file);
RawAnimation decode_gif(const Bytes &file);

// All frames as pictures of indices: as they are where every one has a palette and none is to be coloured
// again, otherwise in the colours of one palette for all of them. done is told how many frames are coloured.
Animation coloured(const RawAnimation &raw, const Colouring &colouring,
                   const std::function<void(std::size_t)> &done = {});

// What all frames cover together.
struct Box {
    int left, top, right, bottom;  // the last two are not included
    int width() const { return right - left; }
    int height() const { return bottom - top; }
};
Box box_of(const Animation &animation);

// The frame alone on a field that all of them fit on, colour 0 around it. Throws std::runtime_error for a
// field of more than 2^26 pixels.
IndexedPicture on_field(const Animation &animation, const Frame &frame);

// Cuts colour 0 off the edges of every frame; one pixel at least stays.
void trim(Animation &animation);

// All files that show the animation: what the name of the place ends in says which. A folder (or a name
// without an ending) gets a PNG picture a frame and a description of them; .sheet is a description with one
// PNG picture beside it; .gif and .apng are animated. transparent says that colour 0 is not there. Throws
// std::runtime_error.
std::vector<std::pair<std::filesystem::path, Bytes>> files_of(const Animation &animation,
                                                              const std::filesystem::path &place,
                                                              bool transparent);

}  // namespace ink::tool
