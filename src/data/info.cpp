#include "inkstone/info.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "core/log.h"
#include "core/text.h"
#include "host/file_name.h"

namespace ink::data {
namespace {

constexpr std::size_t kLongestLine = 1022, kLongestValue = 254, kLongestName = 79;
constexpr std::string_view kSeparators = " \t,=";

// The lines of the loaded file, each closed by a zero. Null while no file is loaded.
std::unique_ptr<std::string> loaded;
std::array<char, kLongestValue + 2> result{};

std::string_view skip_separators(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kSeparators), text.size()));
}

// Hands out the lines one after the other.
class Lines {
  public:
    explicit Lines(std::string_view text) : left_(text) {}

    bool next(std::string_view &line) {
        if (left_.empty()) return false;
        line = left_.substr(0, left_.find('\0'));
        left_.remove_prefix(line.size() + 1);
        return true;
    }

  private:
    std::string_view left_;
};

struct Header {
    bool is_header, matches;
};

// What a line is to the search for a section.
Header header_of(std::string_view line, std::string_view section) {
    line = skip_separators(line);
    if (!line.starts_with('[')) return {false, false};
    line.remove_prefix(1);
    return {true, equal_ignoring_case(line.substr(0, line.find(']')), section)};
}

// The lines of the first section of that name. A header of the same name that follows as the next one begins it
// anew.
Lines find_section(std::string_view text, std::string_view section) {
    Lines lines(text), found({});
    for (std::string_view line; lines.next(line);)
        if (const Header header = header_of(line, section); header.matches) return lines;
    return found;
}

}  // namespace
}  // namespace ink::data
