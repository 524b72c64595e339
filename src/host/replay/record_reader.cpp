#include "host/replay/record_reader.h"

#include <cstring>
#include <utility>

#include "core/reader.h"

namespace ink::host {
namespace {

constexpr std::uint64_t kLongest = std::uint64_t{1} << 50;  // microseconds: some 35 years

std::string text_in(Reader &reader) {
    const auto bytes = reader.take(reader.u16());
    return {bytes.begin(), bytes.end()};
}

}  // namespace

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
    if (file_.size() < kBeforeRecordHeader ||
        std::memcmp(file_.data(), kRecordMagic, sizeof kRecordMagic) != 0)
        return "it is no record";
    const std::uint8_t version = file_[sizeof kRecordMagic];
    if (version != kRecordVersion)
        return "it is of version " + std::to_string(version) + ", and this reads version " +
               std::to_string(kRecordVersion);
    Reader reader(file_);
    reader.seek(kBeforeRecordHeader - 2);
    const std::size_t size = reader.u16();
    reader.skip(size);
    const std::uint32_t stated = reader.u32();
    if (!reader.ok() || check_value(std::span(file_).first(kBeforeRecordHeader + size)) != stated)
        return "its header is damaged";
    at_ = reader.position();
    Reader contents(file_.data() + kBeforeRecordHeader, size);
    header_.marks_per_second = contents.u8();
    const std::uint8_t flags = contents.u8();
    header_.pictures = (flags & kRecordPictures) != 0;
    header_.sound = (flags & kRecordSound) != 0;
    header_.simulated = (flags & kRecordSimulated) != 0;
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
        const std::uint64_t passed = header_.passed(answer);
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
