// Writing records.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "host/file_name.h"
#include "host/replay/picture.h"
#include "host/replay/record_header.h"
#include "host/replay/sound_model.h"

namespace ink::host {

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

}  // namespace ink::host
