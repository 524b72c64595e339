// Records: as they are, and what is read of them when their check values hold. The fuzzer does not find those values, so
// they are put right here.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/reader.h"
#include "host/replay/record_reader.h"
#include "info/report.h"

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

// Answers that were read are read again when they are written anew.
void write_again(std::vector<Answer> &answers) {
    Encoder encoder;
    const auto writing = std::make_unique<AnswerModel>(), reading = std::make_unique<AnswerModel>();
    for (Answer &answer : answers) writing->code(encoder, answer);
    const auto written = encoder.finish();
    Decoder decoder(written);
    for (const Answer &answer : answers) {
        Answer again;
        reading->code(decoder, again);
        const KindFacts &facts = facts_of(answer.kind);
        if (!decoder.ok() || again.kind != answer.kind || again.idle != answer.idle ||
            again.step != answer.step ||
            !std::equal(again.values.begin(), again.values.begin() + facts.values, answer.values.begin()) ||
            (facts.text && again.text != answer.text))
            std::abort();
    }
}

void read(std::vector<std::uint8_t> file) {
    std::string reason;
    const auto report = ink::tool::describe_record(file);
    const auto reader = RecordReader::open(std::move(file), reason);
    // What is refused is told of, and nothing else is.
    if ((reader == nullptr) == reason.empty()) std::abort();
    if (report && report->facts.empty() != (reader == nullptr)) std::abort();
    if (report && reader == nullptr && report->faults != std::vector{reason}) std::abort();
    if (reader == nullptr) return;
    constexpr int kMostAnswers = 100'000;
    Answer answer;
    std::vector<Answer> first;
    for (int i = 0; i < kMostAnswers && reader->next(answer); ++i) {
        if (i < 100) first.push_back(answer);
        if (answer.kind != Kind::mark) continue;
        if (const Picture *picture = reader->picture()) check_value_of(*picture);
        reader->sound();
    }
    if (reader->damaged() && report && report->faults.empty()) std::abort();
    if (!first.empty()) write_again(first);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    read({data, data + size});
    read(put_right({data, data + size}));
    return 0;
}
