#include "host/replay/record_writer.h"

#include <algorithm>
#include <array>

#include "core/reader.h"

namespace ink::host {
namespace {

void add_number(std::vector<std::uint8_t> &to, std::uint64_t number, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

void add_text(std::vector<std::uint8_t> &to, const std::string &text) {
    const std::size_t length = std::min<std::size_t>(text.size(), 0x7FFF);
    add_number(to, length, 2);
    to.insert(to.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
}

}  // namespace

std::unique_ptr<RecordWriter> RecordWriter::create(const char *name, const RecordHeader &header) {
    std::vector<std::uint8_t> contents;
    contents.push_back(header.marks_per_second);
    contents.push_back(static_cast<std::uint8_t>((header.pictures ? kRecordPictures : 0) |
                                                 (header.sound ? kRecordSound : 0) |
                                                 (header.simulated ? kRecordSimulated : 0)));
    add_number(contents, header.start, 8);
    add_text(contents, header.host);
    add_text(contents, header.disc);
    std::vector<std::uint8_t> bytes(std::begin(kRecordMagic), std::end(kRecordMagic));
    bytes.push_back(kRecordVersion);
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

}  // namespace ink::host
