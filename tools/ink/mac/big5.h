// Between the sources' UTF-8 and the scripts' Big5, character by character.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ink::mac {

// The Big5 bytes of one UTF-8 character; empty when there are none.
std::optional<std::string> to_big5(std::string_view character);

// The one UTF-8 character that the bytes stand for; empty unless to_big5 leads back to the same bytes.
std::optional<std::string> from_big5(std::string_view bytes);

}  // namespace ink::mac
