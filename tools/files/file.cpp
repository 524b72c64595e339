#include "files/file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <system_error>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Every file that was read: an output that is one of them would destroy what the author works on.
Touched &touched() {
    static Touched files;
    return files;
}

bool was_read(const fs::path &name) {
    return std::ranges::any_of(touched().read, [&](const fs::path &read) {
        std::error_code ignored;
        return fs::equivalent(read, name, ignored);
    });
}

std::string reason_of(int error) {
    return error != 0 ? std::generic_category().message(error) : "cannot be read or written";
}

// Streams carry bytes on every system.
void make_binary([[maybe_unused]] std::FILE *stream) {
#if defined(_WIN32)
    _setmode(_fileno(stream), _O_BINARY);
#endif
}

void write_whole(const fs::path &name, std::span<const std::uint8_t> bytes) {
    errno = 0;
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw FileError(name, reason_of(errno));
}

void write_stream(std::span<const std::uint8_t> bytes) {
    make_binary(stdout);
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0)
        throw FileError("standard output", reason_of(errno));
}

fs::path temporary_beside(const fs::path &name) {
    static std::mt19937 numbers{std::random_device{}()};
    fs::path temporary;
    do {
        temporary = name;
        temporary += ".ink-" + std::to_string(numbers());
    } while (fs::exists(temporary));
    return temporary;
}

bool matches(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern[0] == '*')
        return matches(text, pattern.substr(1)) || (!text.empty() && matches(text.substr(1), pattern));
    return !text.empty() && (pattern[0] == '?' || pattern[0] == text[0]) &&
           matches(text.substr(1), pattern.substr(1));
}

}  // namespace

void append(Bytes &to, std::span<const std::uint8_t> bytes) {
    const std::size_t end = to.size();
    to.resize(end + bytes.size());
    std::copy(bytes.begin(), bytes.end(), to.begin() + static_cast<std::ptrdiff_t>(end));
}
void append(Bytes &to, std::string_view text) {
    append(to, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
}
std::string_view as_text(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

FileError::FileError(const fs::path &name, const std::string &reason)
    : std::runtime_error((name == kStream ? "standard input" : name_of(name)) + ": " + reason),
      reason_(reason) {}

fs::path path_of(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}
std::string name_of(const fs::path &path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}
std::string ending_of(const fs::path &path) {
    std::string ending = name_of(path.extension());
    for (char &letter : ending)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + 32);
    return ending.empty() ? ending : ending.substr(1);
}

Bytes read_bytes(const fs::path &name) {
    if (name == kStream) {
        make_binary(stdin);
        return Bytes(std::istreambuf_iterator<char>(std::cin), {});
    }
    std::error_code error;
    if (fs::is_directory(name, error)) throw FileError(name, "is a directory");
    errno = 0;
    std::ifstream file(name, std::ios::binary);
    Bytes bytes;
    if (const auto size = fs::file_size(name, error); !error)
        bytes.reserve(static_cast<std::size_t>(std::min<std::uintmax_t>(size, bytes.max_size())));
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) throw FileError(name, reason_of(errno));
    note_read(name);
    return bytes;
}

Touched take_touched() {
    return std::exchange(touched(), {});
}
void note_read(const fs::path &name) {
    touched().read.push_back(name);
}

std::string read_text(const fs::path &name) {
    const Bytes bytes = read_bytes(name);
    std::string text(as_text(bytes));
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    return text;
}

NewFiles::~NewFiles() {
    std::error_code ignored;
    for (const Written &file : written_) fs::remove(file.temporary, ignored);
}

void NewFiles::add(const fs::path &name, std::span<const std::uint8_t> bytes, bool may_replace_input) {
    if (name.empty()) throw FileError("\"\"", "is no file name");
    if (!may_replace_input && was_read(name))
        throw FileError(name, "is what this is made of; name another file to write");
    std::error_code error;
    const fs::file_status status = name == kStream ? fs::file_status() : fs::status(name, error);
    if (fs::is_directory(status)) throw FileError(name, "is a directory");
    if (name == kStream || (fs::exists(status) && !fs::is_regular_file(status))) {
        direct_.emplace_back(name, Bytes(bytes.begin(), bytes.end()));
        return;
    }
    // A link stays one.
    const fs::path place = fs::exists(status) ? fs::canonical(name) : name;
    const fs::path temporary = temporary_beside(place);
    written_.push_back({temporary, place});
    try {
        write_whole(temporary, bytes);
    } catch (const FileError &) {
        throw FileError(name, reason_of(errno));
    }
    if (fs::exists(status)) fs::permissions(temporary, status.permissions(), error);
}

void NewFiles::commit() {
    for (const auto &[name, bytes] : direct_)
        name == kStream ? write_stream(bytes) : write_whole(name, bytes);
    direct_.clear();
    for (const Written &file : written_) touched().written.push_back(file.place);
    for (; !written_.empty(); written_.erase(written_.begin())) {
        std::error_code error;
        fs::rename(written_.front().temporary, written_.front().place, error);
        if (error) throw FileError(written_.front().place, error.message());
    }
}

void write_bytes(const fs::path &name, std::span<const std::uint8_t> bytes, bool may_replace_input) {
    NewFiles files;
    files.add(name, bytes, may_replace_input);
    files.commit();
}
void write_text(const fs::path &name, std::string_view text, bool may_replace_input) {
    write_bytes(name, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()}, may_replace_input);
}

std::vector<std::string> expand_patterns(const std::vector<std::string> &names) {
    std::vector<std::string> expanded;
    for (const std::string &name : names) {
        const fs::path path = path_of(name);
        const std::string pattern = name_of(path.filename());
        std::vector<std::string> found;
        std::error_code error;
        if (pattern.find_first_of("*?") != std::string::npos && !fs::exists(path, error)) {
            const fs::path folder = path.parent_path();
            for (const auto &entry : fs::directory_iterator(folder.empty() ? "." : folder, error))
                if (matches(name_of(entry.path().filename()), pattern))
                    found.push_back(name_of(folder / entry.path().filename()));
        }
        std::ranges::sort(found);
        if (found.empty()) found.push_back(name);
        expanded.insert(expanded.end(), found.begin(), found.end());
    }
    return expanded;
}

}  // namespace ink::tool
