#include "host/file_name.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/letter_case.h"

namespace ink::host {
namespace fs = std::filesystem;
namespace {

bool exists(const std::string &path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

// The entry of the directory whose name equals wanted but for letter case; of several, the first in byte
// order, so that the answer does not depend on the order in which the system lists them. Empty when there is
// none.
std::string find_entry(const std::string &directory, std::string_view wanted) {
    std::string found;
    std::error_code error;
    fs::directory_iterator entries(directory.empty() ? fs::path(".") : fs::path(directory), error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        std::string name = entries->path().filename().string();
        if (equal_ignoring_case(name, wanted) && (found.empty() || name < found)) found = std::move(name);
    }
    return found;
}

}  // namespace

std::string system_name(const char *name) {
    std::string path(name);
#if defined(_WIN32)
    return path;
#else
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.empty() || exists(path)) return path;

    std::string resolved;
    std::size_t start = 0;
    while (start < path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        const std::string_view component(path.data() + start, end - start);
        const bool plain = component.empty() || component == "." || component == "..";
        if (!plain && !exists(resolved + std::string(component))) {
            const std::string found = find_entry(resolved, component);
            if (found.empty()) return resolved + path.substr(start);
            resolved += found;
        } else {
            resolved += component;
        }
        if (end < path.size()) resolved += '/';
        start = end + 1;
    }
    return resolved;
#endif
}

File open_file(const char *name, const char *mode) {
    if (name == nullptr) return nullptr;
    const std::string path = system_name(name);
    std::error_code error;
    if (fs::is_directory(path, error)) return nullptr;
    return File(std::fopen(path.c_str(), mode));
}

bool remove_file(const char *name) {
    const std::string path = system_name(name);
    std::error_code error;
    return !fs::is_directory(path, error) && fs::remove(path, error);
}

bool make_directory(const char *name) {
    std::error_code error;
    return fs::create_directory(system_name(name), error);
}

bool remove_directory(const char *name) {
    const std::string path = system_name(name);
    std::error_code error;
    return fs::is_directory(fs::symlink_status(path, error)) && fs::remove(path, error);
}

std::string current_directory([[maybe_unused]] char drive) {
    std::error_code error;
#if defined(_WIN32)
    if (drive != '\0') return fs::absolute(std::string{drive, ':'}, error).string();
#endif
    return fs::current_path(error).string();
}

bool same_file(const char *one, const char *other) {
    std::error_code error;
    return fs::equivalent(system_name(one), system_name(other), error);
}

}  // namespace ink::host
