// File names as game data writes them. Backslash and slash both separate on every system, and a name that
// does not exist as written is looked for without regard to the case of its letters, component by component,
// since game data comes from disks that ignore case. Every file of the library is opened, removed and created
// through here.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace ink::host {

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// The name under which the system knows the file or directory. Components that exist in no letter case stay
// as they are written, so the result also serves to create a file.
std::string system_name(const char *name);

// std::fopen on system_name(name). Directories are refused, also for reading.
File open_file(const char *name, const char *mode);

// Removes the file; false when there is none or it cannot be removed.
bool remove_file(const char *name);

// Whether both names lead to one file that is there.
bool same_file(const char *one, const char *other);

// Creates the directory, whose parent must exist; false when it exists already or cannot be created.
bool make_directory(const char *name);

// Removes the directory; false when there is none, when it is not empty or cannot be removed.
bool remove_directory(const char *name);

// The current directory, of the drive named by a letter where drives have one of their own each.
std::string current_directory(char drive = '\0');

}  // namespace ink::host
