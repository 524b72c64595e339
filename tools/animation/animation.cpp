#include "animation/animation.h"

#include <algorithm>
#include <climits>
#include <stdexcept>

#include "animation/formats.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMostPixels = 1 << 26;

RawAnimation read_one(const fs::path &name, bool placed) {
    if (ending_of(name) == "sheet") return read_sheet(name);
    const Bytes file = read_bytes(name);
    if (is_gif(file)) {
        try {
            return decode_gif(file);
        } catch (const std::runtime_error &error) {
            throw FileError(name, error.what());
        }
    }
    RawFrame frame{any_picture_of(file, name)};
    if (frame.picture.indexed && frame.picture.indexed->pixels.empty())
        throw FileError(name, "has no pixel, and every frame of an animation has");
    if (placed && frame.picture.indexed) {
        frame.x = frame.picture.indexed->x;
        frame.y = frame.picture.indexed->y;
    }
    RawAnimation raw;
    raw.frames.push_back(std::move(frame));
    return raw;
}

std::string frame_name(std::size_t index) {
    const std::string number = std::to_string(index);
    return "frame-" + std::string(number.size() < 3 ? 3 - number.size() : 0, '0') + number + ".png";
}

std::string head_of(const Animation &animation) {
    std::string text = "; An animation, for ink can build and ink flic build.\n";
    if (animation.anchor_x != 0 || animation.anchor_y != 0)
        text +=
            "anchor " + std::to_string(animation.anchor_x) + ' ' + std::to_string(animation.anchor_y) + '\n';
    return text;
}
std::string place_and_time(const Frame &frame) {
    std::string text;
    if (frame.picture.x != 0 || frame.picture.y != 0)
        text += " at " + std::to_string(frame.picture.x) + ' ' + std::to_string(frame.picture.y);
    if (frame.milliseconds != kUsualMilliseconds) text += " for " + std::to_string(frame.milliseconds);
    return text + '\n';
}

Bytes bytes_of(const std::string &text) {
    return Bytes(text.begin(), text.end());
}

// All frames in rows that make a field about as wide as high.
std::pair<IndexedPicture, std::string> sheet_of(const Animation &animation, const std::string &picture_name) {
    int widest = 1;
    std::int64_t area = 0;
    for (const Frame &frame : animation.frames) {
        widest = std::max(widest, frame.picture.width);
        area += std::int64_t{frame.picture.width} * frame.picture.height;
    }
    int width = widest;
    while (std::int64_t{width} * width < area) width += widest;
    std::vector<std::pair<int, int>> places;
    int x = 0, y = 0, row = 0;
    for (const Frame &frame : animation.frames) {
        if (x + frame.picture.width > width) {
            x = 0;
            y += std::exchange(row, 0);
        }
        places.emplace_back(x, y);
        x += frame.picture.width;
        row = std::max(row, frame.picture.height);
    }
    const int height = std::max(1, y + row);
    if (std::int64_t{width} * height > kMostPixels)
        throw std::runtime_error("the frames do not fit on a sheet");
    IndexedPicture sheet{width, height};
    sheet.palette = animation.frames.front().picture.palette;
    std::string text = head_of(animation) + "sheet " + picture_name + '\n';
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Frame &frame = animation.frames[i];
        if (frame.picture.palette != sheet.palette)
            throw std::runtime_error(
                "its frames have palettes of their own; one sheet has one, so give a folder");
        paste(sheet, frame.picture, places[i].first, places[i].second);
        text += "frame " + std::to_string(places[i].first) + ' ' + std::to_string(places[i].second) + ' ' +
                std::to_string(frame.picture.width) + ' ' + std::to_string(frame.picture.height) +
                place_and_time(frame);
    }
    return {std::move(sheet), text};
}

}  // namespace

RawAnimation read_raw_animation(const std::vector<std::string> &names, bool placed) {
    RawAnimation all;
    for (const std::string &name : expand_patterns(names)) {
        RawAnimation one = read_one(path_of(name), placed);
        all.anchor_x += one.anchor_x;
        all.anchor_y += one.anchor_y;
        std::ranges::move(one.frames, std::back_inserter(all.frames));
    }
    if (all.frames.empty()) throw std::runtime_error("there is no frame");
    return all;
}

Animation coloured(const RawAnimation &raw, const Colouring &colouring,
                   const std::function<void(std::size_t)> &done) {
    Animation made;
    made.anchor_x = raw.anchor_x;
    made.anchor_y = raw.anchor_y;
    const bool indexed = std::ranges::all_of(
        raw.frames, [](const RawFrame &frame) { return frame.picture.indexed.has_value(); });
    std::vector<ColourPicture> colours;
    if (!indexed || colouring.again)
        for (const RawFrame &frame : raw.frames) colours.push_back(colours_of(frame.picture));
    const Palette palette = colouring.palette ? *colouring.palette
                            : colours.empty() ? Palette{}
                                              : make_palette(colours, {}, colouring.entries);
    for (std::size_t i = 0; i < raw.frames.size(); ++i) {
        const RawFrame &from = raw.frames[i];
        Frame frame{colours.empty() ? *from.picture.indexed
                                    : quantise(colours[i], palette, colouring.entries, colouring.dither),
                    from.milliseconds};
        if (colouring.palette) frame.picture.palette = palette;
        frame.picture.x = from.x;
        frame.picture.y = from.y;
        made.frames.push_back(std::move(frame));
        if (done) done(made.frames.size());
    }
    return made;
}

Box box_of(const Animation &animation) {
    Box box{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
    for (const auto &[picture, time] : animation.frames) {
        box.left = std::min(box.left, picture.x);
        box.top = std::min(box.top, picture.y);
        box.right = std::max(box.right, picture.x + picture.width);
        box.bottom = std::max(box.bottom, picture.y + picture.height);
    }
    return box;
}

IndexedPicture on_field(const Animation &animation, const Frame &frame) {
    const Box box = box_of(animation);
    if (box.width() < 1 || box.height() < 1 || std::int64_t{box.width()} * box.height() > kMostPixels)
        throw std::runtime_error("its frames do not fit on one field");
    IndexedPicture field{box.width(), box.height()};
    field.palette = frame.picture.palette;
    paste(field, frame.picture, frame.picture.x - box.left, frame.picture.y - box.top);
    return field;
}

void trim(Animation &animation) {
    for (Frame &frame : animation.frames) {
        const IndexedPicture &all = frame.picture;
        int left = all.width, top = all.height, right = 0, bottom = 0;
        for (int y = 0; y < all.height; ++y)
            for (int x = 0; x < all.width; ++x)
                if (all.row(y)[x] != 0) {
                    left = std::min(left, x), right = std::max(right, x + 1);
                    top = std::min(top, y), bottom = std::max(bottom, y + 1);
                }
        if (right == 0) left = top = 0, right = bottom = std::min(1, std::min(all.width, all.height));
        IndexedPicture part = cut(all, left, top, right - left, bottom - top);
        part.x = all.x + left;
        part.y = all.y + top;
        frame.picture = std::move(part);
    }
}

std::vector<std::pair<fs::path, Bytes>> files_of(const Animation &animation, const fs::path &place,
                                                 bool transparent) {
    const std::string ending = ending_of(place);
    if (ending == "gif") return {{place, encode_gif(animation, transparent)}};
    if (ending == "apng") return {{place, encode_apng(animation, transparent)}};
    std::vector<std::pair<fs::path, Bytes>> files;
    if (ending == "sheet") {
        const fs::path picture = fs::path(place).replace_extension(".png");
        const auto [sheet, text] = sheet_of(animation, name_of(picture.filename()));
        files.emplace_back(picture, encode_picture(sheet, PictureKind::png, transparent));
        files.emplace_back(place, bytes_of(text));
        return files;
    }
    if (place == kStream || (!ending.empty() && !fs::is_directory(place)))
        throw std::runtime_error("say where to: a folder, or a name that ends in .sheet, .gif or .apng");
    std::string text = head_of(animation);
    for (std::size_t i = 0; i < animation.frames.size(); ++i) {
        const Frame &frame = animation.frames[i];
        files.emplace_back(place / frame_name(i),
                           encode_picture(frame.picture, PictureKind::png, transparent));
        text += "picture " + frame_name(i) + place_and_time(frame);
    }
    files.emplace_back(place / "frames.sheet", bytes_of(text));
    return files;
}

}  // namespace ink::tool
