// FLIC films, made of pictures. The parts of the format are separate, so that a film can be put together of
// any.
#pragma once

#include <optional>

#include "picture/picture.h"

namespace ink::tool::flic {

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

// The data of a chunk that paints the whole picture. Rows of FLI_COPY are padded to a multiple of four bytes.
std::optional<Bytes> byte_run(const IndexedPicture &now);
Bytes copy(const IndexedPicture &now);

// The data of a chunk that turns one picture into another of the same size.
std::optional<Bytes> delta_fli(const IndexedPicture &now, const IndexedPicture &before);
Bytes delta_flc(const IndexedPicture &now, const IndexedPicture &before);

// The data of COLOR_256 that sets every colour.
Bytes color_256(const IndexedPicture &now);

Bytes chunk(int type, const Bytes &data);
Bytes frame(const std::vector<Bytes> &chunks, int type = 0xF1FA);
Bytes file_header(int frames, int width, int height, int depth = 8, int milliseconds = 70);

// A whole film in its shortest coding, a frame for each picture, or two where players have no room for its
// palette and its pixels in one; behind the last, a frame that leads back to the first for players that loop.
// Throws std::runtime_error when the pictures are not all of one size or of one that films cannot have.
Bytes film(const std::vector<IndexedPicture> &pictures, int milliseconds);

}  // namespace ink::tool::flic
