#include "inkstone/info.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "core/log.h"
#include "host/file_name.h"
#include "host/letter_case.h"

namespace ink::data {
namespace {

constexpr std::size_t kLongestLine = 1022, kLongestValue = 254, kLongestName = 79;
constexpr std::string_view kSeparators = " \t,=";

// The lines of the loaded file, each closed by a zero. Null while no file is loaded.
std::unique_ptr<std::string> loaded;
std::array<char, kLongestValue + 1> result{};

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

// The name that a line gives to the section it opens; nothing when it opens none.
std::optional<std::string_view> section_name(std::string_view line) {
    line = skip_separators(line);
    if (!line.starts_with('[')) return std::nullopt;
    line.remove_prefix(1);
    return line.substr(0, line.find(']'));
}

// The lines from the first section of that name on. A section that follows it under the same name takes its
// place.
Lines find_section(std::string_view text, std::string_view wanted) {
    Lines lines(text), section({});
    bool found = false;
    for (std::string_view line; lines.next(line);) {
        const auto name = section_name(line);
        if (!name) continue;
        if (host::equal_ignoring_case(*name, wanted)) {
            section = lines;
            found = true;
        } else if (found) {
            break;
        }
    }
    return section;
}

std::string_view find_value(Lines section, std::string_view wanted) {
    for (std::string_view line; section.next(line) && !section_name(line);) {
        line = skip_separators(line);
        const std::string_view key = line.substr(0, line.find_first_of(kSeparators));
        if (key.empty() || key.starts_with(';') || !host::equal_ignoring_case(key, wanted)) continue;
        const std::string_view value = skip_separators(line.substr(key.size()));
        if (!value.empty()) return value.substr(0, kLongestValue);
    }
    return {};
}

// Appends the lines of the file to text, the last only when it has a line break.
void read_lines(std::FILE *file, std::string &text) {
    std::array<char, kLongestLine + 1> line;
    while (std::fgets(line.data(), static_cast<int>(line.size()), file) != nullptr && !std::feof(file)) {
        line[std::strcspn(line.data(), "\r\n")] = '\0';
        text.append(line.data()).push_back('\0');
    }
}

}  // namespace
}  // namespace ink::data

using namespace ink;
using namespace ink::data;

int32_t INFO_open_file(const char *file_name) try {
    if (loaded) {
        log_error("INFO file reopen error !!!");
        return -2;
    }
    loaded.reset(new (std::nothrow) std::string);
    if (!loaded) {
        log_error("Memory alloc error!!!");
        return -2;
    }
    const host::File file = host::open_file(file_name, "rb");
    if (!file) {
        log_error_format("INFO file %s open error!!!", file_name);
        return -2;
    }
    read_lines(file.get(), *loaded);
    return 0;
} catch (const std::bad_alloc &) {
    log_error("INFO_open_file: Memory alloc error!!!");
    return -2;
}

char *INFO_read_config(const char *section, const char *key, char *value) {
    // What the last call returned may well be the name of the section or the key now.
    const std::string_view section_wanted(section), key_wanted(key);
    std::string_view found;
    if (loaded && section_wanted.size() <= kLongestName && key_wanted.size() <= kLongestName)
        found = find_value(find_section(*loaded, section_wanted), key_wanted);
    result[found.copy(result.data(), kLongestValue)] = '\0';
    std::memmove(value, result.data(), found.size() + 1);
    return result.data();
}

void INFO_close_file() {
    loaded.reset();
}
