#include "charset/big5.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "charset/converter.h"

namespace ink::tool {
namespace {

// The Big5 of the most widespread system is asked first, then the one of the standard.
constexpr const char *kFirstBig5 = "CP950", *kSecondBig5 = "BIG5";

// Nothing for characters of the private use area either, which stand for something else in every font.
std::optional<char32_t> decode(const Converter &to_utf32, std::string_view bytes) {
    const auto converted = to_utf32.convert(std::move(bytes));
    if (!converted || converted->size() != 4) return std::nullopt;
    char32_t character = 0;
    for (const char byte : *converted) character = character << 8 | static_cast<std::uint8_t>(byte);
    if (character >= 0xE000 && character < 0xF900) return std::nullopt;
    return character;
}

// The length of the UTF-8 character that starts with byte; 0 when none does.
std::size_t utf8_length(char byte) {
    const auto lead = static_cast<std::uint8_t>(byte);
    return lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

// Code page 437 from 0x80 on: not every system's iconv has it.
constexpr char32_t kUpperCp437[] =
    U"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
    U"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    U"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
    U"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";

}  // namespace

std::optional<std::string> big5_of_character(std::string_view character) {
    static const Converter first(kFirstBig5, "UTF-8"), second(kSecondBig5, "UTF-8");
    if (character.empty() || utf8_length(character[0]) != character.size()) return std::nullopt;
    if (character.size() == 1) return std::string(character);
    const auto converted = first.convert(character);
    return converted ? converted : second.convert(character);
}

std::optional<std::string> character_of_big5(std::string_view bytes) {
    static const Converter to_utf8("UTF-8", "UTF-32LE");
    if (bytes.size() == 1) return big5_of_character(bytes);
    if (bytes.size() != 2) return std::nullopt;
    const auto code = static_cast<std::uint16_t>(static_cast<std::uint8_t>(bytes[0]) << 8 |
                                                 static_cast<std::uint8_t>(bytes[1]));
    for (const char32_t unicode : unicode_of_big5(code)) {
        std::string utf32;
        for (const int shift : {0, 8, 16, 24}) utf32 += static_cast<char>(unicode >> shift);
        const auto character = to_utf8.convert(utf32);
        if (character && big5_of_character(*character) == bytes) return character;
    }
    return std::nullopt;
}

std::string to_big5(std::string_view utf8) {
    static const bool known = big5_of_character("一").has_value();
    if (!known) throw std::runtime_error("this system's iconv does not know Big5");
    std::string result;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::size_t length = utf8_length(utf8[i]);
        const std::string_view character = utf8.substr(i, length);
        const auto converted = big5_of_character(character);
        if (!converted)
            throw std::runtime_error(length == 0 ? "the text is not UTF-8"
                                                 : "Big5 has no character " + std::string(character));
        result += *converted;
        i += length;
    }
    return result;
}

std::string from_big5(std::string_view big5) {
    std::string text;
    while (!big5.empty()) {
        const std::size_t bytes = static_cast<unsigned char>(big5[0]) >= 0x80 && big5.size() > 1 ? 2 : 1;
        text += character_of_big5(big5.substr(0, bytes)).value_or("?");
        big5.remove_prefix(bytes);
    }
    return text;
}

std::vector<char32_t> unicode_of_big5(std::uint16_t code) {
    static const Converter first("UTF-32BE", kFirstBig5), second("UTF-32BE", kSecondBig5);
    std::vector<char32_t> characters;
    const std::array<char, 2> bytes{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    for (const Converter *converter : {&first, &second}) {
        const auto character = decode(*converter, {bytes.data(), bytes.size()});
        if (character && std::find(characters.begin(), characters.end(), *character) == characters.end())
            characters.push_back(*character);
    }
    return characters;
}

char32_t unicode_of_cp437(std::uint8_t code) {
    if (code < 0x20) return U" ☺☻♥♦♣♠•◘○◙♂♀♪♫☼►◄↕‼¶§▬↨↑↓→←∟↔▲▼"[code];
    if (code == 0x7F) return U'⌂';
    return code < 0x80 ? code : kUpperCp437[code - 0x80];
}

}  // namespace ink::tool
