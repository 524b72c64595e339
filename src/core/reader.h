// The bounded reader under every parser: it reads little-endian numbers and runs of bytes out of a block of
// memory that nobody vouches for. Reading past the end gives zeros and marks the reader as failed; it never
// reads outside the block. A parser reads on without a check of its own and asks ok() where it matters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace ink {

class Reader {
  public:
    Reader() = default;
    explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
    Reader(const void *bytes, std::size_t size) : bytes_(static_cast<const std::uint8_t *>(bytes), size) {}

    bool ok() const { return !failed_; }
    std::size_t position() const { return position_; }
    std::size_t left() const { return bytes_.size() - position_; }
    std::size_t size() const { return bytes_.size(); }

    // Moves to an absolute position. A position past the end fails the reader and leaves nothing to read.
    void seek(std::size_t position) { position_ = position <= bytes_.size() ? position : fail(); }
    void skip(std::size_t count) { position_ = count <= left() ? position_ + count : fail(); }

    std::uint8_t u8() { return left() >= 1 ? bytes_[position_++] : static_cast<std::uint8_t>(fail_zero()); }
    std::uint16_t u16() { return static_cast<std::uint16_t>(little_endian(2)); }
    std::uint32_t u32() { return little_endian(4); }
    std::int8_t i8() { return static_cast<std::int8_t>(u8()); }
    std::int16_t i16() { return static_cast<std::int16_t>(u16()); }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }

    // The next count bytes, or as many as are left; fewer than asked for fail the reader.
    std::span<const std::uint8_t> take(std::size_t count) {
        if (count > left()) {
            failed_ = true;
            count = left();
        }
        const auto taken = bytes_.subspan(position_, count);
        position_ += count;
        return taken;
    }

    // A reader of the next count bytes, which are skipped here.
    Reader sub(std::size_t count) { return Reader(take(count)); }

  private:
    std::uint32_t little_endian(unsigned count) {
        if (left() < count) return fail_zero();
        std::uint32_t value = 0;
        for (unsigned i = 0; i < count; ++i) value |= std::uint32_t{bytes_[position_ + i]} << (8 * i);
        position_ += count;
        return value;
    }
    std::size_t fail() {
        failed_ = true;
        return bytes_.size();
    }
    std::uint32_t fail_zero() {
        position_ = fail();
        return 0;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    bool failed_ = false;
};

// Writing the same numbers into memory the caller vouches for.
inline void put_u16(std::uint8_t *to, std::uint32_t value) {
    to[0] = static_cast<std::uint8_t>(value);
    to[1] = static_cast<std::uint8_t>(value >> 8);
}
inline void put_u32(std::uint8_t *to, std::uint32_t value) {
    put_u16(to, value);
    put_u16(to + 2, value >> 16);
}
inline std::uint16_t get_u16(const std::uint8_t *from) {
    return static_cast<std::uint16_t>(from[0] | (from[1] << 8));
}
inline std::uint32_t get_u32(const std::uint8_t *from) {
    return get_u16(from) | (std::uint32_t{get_u16(from + 2)} << 16);
}

}  // namespace ink
