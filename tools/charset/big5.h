// Between Unicode and the character sets of the games: Big5 for text, code page 437 for the fonts of single
// bytes. Text in sources is UTF-8 and is turned into Big5 when content is built.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ink::tool {

// The Big5 bytes of one UTF-8 character, none when there are none. ASCII stays as it is.
std::optional<std::string> big5_of_character(std::string_view character);

// The one UTF-8 character that the bytes stand for; none unless big5_of_character leads back to them.
std::optional<std::string> character_of_big5(std::string_view bytes);

// The text as Big5. Throws std::runtime_error when it is not UTF-8 or has a character that Big5 lacks, which
// the message names, and where the system cannot convert at all.
std::string to_big5(std::string_view utf8);

// The text as UTF-8, to be shown: a byte that stands for nothing becomes a question mark.
std::string from_big5(std::string_view big5);

// The characters that a Big5 code (lead byte x 256 + trail byte) may stand for, the usual one first: vendors
// differ over some punctuation. None for a code that is not in use.
std::vector<char32_t> unicode_of_big5(std::uint16_t code);

// The character of a code of code page 437, the pictures of the control codes included.
char32_t unicode_of_cp437(std::uint8_t code);

}  // namespace ink::tool
