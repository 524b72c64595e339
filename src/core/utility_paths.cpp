// Files, directories and whole paths.
#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#include "host/file_name.h"
#include "inkstone/utility.h"

namespace host = ink::host;

namespace {

// The most characters of a current directory that oper_whole_path hands out: callers give it 260 bytes.
constexpr std::size_t kLongestDirectory = 255;

bool is_separator(char c) {
    return c == '\\' || c == '/';
}

bool is_letter(char c) {
    const std::uint8_t upper = char_upper(static_cast<std::uint8_t>(c));
    return upper >= 'A' && upper <= 'Z';
}

// A directory that is too long for the callers' buffers goes by its short name.
std::string short_current_directory(char drive = '\0') {
    const std::string directory = host::current_directory(drive);
    return directory.size() <= kLongestDirectory ? directory : ".";
}

// Turns text into capitals where it stands, and gives it.
const char *capitals(char *text) {
    for (char *c = text; *c != '\0'; ++c) *c = static_cast<char>(char_upper(static_cast<std::uint8_t>(*c)));
    return text;
}

std::string directory_of_drive(char drive) {
    std::string directory = short_current_directory(drive);
    if (!directory.empty() && is_separator(directory.back())) directory.pop_back();
    return directory;
}

}  // namespace

int32_t check_file_exist(const char *name) {
    return host::open_file(name, "rb") ? 0 : -2;
}

int32_t check_directory_exist(const char *name) try {
    if (name == nullptr) return -2;
    const std::string probe = std::string(name) + "\\\xFF\xFF\xFF\xFF\xFF\xFF\xFF";
    if (!host::open_file(probe.c_str(), "wb")) return -2;
    host::remove_file(probe.c_str());
    return 0;
} catch (const std::bad_alloc &) {
    return -2;
}

int32_t make_directory(const char *path) try {
    if (path == nullptr) return -2;
    bool made = false;
    for (std::size_t end = 0; *path != '\0'; ++end) {
        if (path[end] != '\0' && !is_separator(path[end])) continue;
        made = host::make_directory(std::string(path, end).c_str());
        if (path[end] == '\0') break;
    }
    return made ? 0 : -2;
} catch (const std::bad_alloc &) {
    return -2;
}

int32_t remove_directory(char *path) {
    if (path == nullptr) return -2;
    bool removed = false;
    for (std::size_t end = std::strlen(path); end > 0; --end) {
        if (path[end] != '\0' && !is_separator(path[end])) continue;
        path[end] = '\0';
        removed = host::remove_directory(path);
    }
    return removed ? 0 : -2;
}

void oper_whole_path(char *path, char *whole) try {
    if (path == nullptr || whole == nullptr) return;
    *whole = '\0';
    const bool has_drive = is_letter(path[0]) && path[1] == ':';
    std::string full;
    if (is_separator(path[0])) {
        const std::string current = short_current_directory();
        if (current.size() > 1 && current[1] == ':') full = current.substr(0, 2);
        if (path[1] != '\0') full += capitals(path);
    } else if (has_drive && is_separator(path[2])) {
        full = capitals(path);
        if (path[3] == '\0') full.pop_back();
    } else if (has_drive) {
        full = directory_of_drive(path[0]);
        if (path[2] == '.' && path[3] != '\0') {
            std::fputs("Input path error\n", stdout);
        } else if (path[2] != '\0' && path[2] != '.') {
            full += '\\';
            full += capitals(path + 2);
        }
    } else {
        full = short_current_directory() + '\\' + capitals(path);
    }
    std::strcpy(whole, full.c_str());
} catch (const std::bad_alloc &) {
    // What could not be put together stays empty.
}
