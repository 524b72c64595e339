// Image blocks and compressed image blocks, built by hand.
#pragma once

#include "support/files.h"

namespace test {

inline Bytes image_block(int width, int height, const Bytes &pixels) {
    Bytes bytes;
    put(bytes, width, 2);
    put(bytes, height, 2);
    put(bytes, pixels);
    return bytes;
}
inline Bytes compressed_block(int width, int height, const Bytes &code, int type = 0,
                              const char *magic = "Cimg") {
    Bytes bytes(magic, magic + 4);
    put(bytes, type, 4);
    put(bytes, image_block(width, height, {}));
    put(bytes, code.size(), 4);
    put(bytes, code);
    return bytes;
}

}  // namespace test
