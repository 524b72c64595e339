// File names as game data writes them. Backslash and slash both separate on every system, and a name that
// does not exist as written is looked for without regard to the case of its letters, component by component,
// since game data comes from disks that ignore case. Every file of the library is opened, removed and created
// through here; nothing here throws, and a null name is one that leads nowhere.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace ink::host {

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// std::fopen on the name that the system knows the file under. Components that exist in no letter case stay
// as they are written, so this also creates files. Null when the file cannot be opened, and for null names,
// directories, the names that stand for devices on Windows, and when memory runs out.
File open_file(const char *name, const char *mode) noexcept;

// Closes the file; false when what was still to be written could not be, or was lost before.
bool close_file(File file) noexcept;

// Removes the file; false when there is none or it cannot be removed.
bool remove_file(const char *name) noexcept;

// Whether both names lead to one file that is there.
bool same_file(const char *one, const char *other) noexcept;

// Whether a name out of an archive may lead out of the current directory: from a drive or the root, or
// upwards. Systems ignore dots and spaces at the end of a name, so one of nothing else is as good as "..".
bool leads_outside(std::string_view name);

// Creates the directory, whose parent must exist; false when it exists already or cannot be created.
bool make_directory(const char *name) noexcept;

// Removes the directory; false when there is none, when it is not empty or cannot be removed.
bool remove_directory(const char *name) noexcept;

// The current directory, of the drive named by a letter where drives have one of their own each.
std::string current_directory(char drive = '\0');

}  // namespace ink::host
