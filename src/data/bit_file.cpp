#include <algorithm>
#include <bit>
#include <cstdio>
#include <memory>
#include <new>

#include "core/log.h"
#include "host/file_name.h"
#include "inkstone/bitio.h"

namespace ink::data {
namespace {

constexpr std::uint8_t kFirstBit = 0x80;

bool is_count(std::int32_t count) {
    return count >= 1 && count <= 32;
}

// The record comes first: when there is no memory for it, a file that stands there is not emptied.
BIT_FILE_STRUCT *open_bit_file(const char *name, const char *mode) {
    std::unique_ptr<BIT_FILE_STRUCT> file(new (std::nothrow) BIT_FILE_STRUCT{nullptr, kFirstBit, 0, 0});
    if (!file) return nullptr;
    file->stream = host::open_file(name, mode).release();
    return file->stream != nullptr ? file.release() : nullptr;
}

// False when what is still to be written cannot be.
bool close_bit_file(BIT_FILE_STRUCT *file) {
    const bool closed = std::fclose(file->stream) == 0;
    delete file;
    return closed;
}

void count_byte(BIT_FILE_STRUCT &file) {
    file.byte_count = static_cast<std::int32_t>(static_cast<std::uint32_t>(file.byte_count) + 1);
}

// How many bits of the byte in work are still to be used.
int bits_left(const BIT_FILE_STRUCT &file) {
    return std::countr_zero(file.bit_mask) + 1;
}

// The count low bits of code, as many at once as the byte in work has room for. After a failed write the mask
// stays 0, and each bit is spent on another try.
void put_bits(BIT_FILE_STRUCT &file, std::uint32_t code, int count) {
    while (count > 0) {
        int taken = 1;
        if (file.bit_mask != 0) {
            const int room = bits_left(file);
            taken = std::min(room, count);
            const std::uint32_t bits = (code >> (count - taken)) & ((1u << taken) - 1);
            file.bit_buffer =
                static_cast<std::int16_t>(file.bit_buffer | static_cast<int>(bits << (room - taken)));
            file.bit_mask = static_cast<std::uint8_t>(file.bit_mask >> taken);
        }
        count -= taken;
        if (file.bit_mask != 0) continue;
        if (std::fputc(file.bit_buffer, file.stream) == EOF) {
            log_error("BITIO_output_bit error");
            continue;
        }
        file.bit_buffer = 0;
        file.bit_mask = kFirstBit;
        count_byte(file);
    }
}

std::uint32_t get_bits(BIT_FILE_STRUCT &file, int count, const char *error) {
    std::uint32_t code = 0;
    while (count > 0) {
        if (file.bit_mask == kFirstBit || file.bit_mask == 0) {
            const int byte = std::fgetc(file.stream);
            if (byte == EOF) log_error(error);
            file.bit_buffer = static_cast<std::int16_t>(byte);  // the end of the file gives all ones
            file.bit_mask = kFirstBit;
            count_byte(file);
        }
        const int left = bits_left(file), taken = std::min(left, count);
        const auto byte = static_cast<std::uint8_t>(file.bit_buffer);
        code = code << taken | ((static_cast<std::uint32_t>(byte) >> (left - taken)) & ((1u << taken) - 1));
        file.bit_mask = taken < left ? static_cast<std::uint8_t>(file.bit_mask >> taken) : kFirstBit;
        count -= taken;
    }
    return code;
}

}  // namespace
}  // namespace ink::data

using namespace ink;
using namespace ink::data;

BIT_FILE_STRUCT *BITIO_open_input_bit_file(const char *file_name) {
    return open_bit_file(file_name, "rb");
}

void BITIO_close_input_bit_file(BIT_FILE_STRUCT *file) {
    if (file != nullptr) close_bit_file(file);
}

BIT_FILE_STRUCT *BITIO_open_output_bit_file(const char *file_name) {
    return open_bit_file(file_name, "wb");
}

void BITIO_close_output_bit_file(BIT_FILE_STRUCT *file) {
    if (file == nullptr) return;
    // Most disks tell that they are full only when the stream's own buffer is written, which closing does.
    const bool put = file->bit_mask == kFirstBit || std::fputc(file->bit_buffer, file->stream) != EOF;
    if (!close_bit_file(file) || !put) log_error("BITIO_close_output_bit_file error");
}

void BITIO_output_bit(BIT_FILE_STRUCT *file, int32_t bit) {
    if (file != nullptr) put_bits(*file, bit != 0, 1);
}

void BITIO_output_bits(BIT_FILE_STRUCT *file, uint32_t code, int32_t count) {
    if (file != nullptr && is_count(count)) put_bits(*file, code, count);
}

int32_t BITIO_input_bit(BIT_FILE_STRUCT *file) {
    return file != nullptr ? static_cast<int32_t>(get_bits(*file, 1, "BITIO_input_bit error")) : 0;
}

uint32_t BITIO_input_bits(BIT_FILE_STRUCT *file, int32_t count) {
    return file != nullptr && is_count(count) ? get_bits(*file, count, "BITIO_input_bits error") : 0;
}

void BITIO_file_print_binary(FILE *stream, uint32_t code, int32_t count) {
    if (stream == nullptr || !is_count(count)) return;
    while (count-- > 0) std::fputc((code >> count & 1) != 0 ? '1' : '0', stream);
}
