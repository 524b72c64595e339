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

constexpr std::uint64_t kLargestArchive = std::numeric_limits<std::int32_t>::max();

// Entries may share contents; an archive makes at most so many times its own size of files.
constexpr std::uint64_t kMostSharing = 64;

constexpr int kLongestLine = 127;
constexpr char kComment = ';', kEndOfList = 0x1A;

// Contents are copied in pieces through a buffer of this size.
constexpr std::size_t kPiece = 64000;
using Piece = std::unique_ptr<std::uint8_t[]>;

void log_no_memory() {
    log_error("memory alloc error");
}
void log_not_opened(const char *name) {
    log_error_format("file %s open error", text_of(name));
}
void log_not_written(const char *name) {
    log_error_format("file %s write error", name);
}

Piece new_piece() {
    Piece piece(new (std::nothrow) std::uint8_t[kPiece]);
    if (!piece) log_no_memory();
    return piece;
}

enum class Copied { whole, short_source, not_written };

// Copies what a file has of a stretch.
Copied copy(host::InputFile &from, std::uint64_t offset, std::uint64_t length, std::FILE *to,
            const Piece &piece) {
    for (std::size_t part; length > 0; offset += part, length -= part) {
        const auto most = static_cast<std::size_t>(std::min<std::uint64_t>(length, kPiece));
        part = from.read(offset, {piece.get(), most});
        if (part == 0) return Copied::short_source;
        if (std::fwrite(piece.get(), 1, part, to) != part) return Copied::not_written;
    }
    return Copied::whole;
}

struct ListedFile {
    std::string name;
    std::uint32_t offset, size;
};

// Reads the names, and the sizes of the files they name; false, and a log line, when it cannot be done.
bool read_list(const char *list_name, const char *archive_name, std::vector<ListedFile> &files) try {
    const host::File list = host::open_file(list_name, "rb");
    if (!list) {
        log_error_format("LIST file %s open error", text_of(list_name));
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
        // The archive does not hold itself: it is empty when its contents are copied.
        const host::InputFile file(name);
        if (!file.is_open() || host::same_file(name, archive_name)) {
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
    if (std::ferror(list.get()) != 0) {  // a part of the list would make a part of the archive
        log_error_format("LIST file %s open error", list_name);
        return false;
    }
    const auto contents = static_cast<std::uint32_t>(kHeaderSize + kEntrySize * files.size());
    for (ListedFile &file : files) file.offset += contents;
    return true;
} catch (const std::bad_alloc &) {
    log_no_memory();
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

// The entries of an archive's directory, one after the other, as far as the file has them.
class Directory {
  public:
    explicit Directory(host::InputFile &archive) : archive_(archive) {
        std::array<std::uint8_t, kHeaderSize> header{};
        archive.read(0, header);
        count_ = Reader(&header[kCountAt], 4).i32();
    }

    // The bytes of the next entry; null when there is none.
    const std::uint8_t *next() {
        if (count_ <= 0 || (unread_.empty() && !fetch())) return nullptr;
        const std::uint8_t *const entry = unread_.data();
        unread_ = unread_.subspan(kEntrySize);
        --count_;
        return entry;
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
    std::array<std::uint8_t, 1024 * kEntrySize> block_;
    std::span<const std::uint8_t> unread_;
};

// A name that is looked for, of which entries are compared with eight letters at once, in capitals.
class WantedName {
  public:
    explicit WantedName(std::string_view name) : fits_(name.size() <= kNameSize) {
        if (!fits_) return;
        // Only what stands up to the zero at a name's end belongs to it.
        const std::size_t compared = std::min(name.size() + 1, kNameSize);
        std::array<char, kNameSize> letters{}, all{};
        std::copy(name.begin(), name.end(), letters.begin());
        std::fill_n(all.begin(), compared, '\xFF');
        for (std::size_t i = 0; i < kWords; ++i) {
            mask_[i] = load(&all[8 * i]);
            name_[i] = capitals(load(&letters[8 * i])) & mask_[i];
        }
    }

    bool is_name_of(const std::uint8_t *entry) const {
        std::uint64_t difference = 0;
        for (std::size_t i = 0; i < kWords; ++i)
            difference |= (capitals(load(entry + 8 * i)) & mask_[i]) ^ name_[i];
        return fits_ && difference == 0;
    }

  private:
    static constexpr std::size_t kWords = kNameSize / 8;

    static std::uint64_t load(const void *bytes) {
        std::uint64_t word;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }
    // The letters a to z turned into capitals: those from a on get their highest bit set, those behind z too.
    static std::uint64_t capitals(std::uint64_t word) {
        constexpr std::uint64_t kEach = 0x0101010101010101, kHigh = 0x80 * kEach;
        const std::uint64_t low = word & ~kHigh;
        const std::uint64_t small =
            ((low + (0x80 - 'a') * kEach) ^ (low + (0x7F - 'z') * kEach)) & ~word & kHigh;
        return word - (small >> 2);
    }

    bool fits_;
    std::array<std::uint64_t, kWords> name_{}, mask_{};
};

// Writes one file of the archive; false, and a log line, when it cannot be created or written. left is how
// much may still be written.
bool extract(host::InputFile &archive, const char *archive_name, const std::uint8_t *entry,
             std::uint64_t &left, const Piece &piece) {
    std::array<char, kNameSize + 1> name{};
    std::copy_n(entry, kNameSize, name.begin());
    if (host::leads_outside(name.data()) || host::same_file(name.data(), archive_name)) {
        log_not_opened(name.data());
        return true;  // the others are extracted all the same
    }
    const std::uint64_t offset = get_u32(entry + kOffsetAt);
    const std::uint64_t length = archive.present(offset, get_u32(entry + kSizeAt));
    host::File file = length <= left ? host::open_file(name.data(), "wb") : nullptr;
    if (!file) {
        log_not_opened(name.data());
        return false;
    }
    left -= length;
    const bool copied = copy(archive, offset, length, file.get(), piece) != Copied::not_written;
    if (host::close_file(std::move(file)) && copied) return true;
    log_not_written(name.data());
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
        log_not_opened(archive_name);
        return -1;
    }
    write_directory(files, archive.get());
    const Piece piece = new_piece();
    if (!piece) return -1;
    bool copied = true;
    for (const ListedFile &file : files) {
        host::InputFile contents(file.name.c_str());
        // One that has another size now, or comes up short, is not the file of which the directory tells.
        const bool same = contents.is_open() && contents.size() == file.size;
        const Copied result =
            same ? copy(contents, 0, file.size, archive.get(), piece) : Copied::short_source;
        if (result == Copied::short_source) {
            log_not_opened(file.name.c_str());
            return -1;
        }
        copied = copied && result == Copied::whole;
    }
    if (host::close_file(std::move(archive)) && copied) return 0;
    log_not_written(archive_name);
    return -1;
}

int32_t BIND_open(const char *archive_name, char *name, int32_t *offset, int32_t *size) {
    if (offset == nullptr || size == nullptr) return -2;
    host::InputFile archive(archive_name);
    if (!archive.is_open()) {
        log_open_error(archive_name);
        return -2;
    }
    Directory directory(archive);
    const std::uint8_t *entry = name != nullptr ? directory.next() : nullptr;
    if (entry != nullptr) {
        const std::string_view text(name);
        std::transform(text.begin(), text.end(), name, host::capital);
        const WantedName wanted(text);
        while (entry != nullptr && !wanted.is_name_of(entry)) entry = directory.next();
    }
    if (entry == nullptr) {
        log_error_format("File %s not in BIND file %s ", text_of(name), archive_name);
        return -2;
    }
    *offset = static_cast<std::int32_t>(get_u32(entry + kOffsetAt));
    *size = static_cast<std::int32_t>(get_u32(entry + kSizeAt));
    return 0;
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
        log_not_opened(archive_name);
        return 0;
    }
    const Piece piece = new_piece();
    if (!piece) return 0;
    Directory directory(archive);
    std::uint64_t left = kMostSharing * archive.size();
    while (const std::uint8_t *const entry = directory.next())
        if (!extract(archive, archive_name, entry, left, piece)) break;
    return 0;
}
