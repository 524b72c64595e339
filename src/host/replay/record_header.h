// Records as files: a header, then blocks, each written when its mark is reached, so that of a program that
// crashes all but its last moments is there. docs/replay.md has every byte of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/replay/answer.h"

namespace ink::host {

struct RecordHeader {
    std::uint8_t marks_per_second = 1;
    bool pictures = true, sound = false;  // what is kept at the marks
    // Whether the clock is one that moves by a microsecond with each question: times are in microseconds
    // then, and otherwise in milliseconds.
    bool simulated = false;
    std::uint64_t start = 0;  // the machine's clock when the record began, in microseconds
    std::string host;         // the machine's name
    std::string disc;         // what was in its drive

    std::uint64_t unit() const { return simulated ? 1 : 1000; }
    // How much later than the one before it an answer came, in microseconds.
    std::uint64_t passed(const Answer &answer) const {
        return static_cast<std::uint64_t>(answer.step) * unit() + (simulated ? answer.idle : 0);
    }
};

inline constexpr std::uint8_t kRecordMagic[] = {'I', 'N', 'K', 'R', 'E', 'C', 0x1A};
inline constexpr std::uint8_t kRecordVersion = 1;
// What is kept, as flags.
inline constexpr std::uint8_t kRecordPictures = 1, kRecordSound = 2, kRecordSimulated = 4;
// The mark, the version and the size of the header that follows; a block's type, its size and its check value.
inline constexpr std::size_t kBeforeRecordHeader = sizeof kRecordMagic + 1 + 2, kBlockHeader = 1 + 4 + 4;

}  // namespace ink::host
