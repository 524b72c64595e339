// Records as files: a header, then blocks, each written when its mark is reached, so that of a program that
// crashes all but its last moments is there. docs/replay.md has every byte of it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/file_name.h"
#include "host/replay/answer.h"
#include "host/replay/picture.h"
#include "host/replay/sound_model.h"

namespace ink::host {

// The usual check value of 32 bits (the polynomial 0xEDB88320), to be gone on with from that of what came
// before.
std::uint32_t check_value(std::span<const std::uint8_t> bytes, std::uint32_t before = 0);

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
    std::int64_t passed(const Answer &answer) const {
        return static_cast<std::int64_t>(static_cast<std::uint64_t>(answer.step) * unit() +
                                         (simulated ? answer.idle : 0));
    }
};

class RecordWriter {
  public:
    // Null when the file cannot be written. Throws std::bad_alloc, as the others do.
    static std::unique_ptr<RecordWriter> create(const char *name, const RecordHeader &header);

    void add(Answer answer) { answers_.code(coder_, answer); }
    // Writes what was added, with what was seen and heard since the last time where they are given. False
    // when it cannot be written.
    bool end_block(const Picture *picture, std::vector<std::int16_t> *sound);

  private:
    explicit RecordWriter(File file) : file_(std::move(file)) {}
    bool write(char type, std::span<const std::uint8_t> bytes);

    File file_;
    Encoder coder_;
    AnswerModel answers_;
    PictureModel pictures_;
    Picture last_;
    SoundModel sounds_;
};

class RecordReader {
  public:
    // Takes the file when it is a record of this version whose blocks are whole, but for the last ones, which
    // may be missing. Otherwise the reason is given. Throws std::bad_alloc.
    static std::unique_ptr<RecordReader> open(std::vector<std::uint8_t> file, std::string &reason);

    const RecordHeader &header() const { return header_; }
    // False at the end of what is there.
    bool next(Answer &answer);
    // When the last answer came, in microseconds since the record began.
    std::uint64_t time() const { return time_; }
    // Whether next has stopped at something that nobody writes.
    bool damaged() const { return damaged_; }
    // Where in the file the block of the last answer ends.
    std::size_t block_end() const { return at_; }
    // The picture that was kept at the end of that block, or else the one before it; null when none was.
    const Picture *picture();
    // What was heard in the blocks read since the last call.
    std::vector<std::int16_t> sound();

  private:
    struct Block {
        char type;
        std::span<const std::uint8_t> bytes;
        std::size_t end;
    };

    explicit RecordReader(std::vector<std::uint8_t> file) : file_(std::move(file)) {}
    std::string read_header();
    std::optional<Block> block_at(std::size_t at) const;
    bool next_block();

    std::vector<std::uint8_t> file_;
    RecordHeader header_;
    std::size_t at_ = 0;
    std::uint64_t time_ = 0;
    bool damaged_ = false, in_block_ = false;
    Decoder coder_;
    AnswerModel answers_;
    // Of the blocks that were read, but not yet decoded: most readers never look at them.
    std::vector<std::span<const std::uint8_t>> new_pictures_, new_sounds_;
    PictureModel pictures_;
    Picture picture_;
    bool has_picture_ = false;
    SoundModel sounds_;
};

}  // namespace ink::host
