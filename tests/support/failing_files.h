// Failing files: the test program's fopen, which the library uses too, can be told to refuse one of the operations that
// reach the system: opening, reading, writing, seeking and closing.
#pragma once

#include <cstddef>

namespace test {

enum class FileFault {
    once,  // the operation fails, those after it do not
    all,   // every later one fails too: a disk that was pulled out
    halves  // a read brings half of what is there and then the end, as of a file that shrinks; a write puts half and
            // then no more, as on a disk that is full; anything else fails
};

// While armed, operation number failing (counted from 0) is refused, of all files, or of those alone whose name only is a
// part of. The error log is spared, so that what is logged can be seen.
class FailingFiles {
  public:
    FailingFiles(std::size_t failing, FileFault fault, const char *only = "");
    ~FailingFiles() { disarm(); }
    FailingFiles(const FailingFiles &) = delete;
    FailingFiles &operator=(const FailingFiles &) = delete;

    // Ends it; whether an operation was refused.
    bool disarm();
};

// How many files are open of those that were opened while it was armed.
std::size_t open_files();

// Whether the library's files can be refused at all: not where it has a C library to itself.
#if defined(__GLIBC__)
inline constexpr bool kFilesCanFail = true;
#else
inline constexpr bool kFilesCanFail = false;
#endif

}  // namespace test
