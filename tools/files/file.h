// The author's files: read whole, written whole or not at all.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ink::tool {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes &to, std::span<const std::uint8_t> bytes);
void append(Bytes &to, std::string_view text);
std::string_view as_text(std::span<const std::uint8_t> bytes);

// What is wrong with a file, as the user reads it: "name: reason".
class FileError : public std::runtime_error {
  public:
    FileError(const std::filesystem::path &name, const std::string &reason);
    const std::string &reason() const { return reason_; }

  private:
    std::string reason_;
};

// Names on the command line are UTF-8 on every system; so are those in messages.
std::filesystem::path path_of(std::string_view utf8);
std::string name_of(const std::filesystem::path &path);

// What a name ends in, without the dot and in small letters: old disks have names in capitals.
std::string ending_of(const std::filesystem::path &path);

// The name of standard input or output.
inline constexpr const char *kStream = "-";

// Both throw FileError when there is no such file, it is a directory, or cannot be read. Text comes without
// the byte-order mark some editors put before it.
Bytes read_bytes(const std::filesystem::path &name);
std::string read_text(const std::filesystem::path &name);

// What has been read and written since the last call, in the order in which it was; a file that another
// library reads is noted by hand. Names are as they were given.
struct Touched {
    std::vector<std::filesystem::path> read, written;
};
Touched take_touched();
void note_read(const std::filesystem::path &name);

// Several files that appear together: each is written beside its place, and all are moved there by commit.
// What was there before stays until then, and if anything fails.
class NewFiles {
  public:
    NewFiles() = default;
    ~NewFiles();
    NewFiles(const NewFiles &) = delete;
    NewFiles &operator=(const NewFiles &) = delete;

    // Throws FileError when the file cannot be written, and when it is one that has been read for it, unless
    // that is what the author asks for. Directories on the way must be there. What is no regular file, such
    // as a terminal, is written when committed.
    void add(const std::filesystem::path &name, std::span<const std::uint8_t> bytes,
             bool may_replace_input = false);
    void commit();

  private:
    struct Written {
        std::filesystem::path temporary, place;
    };
    std::vector<Written> written_;
    std::vector<std::pair<std::filesystem::path, Bytes>> direct_;
};

// One file, at once.
void write_bytes(const std::filesystem::path &name, std::span<const std::uint8_t> bytes,
                 bool may_replace_input = false);
void write_text(const std::filesystem::path &name, std::string_view text, bool may_replace_input = false);

// The names with those that hold * or ? in their last part replaced by what they match, in the order of the
// alphabet: on systems whose shells leave that to programs. A pattern without a match stays as it is.
std::vector<std::string> expand_patterns(const std::vector<std::string> &names);

}  // namespace ink::tool
