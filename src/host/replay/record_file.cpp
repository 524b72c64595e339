#include "host/replay/record_file.h"

#include <array>
#include <cstring>

#include "core/reader.h"

namespace ink::host {
namespace {

constexpr std::uint8_t kMagic[] = {'I', 'N', 'K', 'R', 'E', 'C', 0x1A};
constexpr std::uint8_t kVersion = 1;
constexpr std::uint8_t kPictures = 1, kSound = 2, kSimulated = 4;
constexpr std::size_t kBeforeHeader = sizeof kMagic + 1 + 2;  // the header's own size is the last of it
constexpr std::size_t kBlockHeader = 1 + 4 + 4;
constexpr std::uint64_t kLongest = std::uint64_t{1} << 50;  // microseconds: some 35 years

constexpr auto kCheckTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit) table[i] = table[i] >> 1 ^ ((table[i] & 1) != 0 ? 0xEDB88320U : 0);
    }
    return table;
}();

void add_number(std::vector<std::uint8_t> &to, std::uint64_t number, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

void add_text(std::vector<std::uint8_t> &to, const std::string &text) {
    const std::size_t length = std::min<std::size_t>(text.size(), 0x7FFF);
    add_number(to, length, 2);
    to.insert(to.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
}

std::string text_in(Reader &reader) {
    const auto bytes = reader.take(reader.u16());
    return {bytes.begin(), bytes.end()};
}

}  // namespace

std::uint32_t check_value(std::span<const std::uint8_t> bytes, std::uint32_t before) {
    std::uint32_t value = ~before;
    for (const std::uint8_t byte : bytes) value = value >> 8 ^ kCheckTable[(value ^ byte) & 0xFF];
    return ~value;
}

// ---- Writing ----

std::unique_ptr<RecordWriter> RecordWriter::create(const char *name, const RecordHeader &header) {
    std::vector<std::uint8_t> contents;
    contents.push_back(header.marks_per_second);
    contents.push_back(static_cast<std::uint8_t>((header.pictures ? kPictures : 0) |
                                                 (header.sound ? kSound : 0) |
                                                 (header.simulated ? kSimulated : 0)));
    add_number(contents, header.start, 8);
    add_text(contents, header.host);
    add_text(contents, header.disc);
    std::vector<std::uint8_t> bytes(std::begin(kMagic), std::end(kMagic));
    bytes.push_back(kVersion);
    add_number(bytes, contents.size(), 2);
    bytes.insert(bytes.end(), contents.begin(), contents.end());
    add_number(bytes, check_value(bytes), 4);

    std::unique_ptr<RecordWriter> writer(new RecordWriter(open_file(name, "wb")));
    if (!writer->file_ || std::fwrite(bytes.data(), bytes.size(), 1, writer->file_.get()) != 1 ||
        std::fflush(writer->file_.get()) != 0)
        return nullptr;
    return writer;
}

bool RecordWriter::write(char type, std::span<const std::uint8_t> bytes) {
    std::array<std::uint8_t, kBlockHeader> before{};
    before[0] = static_cast<std::uint8_t>(type);
    put_u32(&before[1], static_cast<std::uint32_t>(bytes.size()));
    put_u32(&before[5], check_value(bytes, check_value(std::span(before).first(5))));
    return std::fwrite(before.data(), before.size(), 1, file_.get()) == 1 &&
           (bytes.empty() || std::fwrite(bytes.data(), bytes.size(), 1, file_.get()) == 1);
}

bool RecordWriter::end_block(const Picture *picture, std::vector<std::int16_t> *sound) {
    add({});
    bool written = write('A', coder_.finish());
    if (picture != nullptr) {
        pictures_.code(coder_, last_, *picture);
        written &= write('P', coder_.finish());
    }
    if (sound != nullptr) {
        sounds_.code(coder_, *sound);
        written &= write('S', coder_.finish());
    }
    return std::fflush(file_.get()) == 0 && written;
}

// ---- Reading ----

std::unique_ptr<RecordReader> RecordReader::open(std::vector<std::uint8_t> file, std::string &reason) {
    std::unique_ptr<RecordReader> reader(new RecordReader(std::move(file)));
    reason = reader->read_header();
    for (std::size_t at = reader->at_; reason.empty() && at < reader->file_.size();) {
        const auto block = reader->block_at(at);
        if (!block) break;
        const std::span<const std::uint8_t> header(reader->file_.data() + at, kBlockHeader);
        if (check_value(block->bytes, check_value(header.first(5))) != get_u32(&header[5]))
            reason = "it is damaged at byte " + std::to_string(at);
        at = block->end;
    }
    return reason.empty() ? std::move(reader) : nullptr;
}

// What is wrong with it; nothing when it is read.
std::string RecordReader::read_header() {
    if (file_.size() < kBeforeHeader || std::memcmp(file_.data(), kMagic, sizeof kMagic) != 0)
        return "it is no record";
    const std::uint8_t version = file_[sizeof kMagic];
    if (version != kVersion)
        return "it is of version " + std::to_string(version) + ", and this reads version " +
               std::to_string(kVersion);
    Reader reader(file_);
    reader.seek(kBeforeHeader - 2);
    const std::size_t size = reader.u16();
    reader.skip(size);
    const std::uint32_t stated = reader.u32();
    if (!reader.ok() || check_value(std::span(file_).first(kBeforeHeader + size)) != stated)
        return "its header is damaged";
    at_ = reader.position();
    Reader contents(file_.data() + kBeforeHeader, size);
    header_.marks_per_second = contents.u8();
    const std::uint8_t flags = contents.u8();
    header_.pictures = (flags & kPictures) != 0;
    header_.sound = (flags & kSound) != 0;
    header_.simulated = (flags & kSimulated) != 0;
    header_.start = contents.u32();
    header_.start |= std::uint64_t{contents.u32()} << 32;
    header_.host = text_in(contents);
    header_.disc = text_in(contents);
    if (!contents.ok() || header_.marks_per_second == 0) return "its header is damaged";
    return {};
}

std::optional<RecordReader::Block> RecordReader::block_at(std::size_t at) const {
    Reader reader(file_);
    reader.seek(at);
    const char type = static_cast<char>(reader.u8());
    const std::size_t size = reader.u32();
    reader.skip(4);
    const auto bytes = reader.take(size);
    if (!reader.ok()) return std::nullopt;
    return Block{type, bytes, reader.position()};
}

// A block of answers with the picture and the sound behind it.
bool RecordReader::next_block() {
    auto block = block_at(at_);
    if (!block) return false;
    damaged_ = block->type != 'A';
    if (damaged_) return false;
    coder_ = Decoder(block->bytes);
    for (at_ = block->end; (block = block_at(at_)) && block->type != 'A'; at_ = block->end) {
        if (block->type == 'P') new_pictures_.push_back(block->bytes);
        if (block->type == 'S') new_sounds_.push_back(block->bytes);
    }
    return true;
}

bool RecordReader::next(Answer &answer) {
    while (!damaged_) {
        if (!in_block_ && !next_block()) return false;
        in_block_ = true;
        answers_.code(coder_, answer);
        const auto passed = static_cast<std::uint64_t>(header_.passed(answer));
        if (!coder_.ok() || (answer.kind != Kind::pause && passed > kLongest - time_)) break;
        if (answer.kind == Kind::pause) {
            in_block_ = false;
            continue;
        }
        time_ += passed;
        return true;
    }
    damaged_ = true;
    return false;
}

const Picture *RecordReader::picture() {
    for (const auto bytes : std::exchange(new_pictures_, {})) {
        Decoder coder(bytes);
        pictures_.code(coder, picture_, {});
        damaged_ |= !coder.ok();
        has_picture_ = true;
    }
    return has_picture_ ? &picture_ : nullptr;
}

std::vector<std::int16_t> RecordReader::sound() {
    std::vector<std::int16_t> all, some;
    for (const auto bytes : std::exchange(new_sounds_, {})) {
        Decoder coder(bytes);
        sounds_.code(coder, some);
        damaged_ |= !coder.ok();
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

}  // namespace ink::host
