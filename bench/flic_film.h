// Makes FLIC films, for the benchmarks and the tests: pictures as chunks of every kind, chunks as frames.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tests/support/files.h"

namespace flic {

using test::Bytes;
using test::put;

// The chunk types, by their published names.
enum ChunkType {
    COLOR_256 = 4,
    DELTA_FLC = 7,
    COLOR_64 = 11,
    DELTA_FLI = 12,
    BLACK = 13,
    BYTE_RUN = 15,
    FLI_COPY = 16,
    PSTAMP = 18,
};

inline Bytes chunk(int type, const Bytes &data) {
    Bytes bytes;
    put(bytes, data.size() + 6, 4);
    put(bytes, type, 2);
    put(bytes, data);
    return bytes;
}
inline Bytes frame(const std::vector<Bytes> &chunks, int type = 0xF1FA) {
    Bytes data, bytes;
    for (const Bytes &each : chunks) put(data, each);
    put(bytes, data.size() + 16, 4);
    put(bytes, type, 2);
    put(bytes, chunks.size(), 2);
    put(bytes, 0, 8);
    put(bytes, data);
    return bytes;
}
inline Bytes file_header(int frames, int width, int height, int depth = 8) {
    Bytes header;
    put(header, 0, 4);
    for (const int field : {0xAF12, frames, width, height, depth}) put(header, field, 2);
    header.resize(128);
    return header;
}

struct Picture {
    int width = 0, height = 0;
    Bytes pixels = Bytes(static_cast<std::size_t>(width * height));
    const std::uint8_t *row(int y) const { return &pixels[static_cast<std::size_t>(y * width)]; }
};

// The pixels as they are, rows padded to a multiple of four bytes.
inline Bytes copy(const Picture &now) {
    Bytes data;
    for (int y = 0; y < now.height; ++y) {
        put(data, Bytes(now.row(y), now.row(y) + now.width));
        data.resize((data.size() + 3) / 4 * 4);
    }
    return data;
}

// How many units of a row, at most limit, equal the one at x.
inline int equal_units(const std::uint8_t *row, int x, int units, int unit, int limit) {
    int n = 1;
    while (x + n < units && n < limit &&
           std::equal(row + x * unit, row + (x + 1) * unit, row + (x + n) * unit))
        ++n;
    return n;
}
// Shorter runs stay among the literals, which keeps the packets of a wide row below the 256 that a byte can
// count.
constexpr int kShortestRun = 4;

inline Bytes byte_run(const Picture &now) {
    Bytes data;
    for (int y = 0; y < now.height; ++y) {
        const std::uint8_t *const row = now.row(y);
        const std::size_t packets = data.size();
        data.push_back(0);
        for (int x = 0, n = 0; x < now.width; x += n, ++data[packets]) {
            n = equal_units(row, x, now.width, 1, 127);
            const bool run = n >= kShortestRun;
            if (!run)
                for (n = 1; x + n < now.width && n < 128 &&
                            equal_units(row, x + n, now.width, 1, kShortestRun) < kShortestRun;)
                    ++n;
            put(data, run ? n : -n, 1);
            put(data, Bytes(row + x, row + x + (run ? 1 : n)));
        }
    }
    return data;
}

// The packets of one delta row in units of 1 byte (DELTA_FLI) or 2 (DELTA_FLC); returns their number.
inline int delta_packets(Bytes &data, const std::uint8_t *now, const std::uint8_t *before, int units,
                         int unit) {
    const auto changed = [&](int x) {
        return !std::equal(now + x * unit, now + (x + 1) * unit, before + x * unit);
    };
    int packets = 0;
    for (int x = 0, last = 0, n = 1; x < units; x += n) {
        n = 1;
        if (!changed(x)) continue;
        for (; (x - last) * unit > 254; last += 254 / unit, ++packets) put(data, Bytes{254, 0});
        put(data, (x - last) * unit, 1);
        n = equal_units(now, x, units, unit, 128);
        const bool run = n >= kShortestRun;
        if (!run)
            for (n = 1; x + n < units && n < 127 && changed(x + n) &&
                        equal_units(now, x + n, units, unit, kShortestRun) < kShortestRun;)
                ++n;
        put(data, run ? -n : n, 1);
        put(data, Bytes(now + x * unit, now + (x + (run ? 1 : n)) * unit));
        last = x + n;
        ++packets;
    }
    return packets;
}

inline Bytes delta_fli(const Picture &now, const Picture &before) {
    int first = 0, rows = now.height;
    const auto same = [&](int y) { return std::equal(now.row(y), now.row(y) + now.width, before.row(y)); };
    while (rows > 1 && same(first)) ++first, --rows;
    while (rows > 1 && same(first + rows - 1)) --rows;
    Bytes data;
    put(data, first, 2);
    put(data, rows, 2);
    for (int y = first; y < first + rows; ++y) {
        const std::size_t packets = data.size();
        data.push_back(0);
        data[packets] =
            static_cast<std::uint8_t>(delta_packets(data, now.row(y), before.row(y), now.width, 1));
    }
    return data;
}

// Unchanged rows become skip words, two of them where there are two rows or more to skip; the last pixel of
// an odd row gets a word of its own.
inline Bytes delta_flc(const Picture &now, const Picture &before) {
    Bytes data(2);
    int lines = 0;
    for (int y = 0, skip = 0; y < now.height; ++y, ++skip) {
        Bytes row;
        const int packets = delta_packets(row, now.row(y), before.row(y), now.width / 2, 2);
        const int last = now.width - 1;
        const bool odd = now.width % 2 != 0 && now.row(y)[last] != before.row(y)[last];
        if (packets == 0 && !odd) continue;
        for (const int part : {skip / 2, skip - skip / 2})
            if (part > 0) put(data, -part, 2);
        if (odd) put(data, 0x8000u | now.row(y)[last], 2);
        put(data, packets, 2);
        put(data, row);
        ++lines;
        skip = -1;
    }
    data[0] = static_cast<std::uint8_t>(lines);
    data[1] = static_cast<std::uint8_t>(lines >> 8);
    return data;
}

}  // namespace flic
