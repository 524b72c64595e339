#include <windows.h>

#include <array>
#include <cstdint>

#include "charset/converter.h"

namespace ink::tool {
namespace {

enum class Kind { unknown, code_page, big_endian, little_endian };

struct Set {
    Kind kind = Kind::unknown;
    UINT code_page = 0;

    explicit Set(std::string_view name) {
        if (name == "UTF-32BE") kind = Kind::big_endian;
        if (name == "UTF-32LE") kind = Kind::little_endian;
        if (name == "UTF-8") *this = Set(CP_UTF8);
        if (name == "CP950") *this = Set(950);
        if (name == "CP437") *this = Set(437);
    }

  private:
    explicit Set(UINT page) : kind(Kind::code_page), code_page(page) {}
};

// The system's own form of the one character that text is; empty when it is none.
std::wstring decode(const Set &set, std::string_view text) {
    std::array<wchar_t, 2> units;
    if (set.kind == Kind::code_page) {
        const int count = MultiByteToWideChar(set.code_page, MB_ERR_INVALID_CHARS, text.data(),
                                              static_cast<int>(text.size()), units.data(), 2);
        const bool one = count == 1 || (count == 2 && (units[0] & 0xFC00) == 0xD800);
        return one ? std::wstring(units.data(), static_cast<std::size_t>(count)) : std::wstring();
    }
    if (text.size() != 4) return {};
    std::uint32_t character = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t at = set.kind == Kind::big_endian ? i : 3 - i;
        character = character << 8 | static_cast<std::uint8_t>(text[at]);
    }
    if (character < 0x10000) return std::wstring(1, static_cast<wchar_t>(character));
    character -= 0x10000;
    return {static_cast<wchar_t>(0xD800 | (character >> 10 & 0x3FF)),
            static_cast<wchar_t>(0xDC00 | (character & 0x3FF))};
}

std::optional<std::string> encode(const Set &set, const std::wstring &units) {
    if (set.kind == Kind::code_page) {
        // Characters that a code page lacks must not be replaced by ones that look like them. UTF-8 has them
        // all, and refuses to be asked.
        const bool utf8 = set.code_page == CP_UTF8;
        std::array<char, 16> bytes;
        BOOL replaced = FALSE;
        const int count =
            WideCharToMultiByte(set.code_page, utf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS,
                                units.data(), static_cast<int>(units.size()), bytes.data(),
                                static_cast<int>(bytes.size()), nullptr, utf8 ? nullptr : &replaced);
        if (count < 1 || replaced) return std::nullopt;
        return std::string(bytes.data(), static_cast<std::size_t>(count));
    }
    std::uint32_t character = units[0];
    if (units.size() == 2) character = 0x10000 + ((units[0] & 0x3FFU) << 10 | (units[1] & 0x3FFU));
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(character >> 8 * (set.kind == Kind::big_endian ? 3 - i : i) & 0xFF);
    return bytes;
}

}  // namespace

struct Converter::Tables {
    Set to, from;
};

Converter::Converter(const char *to, const char *from) : tables_(new Tables{Set(to), Set(from)}) {}
Converter::~Converter() = default;

std::optional<std::string> Converter::convert(std::string_view text) const {
    if (tables_->to.kind == Kind::unknown || tables_->from.kind == Kind::unknown) return std::nullopt;
    const std::wstring units = decode(tables_->from, text);
    return units.empty() ? std::nullopt : encode(tables_->to, units);
}

}  // namespace ink::tool
