#include "film/can_file.h"

#include "core/reader.h"

namespace ink::tool {
namespace {

constexpr std::size_t kHeader = 20, kRecord = 8;

}  // namespace

Bytes can_file(const std::vector<IndexedPicture> &frames, int anchor_x, int anchor_y) {
    Bytes file(kHeader + 4 * frames.size());
    put_u32(&file[12], static_cast<std::uint32_t>(frames.size()));
    put_u16(&file[16], static_cast<std::uint32_t>(anchor_x));
    put_u16(&file[18], static_cast<std::uint32_t>(anchor_y));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Bytes block = compressed_image(frames[i]);
        const std::size_t offset = file.size();
        put_u32(&file[kHeader + 4 * i], static_cast<std::uint32_t>(offset));
        file.resize(offset + kRecord);
        put_u16(&file[offset], static_cast<std::uint32_t>(frames[i].x));
        put_u16(&file[offset + 2], static_cast<std::uint32_t>(frames[i].y));
        put_u32(&file[offset + 4], static_cast<std::uint32_t>(block.size()));
        append(file, block);
    }
    return file;
}

}  // namespace ink::tool
