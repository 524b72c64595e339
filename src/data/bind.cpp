#include "inkstone/bind.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/log.h"
#include "core/reader.h"
#include "host/file_name.h"
#include "host/input_file.h"
#include "host/letter_case.h"

namespace ink::data {
namespace {

// The header, and an entry of the directory: where their fields stand.
constexpr std::size_t kHeaderSize = 24, kCountAt = 16, kStampAt = 20;
constexpr std::size_t kEntrySize = 24, kNameSize = 16, kOffsetAt = 16, kSizeAt = 20;
constexpr char kSignature[] = "Murn Bind file\x1A\x10";
constexpr std::uint32_t kStamp = 750411;

constexpr std::int64_t kLargestArchive = std::numeric_limits<std::int32_t>::max();
constexpr int kLongestLine = 127;
constexpr char kComment = ';', kEndOfList = 0x1A;

// Contents are copied in pieces through a buffer of this size.
constexpr std::size_t kPiece = 64000;
using Piece = std::unique_ptr<std::uint8_t[]>;

Piece new_piece() {
    Piece piece(new (std::nothrow) std::uint8_t[kPiece]);
    if (!piece) log_error("memory alloc error");
    return piece;
}

// Copies what a file has of a stretch; false when it cannot be written.
bool copy(host::InputFile &from, std::uint64_t offset, std::uint64_t length, std::FILE *to,
          const Piece &piece) {
    for (std::size_t part; length > 0; offset += part, length -= part) {
        part = from.read(offset,
                         {piece.get(), static_cast<std::size_t>(std::min<std::uint64_t>(length, kPiece))});
        if (part == 0) return true;
        if (std::fwrite(piece.get(), 1, part, to) != part) return false;
    }
    return true;
}

struct ListedFile {
    std::string name;
    std::uint32_t offset, size;
};

// Reads the names, and the sizes of the files they name; false, and a log line, when it cannot be done.
bool read_list(const char *list_name, const char *archive_name, std::vector<ListedFile> &files) try {
    const host::File list = host::open_file(list_name, "rb");
    if (!list) {
        log_error_format("LIST file %s open error", list_name);
        return false;
    }
    std::array<char, kLongestLine + 1> line;
    std::uint64_t end = 0;
    while (std::fgets(line.data(), static_cast<int>(line.size()), list.get()) != nullptr) {
        if (line[0] == kComment) continue;
        if (line[0] == kEndOfList) break;
        line[std::strcspn(line.data(), "\r\n")] = '\0';
        const char *const name = line.data();
        if (std::strlen(name) >= kNameSize) {
            log_error_format("BIND element file %s name too long", name);
            return false;
        }
        const host::InputFile file(name);
        if (!file.is_open()) {
            log_error_format("BIND element file %s open error", name);
            return false;
        }
        files.push_back({name, static_cast<std::uint32_t>(end), static_cast<std::uint32_t>(file.size())});
        end += file.size();
        if (kHeaderSize + kEntrySize * files.size() + end > kLargestArchive) {
            log_error_format("BIND file %s too large", archive_name);
            return false;
        }
    }
    const auto contents = static_cast<std::uint32_t>(kHeaderSize + kEntrySize * files.size());
    for (ListedFile &file : files) file.offset += contents;
    return true;
} catch (const std::bad_alloc &) {
    log_error("memory alloc error");
    return false;
}

void write_directory(const std::vector<ListedFile> &files, std::FILE *archive) {
    std::array<std::uint8_t, kHeaderSize> header{};
    std::copy_n(kSignature, kCountAt, header.begin());
    put_u32(&header[kCountAt], static_cast<std::uint32_t>(files.size()));
    put_u32(&header[kStampAt], kStamp);
    std::fwrite(header.data(), 1, header.size(), archive);
    for (const ListedFile &file : files) {
        std::array<std::uint8_t, kEntrySize> entry{};
        std::copy(file.name.begin(), file.name.end(), entry.begin());
        put_u32(&entry[kOffsetAt], file.offset);
        put_u32(&entry[kSizeAt], file.size);
        std::fwrite(entry.data(), 1, entry.size(), archive);
    }
}

struct Entry {
    std::string_view name;
    std::uint32_t offset = 0, size = 0;
};

// The entries of an archive's directory, one after the other, as far as the file has them.
class Directory {
  public:
    explicit Directory(host::InputFile &archive) : archive_(archive) {
        std::array<std::uint8_t, kHeaderSize> header{};
        archive.read(0, header);
        count_ = Reader(&header[kCountAt], 4).i32();
    }

    bool next(Entry &entry) {
        if (count_ <= 0 || (unread_.empty() && !fetch())) return false;
        const std::uint8_t *const bytes = unread_.data();
        const auto *const name = reinterpret_cast<const char *>(bytes);
        entry.name = {name, static_cast<std::size_t>(std::find(name, name + kNameSize, '\0') - name)};
        entry.offset = get_u32(bytes + kOffsetAt);
        entry.size = get_u32(bytes + kSizeAt);
        unread_ = unread_.subspan(kEntrySize);
        --count_;
        return true;
    }

  private:
    bool fetch() {
        const std::size_t length = archive_.read(offset_, block_);
        offset_ += length;
        unread_ = std::span<const std::uint8_t>(block_).first(length / kEntrySize * kEntrySize);
        return !unread_.empty();
    }

    host::InputFile &archive_;
    std::int32_t count_;
    std::uint64_t offset_ = kHeaderSize;
    std::array<std::uint8_t, 128 * kEntrySize> block_;
    std::span<const std::uint8_t> unread_;
};

// Writes one file of the archive; false, and a log line, when it cannot be created or written. left is what
// may still be written: no more than the archive has, whatever its entries claim of one another's contents.
bool extract(host::InputFile &archive, const char *archive_name, const Entry &entry, std::uint64_t &left,
             const Piece &piece) {
    const std::string name(entry.name);
    const std::uint64_t length = archive.present(entry.offset, entry.size);
    host::File file;
    if (!host::leads_outside(name) && !host::same_file(name.c_str(), archive_name) && length <= left)
        file = host::open_file(name.c_str(), "wb");
    if (!file) {
        log_error_format("file %s open error", name.c_str());
        return false;
    }
    left -= length;
    const bool copied = copy(archive, entry.offset, length, file.get(), piece);
    if (host::close_file(std::move(file)) && copied) return true;
    log_error_format("file %s write error", name.c_str());
    return false;
}

}  // namespace
}  // namespace ink::data

using namespace ink;
using namespace ink::data;

int32_t BIND_bind_file(const char *archive_name, const char *list_name) {
    std::vector<ListedFile> files;
    if (!read_list(list_name, archive_name, files)) return -1;
    host::File archive = host::open_file(archive_name, "wb");
    if (!archive) {
        log_error_format("file %s open error", archive_name);
        return -1;
    }
    write_directory(files, archive.get());
    const Piece piece = new_piece();
    if (!piece) return -1;
    bool copied = true;
    for (const ListedFile &file : files) {
        host::InputFile contents(file.name.c_str());
        if (!contents.is_open()) {
            log_error_format("file %s open error", file.name.c_str());
            return -1;
        }
        copied = copied && copy(contents, 0, contents.size(), archive.get(), piece);
    }
    if (host::close_file(std::move(archive)) && copied) return 0;
    log_error_format("file %s write error", archive_name);
    return -1;
}

int32_t BIND_open(const char *archive_name, char *name, int32_t *offset, int32_t *size) {
    host::InputFile archive(archive_name);
    if (!archive.is_open()) {
        log_open_error(archive_name);
        return -2;
    }
    Directory directory(archive);
    for (Entry entry; directory.next(entry);) {
        std::transform(name, name + std::strlen(name), name, host::capital);
        if (!host::equal_ignoring_case(entry.name, name)) continue;
        *offset = static_cast<int32_t>(entry.offset);
        *size = static_cast<int32_t>(entry.size);
        return 0;
    }
    log_error_format("File %s not in BIND file %s ", name, archive_name);
    return -2;
}

int32_t BIND_read(const char *archive_name, int32_t offset, int32_t size, uint8_t *destination) {
    host::InputFile archive(archive_name);
    if (!archive.is_open()) {
        log_open_error(archive_name);
        return -2;
    }
    if (offset >= 0 && size > 0)
        archive.read(static_cast<std::uint64_t>(offset), {destination, static_cast<std::size_t>(size)});
    return 0;
}

int32_t BIND_chop_file(const char *archive_name, const char *) {
    host::InputFile archive(archive_name);
    if (!archive.is_open()) {
        log_error_format("file %s open error", archive_name);
        return 0;
    }
    const Piece piece = new_piece();
    if (!piece) return 0;
    Directory directory(archive);
    std::uint64_t left = archive.size();
    for (Entry entry; directory.next(entry) && extract(archive, archive_name, entry, left, piece);) {
    }
    return 0;
}
