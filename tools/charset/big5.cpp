#include "charset/big5.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>

namespace ink::tool {
namespace {

// Converts one character at a time. A character set that the system does not know converts nothing.
class Converter {
  public:
    Converter(const char *to, const char *from) : handle_(iconv_open(to, from)) {}
    ~Converter() {
        if (known()) iconv_close(handle_);
    }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    // Nothing unless the whole of text is one character that has an exact counterpart.
    std::optional<std::string> convert(std::string text) const {
        if (!known()) return std::nullopt;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        std::array<char, 16> bytes;
        char *in = text.data(), *out = bytes.data();
        std::size_t in_left = text.size(), out_left = bytes.size();
        if (iconv(handle_, &in, &in_left, &out, &out_left) != 0 || in_left != 0) return std::nullopt;
        return std::string(bytes.data(), bytes.size() - out_left);
    }

  private:
    bool known() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    iconv_t handle_;
};

// The Big5 of the most widespread system first, then the one of the standard.
constexpr std::array<const char *, 2> kBig5Names{"CP950", "BIG5"};

std::optional<char32_t> decode(const Converter &to_utf32, std::string bytes) {
    const auto converted = to_utf32.convert(std::move(bytes));
    if (!converted || converted->size() != 4) return std::nullopt;
    char32_t character = 0;
    for (const char byte : *converted) character = character << 8 | static_cast<std::uint8_t>(byte);
    return character;
}

// The length of the UTF-8 character that starts with byte; 0 when none does.
std::size_t utf8_length(char byte) {
    const auto lead = static_cast<std::uint8_t>(byte);
    return lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

}  // namespace

std::string to_big5(std::string_view utf8) {
    static const Converter cp950(kBig5Names[0], "UTF-8"), big5(kBig5Names[1], "UTF-8");
    std::string result;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t length = utf8_length(utf8[i]);
        const std::string character(utf8.substr(i, std::max<std::size_t>(length, 1)));
        std::optional<std::string> converted = character;
        if (length != 1) converted = length ? cp950.convert(character) : std::nullopt;
        if (!converted && length) converted = big5.convert(character);
        if (!converted) {
            throw std::runtime_error(length ? "Big5 has no character " + character : "the text is not UTF-8");
        }
        result += *converted;
        i += length;
    }
    return result;
}

std::vector<char32_t> unicode_of_big5(std::uint16_t code) {
    static const Converter cp950("UTF-32BE", kBig5Names[0]), big5("UTF-32BE", kBig5Names[1]);
    std::vector<char32_t> characters;
    for (const Converter *converter : {&cp950, &big5}) {
        const auto character =
            decode(*converter, {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)});
        if (character && std::find(characters.begin(), characters.end(), *character) == characters.end())
            characters.push_back(*character);
    }
    return characters;
}

char32_t unicode_of_cp437(std::uint8_t code) {
    static const Converter cp437("UTF-32BE", "CP437");
    if (code < 0x20) return U" ☺☻♥♦♣♠•◘○◙♂♀♪♫☼►◄↕‼¶§▬↨↑↓→←∟↔▲▼"[code];
    if (code == 0x7F) return U'⌂';
    return decode(cp437, {static_cast<char>(code)}).value_or(U' ');
}

}  // namespace ink::tool
