#include "inkstone/info.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string_view>

#include "core/log.h"
#include "host/input_file.h"
#include "host/letter_case.h"

namespace ink::data {
namespace {

constexpr std::size_t kLongestLine = 1022, kLongestValue = 254, kLongestName = 79;
constexpr std::string_view kSeparators = " \t,=";

struct Before {
    bool operator()(std::string_view a, std::string_view b) const {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
            return host::capital(x) < host::capital(y);
        });
    }
};

std::string_view skip_separators(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kSeparators), text.size()));
}

// The name that a line gives to the section it opens; nothing when it opens none.
std::optional<std::string_view> section_name(std::string_view line) {
    if (!line.starts_with('[')) return std::nullopt;
    line.remove_prefix(1);
    return line.substr(0, line.find(']'));
}

// Hands out the lines of a text one after the other: up to each line feed, but at most kLongestLine
// characters of it, the rest being a line of its own. The end of the text ends only a line of that length.
class Lines {
  public:
    explicit Lines(std::string_view text) : left_(text) {}

    bool next(std::string_view &line) {
        std::string_view read = left_.substr(0, kLongestLine);
        const std::size_t feed = read.find('\n');
        if (feed == read.npos && read.size() < kLongestLine) return false;
        read = read.substr(0, feed == read.npos ? feed : feed + 1);
        left_.remove_prefix(read.size());
        line = read.substr(0, read.find_first_of(std::string_view("\r\n\0", 3)));
        return true;
    }

  private:
    std::string_view left_;
};

// A loaded file, indexed so that a look-up finds what a walk through its lines would.
class Info {
  public:
    // Throws std::bad_alloc. Lines up to the one that there is no memory for can be looked up then. False when the
    // file cannot be read to its end: nothing is loaded of it, since a part would pass for the whole.
    bool load(host::InputFile &file) {
        text_ = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(file.size()));
        auto *const bytes = reinterpret_cast<std::uint8_t *>(text_.get());
        const std::size_t size = file.read(0, {bytes, static_cast<std::size_t>(file.size())});
        if (size != file.size()) return false;
        Lines lines({text_.get(), size});
        for (std::string_view line; lines.next(line);) add(skip_separators(line));
        return true;
    }

    std::string_view find(std::string_view section, std::string_view key) const {
        const auto keys = sections_.find(section);
        if (keys == sections_.end()) return {};
        const auto value = keys->second.find(key);
        return value != keys->second.end() ? value->second : std::string_view();
    }

  private:
    using Keys = std::map<std::string_view, std::string_view, Before>;

    void add(std::string_view line) {
        if (const auto name = section_name(line)) return open(*name);
        const std::string_view key = line.substr(0, line.find_first_of(kSeparators));
        if (section_ == nullptr || key.empty() || key.starts_with(';')) return;
        // The first line that gives the key a value counts.
        const std::string_view value = skip_separators(line.substr(key.size()));
        if (!value.empty()) section_->try_emplace(key, value.substr(0, kLongestValue));
    }

    // The first section of a name counts, but one that follows it directly under the same name takes its
    // place.
    void open(std::string_view name) {
        const auto [found, is_first] = sections_.try_emplace(name);
        if (section_ != &found->second)
            section_ = is_first ? &found->second : nullptr;
        else
            section_->clear();
    }

    std::unique_ptr<char[]> text_;
    std::map<std::string_view, Keys, Before> sections_;
    Keys *section_ = nullptr;  // the one whose lines are being added; null while they are not found
};

std::unique_ptr<Info> loaded;  // null while no file is
std::array<char, kLongestValue + 1> result{};

std::string_view find_value(const char *section, const char *key) {
    if (!loaded || section == nullptr || key == nullptr) return {};
    const std::string_view section_wanted(section), key_wanted(key);
    if (section_wanted.size() > kLongestName || key_wanted.size() > kLongestName) return {};
    return loaded->find(section_wanted, key_wanted);
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
    loaded.reset(new (std::nothrow) Info);
    if (!loaded) {
        log_error("Memory alloc error!!!");
        return -2;
    }
    host::InputFile file(file_name);
    if (!file.is_open() || !loaded->load(file)) {
        log_error_format("INFO file %s open error!!!", text_of(file_name));
        return -2;
    }
    return 0;
} catch (const std::bad_alloc &) {
    log_error("INFO_open_file: Memory alloc error!!!");
    return -2;
}

char *INFO_read_config(const char *section, const char *key, char *value) {
    // What the last call returned may well be the name of the section or the key now, so it is written last.
    const std::string_view found = find_value(section, key);
    result[found.copy(result.data(), kLongestValue)] = '\0';
    if (value != nullptr) std::memmove(value, result.data(), found.size() + 1);
    return result.data();
}

void INFO_close_file() {
    loaded.reset();
}
