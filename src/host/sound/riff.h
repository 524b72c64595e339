// RIFF files: chunks of a four-letter name, a size and contents, each beginning on an even byte.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "host/input_file.h"

namespace ink::host {

class RiffReader {
  public:
    struct Chunk {
        std::uint64_t begin, end;  // of the contents: begin lies in the file, end perhaps not
        // The size is 0, which a program writes first and corrects when it has finished: for a chunk with a
        // form, whose contents then reach to the end of the file.
        bool unfinished = false;
        std::uint64_t size() const { return end - begin; }
    };

    // The file stays the caller's.
    explicit RiffReader(InputFile &file) : file_(file) {}

    // The first chunk of that name at or after from that begins before end. With a form, only one whose
    // contents begin with those four letters, which its begin is then after.
    std::optional<Chunk> find(std::uint64_t from, std::uint64_t end, std::string_view name,
                              std::string_view form = {});
    // Where the chunk after this one begins; empty when the file ends before this one does.
    std::optional<std::uint64_t> after(const Chunk &chunk) const;
    // Reads size bytes of the file; false when it has fewer.
    bool read(std::uint64_t from, std::uint8_t *bytes, std::size_t size);

  private:
    InputFile &file_;
};

}  // namespace ink::host
