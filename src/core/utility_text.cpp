// Letters, tokens, file names and numbers out of texts and byte buffers.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "core/reader.h"
#include "inkstone/utility.h"

namespace {

constexpr std::size_t kLongestFileName = 13;

// Moves the position on and gives the bytes from where it stood; without a position, bytes that are zero.
const std::uint8_t *advance(std::int32_t *position, const std::uint8_t *buffer, std::uint32_t count) {
    static constexpr std::uint8_t kNothing[4] = {};
    if (position == nullptr) return kNothing;
    const std::uint8_t *here = buffer + *position;
    *position = static_cast<std::int32_t>(static_cast<std::uint32_t>(*position) + count);
    return here;
}

bool ends_token(char c) {
    return c == ' ' || c == ',' || c == '=';
}

}  // namespace

uint8_t char_upper(uint8_t c) {
    return c >= 'a' && c <= 'z' ? static_cast<uint8_t>(c - ('a' - 'A')) : c;
}

uint8_t char_lower(uint8_t c) {
    return c >= 'A' && c <= 'Z' ? static_cast<uint8_t>(c + ('a' - 'A')) : c;
}

uint8_t get_byte_from_buffer(int32_t *position, const uint8_t *buffer) {
    return *advance(position, buffer, 1);
}

uint16_t get_int_from_buffer(int32_t *position, const uint8_t *buffer) {
    return ink::get_u16(advance(position, buffer, 2));
}

int32_t get_long_from_buffer(int32_t *position, const uint8_t *buffer) {
    return static_cast<int32_t>(ink::get_u32(advance(position, buffer, 4)));
}

char *get_only_filename(char *result, const char *name) {
    static char only[kLongestFileName + 1];
    const std::size_t length = std::strlen(name);
    const std::size_t kept = std::strcspn(name, ".");
    if (length > kLongestFileName) {
        std::strcpy(only, "FORMERR!");
    } else {
        std::memcpy(only, name, kept);
        only[kept] = '\0';
    }
    if (result != nullptr) std::strcpy(result, only);
    return only;
}

void change_ext(char *result, const char *name, const char *extension) {
    if (result == nullptr) return;
    const std::size_t kept = std::strcspn(name, ".");
    std::memmove(result, name, kept);
    result[kept] = '.';
    std::strcpy(result + kept + 1, extension);
}

void skip_space(const char *text, int32_t *position) {
    if (position == nullptr) return;
    while (ends_token(text[*position]) || text[*position] == '\t') ++*position;
}

void get_str(char *result, const char *text, int32_t *position, uint8_t stop, int32_t max) {
    if (result == nullptr || position == nullptr) return;
    for (; max > 0 && text[*position] != '\0'; --max, ++*position) {
        if (stop != 0 && ends_token(text[*position])) break;
        *result++ = text[*position];
    }
    *result = '\0';
}
