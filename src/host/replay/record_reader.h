// Reading records, which anybody can have written.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/replay/picture.h"
#include "host/replay/record_header.h"
#include "host/replay/sound_model.h"

namespace ink::host {

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
    // Whether a picture that was not asked for yet was kept at the end of that block.
    bool has_new_picture() const { return !new_pictures_.empty(); }
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
