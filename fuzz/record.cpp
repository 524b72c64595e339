// Records: what is read of them when their check values hold. The fuzzer does not find those values, so it gives
// the blocks of a file, and they are put right here.
#include <cstdint>
#include <string>
#include <vector>

#include "core/reader.h"
#include "host/replay/record_reader.h"

namespace {

using namespace ink::host;

// The same file with the check values that it should have.
std::vector<std::uint8_t> put_right(std::vector<std::uint8_t> file) {
    const auto check = [&file](std::size_t at, std::size_t size) {
        return check_value(std::span(file).subspan(at, size));
    };
    std::size_t at = kBeforeRecordHeader;
    if (file.size() < at) return file;
    at += ink::get_u16(&file[at - 2]);
    if (file.size() < at + 4) return file;
    ink::put_u32(&file[at], check(0, at));
    for (at += 4; file.size() - at >= kBlockHeader;) {
        const std::uint32_t size = ink::get_u32(&file[at + 1]);
        if (size > file.size() - at - kBlockHeader) break;
        const std::span<const std::uint8_t> block(&file[at], kBlockHeader + size);
        ink::put_u32(&file[at + 5], check_value(block.subspan(kBlockHeader), check_value(block.first(5))));
        at += kBlockHeader + size;
    }
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::string reason;
    const auto reader = RecordReader::open(put_right({data, data + size}), reason);
    if (reader == nullptr) return 0;
    constexpr int kMostAnswers = 100'000;
    Answer answer;
    for (int i = 0; i < kMostAnswers && reader->next(answer); ++i) {
        if (answer.kind != Kind::mark) continue;
        if (const Picture *picture = reader->picture()) check_value_of(*picture);
        reader->sound();
    }
    return 0;
}
