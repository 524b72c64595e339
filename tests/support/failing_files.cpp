#include "support/failing_files.h"

#if defined(__GLIBC__)
#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool armed = false, refused = false;
std::size_t until_refusal = 0, files = 0;
test::FileFault fault;
const char *among = "";

enum class Turn { well, by_half, not_at_all };

// What becomes of the next operation.
Turn take_turn() {
    if (!armed) return Turn::well;
    if (refused) return fault == test::FileFault::all ? Turn::not_at_all : Turn::well;
    if (until_refusal-- > 0) return Turn::well;
    refused = true;
    return fault == test::FileFault::halves ? Turn::by_half : Turn::not_at_all;
}

// The stream that the library is given goes through one of the system's.
struct File {
    std::FILE *behind;
    bool ended = false;  // it came up short once

    int descriptor() const { return fileno(behind); }
};

ssize_t pass(ssize_t done, Turn turn) {
    return turn == Turn::by_half && done > 0 ? done / 2 : done;
}

ssize_t read_file(void *cookie, char *to, std::size_t size) {
    auto &file = *static_cast<File *>(cookie);
    const Turn turn = take_turn();
    if (turn == Turn::not_at_all) return errno = EIO, -1;
    if (file.ended) return 0;
    file.ended = turn == Turn::by_half;
    return pass(read(file.descriptor(), to, size), turn);
}

ssize_t write_file(void *cookie, const char *from, std::size_t size) {
    auto &file = *static_cast<File *>(cookie);
    const Turn turn = take_turn();
    const std::size_t part = turn == Turn::by_half ? size / 2 : size;
    if (turn == Turn::not_at_all || file.ended || part == 0) return errno = ENOSPC, 0;
    file.ended = turn == Turn::by_half;
    return write(file.descriptor(), from, part);
}

int seek_file(void *cookie, off64_t *offset, int origin) {
    if (take_turn() != Turn::well) return errno = EIO, -1;
    const off64_t place = lseek64(static_cast<File *>(cookie)->descriptor(), *offset, origin);
    if (place < 0) return -1;
    *offset = place;
    return 0;
}

int close_file(void *cookie) {
    auto *const file = static_cast<File *>(cookie);
    const bool well = take_turn() == Turn::well;
    const int closed = std::fclose(file->behind);
    std::free(file);
    --files;
    return well ? closed : EOF;
}

// The C library has another one for large files where not every file may be large.
#if defined(_FILE_OFFSET_BITS)
const char opener[] = "fopen64";
#else
const char opener[] = "fopen";
#endif

}  // namespace

// In place of the C library's.
extern "C" [[gnu::visibility("default")]] std::FILE *fopen(const char *name, const char *mode) {
    static const auto open =
        reinterpret_cast<std::FILE *(*)(const char *, const char *)>(dlsym(RTLD_NEXT, opener));
    if (!armed || std::strstr(name, "ERROR.MSG") != nullptr || std::strstr(name, among) == nullptr)
        return open(name, mode);
    if (take_turn() != Turn::well) return errno = EACCES, nullptr;
    std::FILE *const behind = open(name, mode);
    if (behind == nullptr) return nullptr;
    auto *const file = static_cast<File *>(std::malloc(sizeof(File)));
    *file = File{behind};
    ++files;
    return fopencookie(file, mode, {read_file, write_file, seek_file, close_file});
}

namespace test {

FailingFiles::FailingFiles(std::size_t failing, FileFault of, const char *only) {
    until_refusal = failing;
    among = only;
    fault = of;
    refused = false;
    armed = true;
}

bool FailingFiles::disarm() {
    armed = false;
    return refused;
}

std::size_t open_files() {
    return files;
}

}  // namespace test

#else

namespace test {

FailingFiles::FailingFiles(std::size_t, FileFault, const char *) {}
bool FailingFiles::disarm() {
    return false;
}
std::size_t open_files() {
    return 0;
}

}  // namespace test

#endif
