#include "text.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstring>

#include "frame.h"

namespace moon {
namespace {

constexpr std::int32_t kTransparent = 1;
constexpr int kByteWidth = 12;  // a Big5 character has two of them

// The bytes of the character or the control sequence that begins at the text's byte at.
std::size_t length_at(const std::string &text, std::size_t at) {
    const auto byte = static_cast<std::uint8_t>(text[at]);
    std::size_t length = 1;
    if (byte >= 0x80) length = 2;
    if (byte == '~') length = 3;
    return std::min(length, text.size() - at);
}

int width_of(const std::string &unit) {
    return unit[0] == '~' ? 0 : static_cast<int>(unit.size()) * kByteWidth;
}

bool is_one_of(const std::string &unit, const char *characters) {
    for (; *characters != 0; characters += 2)
        if (unit.size() == 2 && std::memcmp(unit.data(), characters, 2) == 0) return true;
    return false;
}

// Big5: ，。、；：？！」』）…— may not begin a line, 「『（ may not end one.
bool may_not_begin(const std::string &unit) {
    return is_one_of(unit,
                     "\xA1\x41\xA1\x43\xA1\x42\xA1\x46\xA1\x47\xA1\x48\xA1\x49\xA1\x76\xA1\x7A\xA1\x5E"
                     "\xA1\x4B\xA1\x58");
}
bool may_not_end(const std::string &unit) {
    return is_one_of(unit, "\xA1\x75\xA1\x79\xA1\x5D");
}

// The text in units that are not cut: words with the space behind them, and Chinese characters with the marks
// that belong to them. A control sequence goes with what follows it.
std::vector<std::string> units_of(const std::string &text) {
    std::vector<std::string> units;
    std::string control;
    bool in_word = false, opened = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::string unit = text.substr(at, length_at(text, at));
        at += unit.size();
        if (unit[0] == '~') {
            control += unit;
            continue;
        }
        const bool single = unit.size() == 1;
        const bool joins = !units.empty() && (opened || may_not_begin(unit) || (single && in_word));
        if (joins)
            units.back() += control + unit;
        else
            units.push_back(control + unit);
        control.clear();
        in_word = single && unit != " ";
        opened = may_not_end(unit);
    }
    if (!units.empty()) units.back() += control;
    return units;
}

// Whether the accent of a text is still on at its end.
bool ends_accented(const std::string &text) {
    const std::size_t on = text.rfind("~C1"), off = text.rfind("~C0");
    return on != text.npos && (off == text.npos || off < on);
}

// As many lines as there are, each as full as it can be.
std::vector<std::string> fill_lines(const std::vector<std::string> &units, int width) {
    std::vector<std::string> lines(1);
    for (const std::string &unit : units) {
        const std::string word = unit.substr(0, unit.find_last_not_of(' ') + 1);
        const bool begun = text_width(lines.back()) > 0;
        if (begun && text_width(lines.back() + word) > width)
            lines.emplace_back(ends_accented(lines.back()) ? "~C1" : "");
        if (unit != " " || text_width(lines.back()) > 0) lines.back() += unit;
    }
    return lines;
}

}  // namespace

bool load_fonts() {
    constexpr std::int32_t kPack = 1;
    return CHINE_init(kPack) == 0;
}

int text_width(const std::string &text) {
    int width = 0;
    for (std::size_t at = 0; at < text.size(); at += length_at(text, at))
        width += width_of(text.substr(at, length_at(text, at)));
    return width;
}

std::vector<std::string> wrap(const std::string &text, int width) {
    const std::vector<std::string> units = units_of(text);
    std::vector<std::string> lines = fill_lines(units, width);
    // Narrower lines leave more for the last one, as long as they do not become more.
    const std::size_t count = lines.size();
    while (count > 1 && text_width(lines.back()) < width / 3) {
        width -= kByteWidth;
        std::vector<std::string> narrower = fill_lines(units, width);
        if (narrower.size() > count) break;
        lines.swap(narrower);
    }
    return lines;
}

void print(int x, int y, const std::string &text, const TextStyle &style) {
    CHINE_set_color(0, style.colour);
    CHINE_set_color(1, style.accent);
    CHINE_set_color(3, style.outline);
    // What a control sequence switches stays so for the texts to come: each begins with all of them.
    const std::string line = std::string("~Z0~D0~C0") + (style.outline >= 0 ? "~O1" : "~O0") +
                             (style.shadow ? "~T1" : "~T0") + text + "~C0";
    CHINE_print24(x, y, line.c_str(), kTransparent, screen());
}

void print_centred(int x, int y, const std::string &text, const TextStyle &style) {
    print(x - text_width(text) / 2, y, text, style);
}

}  // namespace moon
