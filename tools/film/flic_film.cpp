#include "film/flic_film.h"

#include <algorithm>
#include <stdexcept>

#include "core/reader.h"

namespace ink::tool::flic {
namespace {

constexpr int kFilm = 0xAF12;                                 // a film of any size and 256 colours
constexpr std::size_t kFileHeader = 128, kMostPackets = 255;  // of a row whose packets a byte counts

// Shorter runs stay among the literals, which are cheaper than a packet more.
constexpr int kShortestRun = 4;

void add_u8(Bytes &to, int value) {
    to.push_back(static_cast<std::uint8_t>(value));
}
void add_u16(Bytes &to, int value) {
    add_u8(to, value);
    add_u8(to, value >> 8);
}
void add(Bytes &to, const std::uint8_t *from, int count) {
    append(to, {from, static_cast<std::size_t>(count)});
}

// A row in units of one byte or two, as the chunk type counts.
struct Row {
    const std::uint8_t *pixels;
    int units, unit;

    const std::uint8_t *at(int x) const { return pixels + x * unit; }
    bool equal(int x, const Row &other, int other_x) const {
        return std::equal(at(x), at(x + 1), other.at(other_x));
    }

    // How many units from x on are the same, up to limit.
    int run(int x, int limit) const {
        int n = 1;
        while (x + n < units && n < limit && equal(x, *this, x + n)) ++n;
        return n;
    }
    bool starts_run(int x) const { return run(x, kShortestRun) == kShortestRun; }
};

// The packets of a row of BYTE_RUN; returns their number.
std::size_t add_runs(Bytes &data, const Row &row) {
    std::size_t packets = 0;
    for (int x = 0, n = 0; x < row.units; x += n, ++packets) {
        if (row.starts_run(x)) {
            n = row.run(x, 127);
            add_u8(data, n);
            add(data, row.at(x), 1);
        } else {
            for (n = 1; x + n < row.units && n < 128 && !row.starts_run(x + n);) ++n;
            add_u8(data, -n);
            add(data, row.at(x), n);
        }
    }
    return packets;
}

// The packets that turn one row into another; returns their number.
std::size_t add_deltas(Bytes &data, const Row &now, const Row &before) {
    // A count of -128 units of two bytes is one that some players take for 0.
    constexpr int kLongestSkip = 254, kMostUnits = 127;
    std::size_t packets = 0;
    int painted = 0;  // up to here
    for (int x = 0, n = 1; x < now.units; x += n) {
        n = 1;
        if (now.equal(x, before, x)) continue;
        int skip = (x - painted) * now.unit;
        for (; skip > kLongestSkip; skip -= kLongestSkip, ++packets) add_u16(data, kLongestSkip);
        add_u8(data, skip);
        if (now.starts_run(x)) {
            n = now.run(x, kMostUnits);
            add_u8(data, -n);
            add(data, now.at(x), now.unit);
        } else {
            while (x + n < now.units && n < kMostUnits && !now.equal(x + n, before, x + n) &&
                   !now.starts_run(x + n))
                ++n;
            add_u8(data, n);
            add(data, now.at(x), n * now.unit);
        }
        painted = x + n;
        ++packets;
    }
    return packets;
}

// Whether players have room for the frame of a film of that picture's size: for as many bytes as it has
// pixels and 512 more, of which 16 stay empty.
bool fits(const Bytes &frame, const IndexedPicture &now) {
    return frame.size() + 16 <= now.pixels.size() + 512;
}

// The chunk that turns before into now, or paints all of now when there is no picture before it.
Bytes shortest_picture(const IndexedPicture &now, const IndexedPicture *before) {
    Bytes best = chunk(FLI_COPY, copy(now));
    const auto consider = [&best](int type, const std::optional<Bytes> &data) {
        if (data && data->size() + 6 < best.size()) best = chunk(type, *data);
    };
    consider(BYTE_RUN, byte_run(now));
    if (before != nullptr) consider(DELTA_FLC, delta_flc(now, *before));
    // Most players want the rows of a copy padded, but the picture as it is always fits.
    return fits(frame({best}), now) ? best : chunk(FLI_COPY, now.pixels);
}

// The frames that turn before into now: one, or two where the palette and the picture do not fit into one.
std::vector<Bytes> shortest_frames(const IndexedPicture &now, const IndexedPicture *before) {
    std::vector<Bytes> chunks;
    if (before == nullptr || before->palette != now.palette)
        chunks.push_back(chunk(COLOR_256, color_256(now)));
    if (before == nullptr || before->pixels != now.pixels) chunks.push_back(shortest_picture(now, before));
    if (const Bytes whole = frame(chunks); fits(whole, now)) return {whole};
    return {frame({chunks[0]}), frame({chunks[1]})};
}

}  // namespace

std::optional<Bytes> byte_run(const IndexedPicture &now) {
    Bytes data;
    for (int y = 0; y < now.height; ++y) {
        const std::size_t count_at = data.size();
        add_u8(data, 0);
        const std::size_t packets = add_runs(data, {now.row(y), now.width, 1});
        if (packets > kMostPackets) return std::nullopt;
        data[count_at] = static_cast<std::uint8_t>(packets);
    }
    return data;
}

Bytes copy(const IndexedPicture &now) {
    Bytes data;
    for (int y = 0; y < now.height; ++y) {
        add(data, now.row(y), now.width);
        data.resize((data.size() + 3) / 4 * 4);
    }
    return data;
}

std::optional<Bytes> delta_fli(const IndexedPicture &now, const IndexedPicture &before) {
    const auto same = [&](int y) { return std::equal(now.row(y), now.row(y) + now.width, before.row(y)); };
    int first = 0, last = now.height;
    while (first < last && same(first)) ++first;
    if (first == last) first = last = 0;
    while (first < last && same(last - 1)) --last;
    Bytes data;
    add_u16(data, first);
    add_u16(data, last - first);
    for (int y = first; y < last; ++y) {
        const std::size_t count_at = data.size();
        add_u8(data, 0);
        const std::size_t packets =
            add_deltas(data, {now.row(y), now.width, 1}, {before.row(y), now.width, 1});
        if (packets > kMostPackets) return std::nullopt;
        data[count_at] = static_cast<std::uint8_t>(packets);
    }
    return data;
}

Bytes delta_flc(const IndexedPicture &now, const IndexedPicture &before) {
    Bytes data(2);
    int lines = 0, skipped = 0;
    for (int y = 0; y < now.height; ++y) {
        Bytes packets;
        const std::size_t count =
            add_deltas(packets, {now.row(y), now.width / 2, 2}, {before.row(y), now.width / 2, 2});
        const std::uint8_t last = now.row(y)[now.width - 1];
        const bool last_changed = now.width % 2 != 0 && last != before.row(y)[now.width - 1];
        if (count == 0 && !last_changed) {
            ++skipped;
            continue;
        }
        // A skip word holds 16384 rows at most.
        for (; skipped > 0; skipped -= std::min(skipped, 0x4000)) add_u16(data, -std::min(skipped, 0x4000));
        if (last_changed) add_u16(data, 0x8000 | last);
        add_u16(data, static_cast<int>(count));
        append(data, packets);
        ++lines;
    }
    put_u16(data.data(), static_cast<std::uint32_t>(lines));
    return data;
}

Bytes color_256(const IndexedPicture &now) {
    Bytes data{1, 0, 0, 0};  // one packet, of every colour
    const auto bright = bright_palette(now.palette);
    append(data, bright);
    return data;
}

Bytes chunk(int type, const Bytes &data) {
    Bytes bytes(6);
    put_u32(&bytes[0], static_cast<std::uint32_t>(data.size() + 6));
    put_u16(&bytes[4], static_cast<std::uint32_t>(type));
    append(bytes, data);
    return bytes;
}

Bytes frame(const std::vector<Bytes> &chunks, int type) {
    Bytes bytes(16);
    for (const Bytes &each : chunks) append(bytes, each);
    put_u32(&bytes[0], static_cast<std::uint32_t>(bytes.size()));
    put_u16(&bytes[4], static_cast<std::uint32_t>(type));
    put_u16(&bytes[6], static_cast<std::uint32_t>(chunks.size()));
    return bytes;
}

Bytes file_header(int frames, int width, int height, int depth, int milliseconds) {
    Bytes header(4);
    for (const int field : {kFilm, frames, width, height, depth, 3})
        add_u16(header, field);  // 3: it is complete
    header.resize(kFileHeader);
    put_u32(&header[16], static_cast<std::uint32_t>(milliseconds));
    return header;
}

Bytes film(const std::vector<IndexedPicture> &pictures, int milliseconds) {
    const IndexedPicture &first = pictures.at(0);
    constexpr int kMost = 0x7FFF;
    if (first.width > kMost || first.height > kMost)
        throw std::runtime_error("the pictures of a film have at most 32767 x 32767 pixels");
    if (!fits(frame({chunk(COLOR_256, color_256(first))}), first))
        throw std::runtime_error("pictures of fewer than 298 pixels leave no room for the palette of a film");
    std::vector<Bytes> frames;
    const IndexedPicture *before = nullptr;
    for (const IndexedPicture &now : pictures) {
        if (now.width != first.width || now.height != first.height)
            throw std::runtime_error("the pictures of a film must be of one size");
        for (Bytes &each : shortest_frames(now, before)) frames.push_back(std::move(each));
        before = &now;
    }
    const std::size_t count = frames.size();
    if (count > kMost) throw std::runtime_error("a film has at most 32767 frames");
    // Behind the last frame stands one that leads back to the state after the first, which needs no picture
    // before it, so it does itself where no shorter one does.
    const std::vector<Bytes> back = shortest_frames(first, before);
    const bool is_first_whole = shortest_frames(first, nullptr).size() == 1;
    frames.push_back(is_first_whole && back.size() == 1 ? back[0] : frames[0]);

    Bytes bytes = file_header(static_cast<int>(count), first.width, first.height, 8, milliseconds);
    for (const Bytes &each : frames) append(bytes, each);
    // Where the first two frames start stands in the header, so that a loop leads past the first.
    put_u32(&bytes[80], kFileHeader);
    put_u32(&bytes[84], static_cast<std::uint32_t>(kFileHeader + frames[0].size()));
    put_u32(&bytes[0], static_cast<std::uint32_t>(bytes.size()));
    return bytes;
}

}  // namespace ink::tool::flic
