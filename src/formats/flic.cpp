#include "inkstone/flic.h"

#include <algorithm>
#include <array>
#include <new>
#include <vector>

#include "core/log.h"
#include "formats/flic_chunks.h"
#include "host/input_file.h"

namespace ink::formats {
namespace {

constexpr std::int64_t kFileHeader = 128, kFrameHeader = 16, kChunkHeader = 6;
constexpr std::uint16_t kPrefixType = 0xF100;

struct FrameHeader {
    std::uint64_t position = 0;
    std::uint32_t size = 0;
    std::uint16_t type = 0;
    std::int16_t chunks = 0;
};

class FlicPlayer {
  public:
    bool open(const char *name, bool small, std::uint8_t *destination) {
        host::InputFile file(name);
        if (!file.is_open()) return false;
        close();
        file_ = std::move(file);
        screen_.destination = small ? draw::Surface{destination, 320, 200} : draw::screen(destination);
        next_ = kFileHeader;

        std::array<std::uint8_t, kFileHeader> header{};
        file_.read(0, header);
        Reader reader(header);
        reader.seek(6);
        frame_count_ = reader.i16();
        screen_.film_width = reader.i16();
        screen_.film_height = reader.i16();
        // Some writers leave the depth out; 8 bits is the only one there is.
        const std::int64_t depth = reader.i16();
        room_ = screen_.film_width * screen_.film_height * (depth == 0 ? 8 : depth) / 8 + 512;
        return true;
    }

    std::int16_t frame_count() const { return frame_count_; }
    std::array<std::uint8_t, 768> &palette() { return screen_.palette; }

    bool read_frame() try {
        FrameHeader frame = read_frame_header();
        while (frame.type == kPrefixType && frame.size >= kFrameHeader) frame = read_frame_header();
        const bool is_frame = (frame.type & 0xFF) == 0xFA || frame.type >> 8 == 0xF1;
        // One smaller than its header would be found again and again.
        const bool fits = frame.size >= kFrameHeader && std::int64_t{frame.size} + kFrameHeader <= room_;
        if (!is_frame || !fits) {
            close();
            return false;
        }
        // The size counts the frame header, so this asks for 16 bytes too many: all of the last frame is
        // there when they are not.
        const std::uint64_t data = frame.position + kFrameHeader;
        data_.resize(static_cast<std::size_t>(file_.present(data, frame.size)));
        data_.resize(file_.read(data, data_));
        chunks_ = frame.chunks;
        return true;
    } catch (const std::bad_alloc &) {
        close();
        return false;
    }

    void play_frame() {
        Reader frame(data_);
        for (std::int32_t chunks = chunks_; chunks > 0 && frame.left() >= kChunkHeader; --chunks) {
            const std::uint32_t size = frame.u32();
            const std::uint16_t type = frame.u16();
            // A chunk that states less than its own header has no successor: it takes the rest of the frame.
            const std::uint64_t length = size < kChunkHeader ? frame.left() : size - kChunkHeader;
            decode_flic_chunk(type, frame.sub(static_cast<std::size_t>(length)), screen_);
        }
    }

    void close() {
        file_ = {};
        data_ = std::vector<std::uint8_t>();  // = {} would keep the memory
        chunks_ = 0;
    }

  private:
    FrameHeader read_frame_header() {
        std::array<std::uint8_t, kFrameHeader> bytes{};
        file_.read(next_, bytes);
        Reader reader(bytes);
        FrameHeader header;
        header.position = next_;
        header.size = reader.u32();
        header.type = reader.u16();
        header.chunks = reader.i16();
        next_ += header.size;
        return header;
    }

    host::InputFile file_;
    std::int16_t frame_count_ = 0;
    std::int64_t room_ = 0;           // a frame has room in as many bytes, 16 more than its own
    std::uint64_t next_ = 0;          // where the next frame starts
    std::vector<std::uint8_t> data_;  // the chunks of the frame last read
    std::int16_t chunks_ = 0;
    FlicScreen screen_;
};

FlicPlayer player;

}  // namespace
}  // namespace ink::formats

using ink::formats::player;

int32_t FLIC_open_flic_file(const char *file_name, int32_t small_mode, uint8_t *destination) {
    if (player.open(file_name, small_mode != 0, destination)) return player.frame_count();
    ink::log_open_error(file_name);
    return -1;
}

int16_t FLIC_read_flic_data(void) {
    return player.read_frame() ? 0 : -1;
}

int16_t FLIC_play_flic_frame(void) {
    player.play_frame();
    return 0;
}

void FLIC_close_flic_file(void) {
    player.close();
}

void FLIC_export_palette(uint8_t *palette) {
    std::copy(player.palette().begin(), player.palette().end(), palette);
}

void FLIC_inport_palette(const uint8_t *palette) {
    std::copy_n(palette, player.palette().size(), player.palette().begin());
}
