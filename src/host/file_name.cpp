#include "host/file_name.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <exception>
#include <new>
#include <string_view>

#include "host/letter_case.h"

namespace ink::host {
namespace {

#if defined(_WIN32)

// Names are bytes in the system's own code page, as a game wrote them, so they never go through the standard library's
// paths, which take them for something else. The system itself takes both separators and any letter case.
std::string system_name(const char *name) {
    return name;
}

// Whether the name is a device's in any directory and with any extension: CON, NUL.TXT, C:\\DATA\\COM1.
bool is_device(std::string_view name) {
    name.remove_prefix(name.find_last_of("/\\:") + 1);
    name = name.substr(0, name.find_first_of(".:"));
    name = name.substr(0, name.find_last_not_of(' ') + 1);
    for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"})
        if (equal_ignoring_case(name, device)) return true;
    return name.size() == 4 && name[3] >= '1' && name[3] <= '9' &&
           (equal_ignoring_case(name.substr(0, 3), "COM") || equal_ignoring_case(name.substr(0, 3), "LPT"));
}

bool is_directory(const std::string &path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// What tells one file from all others.
bool identify(const std::string &path, BY_HANDLE_FILE_INFORMATION &identity) {
    const HANDLE file = CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool identified = GetFileInformationByHandle(file, &identity) != FALSE;
    CloseHandle(file);
    return identified;
}

bool is_same(const std::string &one, const std::string &other) {
    BY_HANDLE_FILE_INFORMATION first, second;
    return identify(one, first) && identify(other, second) &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
           first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

bool create_directory(const std::string &path) {
    return CreateDirectoryA(path.c_str(), nullptr) != FALSE;
}
bool delete_directory(const std::string &path) {
    return RemoveDirectoryA(path.c_str()) != FALSE;
}
bool read_current_directory(char drive, char *path, std::size_t size) {
    const auto room = static_cast<DWORD>(size);
    const char of_drive[] = {drive, ':', '\0'};
    const DWORD length =
        drive != '\0' ? GetFullPathNameA(of_drive, room, path, nullptr) : GetCurrentDirectoryA(room, path);
    return length > 0 && length < room;
}

#else

bool exists(const std::string &path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// The entry of the directory whose name equals wanted but for letter case; of several, the first in byte
// order, so that the answer does not depend on the order in which the system lists them. Empty when there is
// none.
std::string find_entry(const std::string &directory, std::string_view wanted) {
    // Not through std::filesystem, whose iterator ends the process when memory runs out.
    const auto close = [](DIR *open) { closedir(open); };
    const std::unique_ptr<DIR, decltype(close)> entries(opendir(directory.empty() ? "." : directory.c_str()));
    std::string found;
    while (const dirent *entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (equal_ignoring_case(name, wanted) && (found.empty() || name < found)) found = name;
    }
    return found;
}

// The path with each component as the system has it; those that exist in no letter case stay as written.
std::string find_path(const std::string &path) {
    std::string found;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string component = path.substr(start, end - start);
        const bool plain = component.empty() || component == "." || component == "..";
        if (!plain && !exists(found + component)) {
            const std::string entry = find_entry(found, component);
            if (entry.empty()) return found + path.substr(start);
            found += entry;
        } else {
            found += component;
        }
        if (end < path.size()) found += '/';
        start = end + 1;
    }
    return found;
}

// The name under which the system knows the file or directory. Without memory to look for it, it is taken as
// it stands, so that the line which reports the want of memory still finds the log.
std::string system_name(const char *name) {
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.empty() || exists(path)) return path;
    try {
        return find_path(path);
    } catch (const std::bad_alloc &) {
        return path;
    }
}

bool is_device(const char *) {
    return false;
}

bool is_directory(const std::string &path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool is_same(const std::string &one, const std::string &other) {
    struct stat first, second;
    return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool create_directory(const std::string &path) {
    return mkdir(path.c_str(), 0777) == 0;
}
bool delete_directory(const std::string &path) {
    return rmdir(path.c_str()) == 0;
}
bool read_current_directory(char, char *path, std::size_t size) {
    return getcwd(path, size) != nullptr;
}

#endif

// What operation says of the system's name of the file, and false when there is no name or no memory for it.
template <class Operation>
bool ask(const char *name, Operation operation) noexcept try {
    return name != nullptr && operation(system_name(name));
} catch (const std::exception &) {
    return false;
}

}  // namespace

File open_file(const char *name, const char *mode) noexcept {
    File file;
    ask(name, [&](const std::string &path) {
        if (!is_device(name) && !is_directory(path)) file.reset(std::fopen(path.c_str(), mode));
        return true;
    });
    return file;
}

bool close_file(File file) noexcept {
    const bool lost = std::ferror(file.get()) != 0;
    return std::fclose(file.release()) == 0 && !lost;
}

bool remove_file(const char *name) noexcept {
    return ask(name,
               [](const std::string &path) { return !is_directory(path) && std::remove(path.c_str()) == 0; });
}

bool same_file(const char *one, const char *other) noexcept {
    return ask(one, [other](const std::string &path) {
        return ask(other, [&path](const std::string &other_path) { return is_same(path, other_path); });
    });
}

bool leads_outside(std::string_view name) {
    constexpr std::string_view kSeparators = "/\\";
    if (name.find(':') != name.npos || kSeparators.find(name.substr(0, 1)) != name.npos) return true;
    while (!name.empty()) {
        const std::string_view part = name.substr(0, name.find_first_of(kSeparators));
        if (part.size() > 1 && part.find_first_not_of(". ") == part.npos) return true;
        name.remove_prefix(std::min(part.size() + 1, name.size()));
    }
    return false;
}

bool make_directory(const char *name) noexcept {
    return ask(name, create_directory);
}

bool remove_directory(const char *name) noexcept {
    return ask(name, delete_directory);
}

std::string current_directory(char drive) {
    char path[4096];
    return read_current_directory(drive, path, sizeof path) ? path : "";
}

}  // namespace ink::host
