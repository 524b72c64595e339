// RIFF files: chunks of a four-letter name, a size and contents, each beginning on an even byte.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>

namespace ink::wave {

class RiffReader {
  public:
    struct Chunk {
        std::uint64_t begin, end;  // of the contents: begin lies in the file, end perhaps not
        std::uint64_t size() const { return end - begin; }
    };

    // The file stays the caller's.
    explicit RiffReader(std::FILE *file);

    // The first chunk of that name at or after from that begins before end. With a form, only one whose
    // contents begin with those four letters, which its begin is then after.
    std::optional<Chunk> find(std::uint64_t from, std::uint64_t end, std::string_view name,
                              std::string_view form = {});
    // The chunk that holds everything in the file.
    Chunk whole() const { return {0, size_}; }
    // Where the chunk after this one begins; empty when the file ends before this one does.
    std::optional<std::uint64_t> after(const Chunk &chunk) const;
    // Reads size bytes of the file; false when it has fewer.
    bool read(std::uint64_t from, void *bytes, std::uint64_t size);
    // Whether that many bytes are there to be read.
    bool holds(std::uint64_t from, std::uint64_t size) const { return from <= size_ && size <= size_ - from; }

  private:
    std::FILE *file_;
    std::uint64_t size_ = 0;
};

}  // namespace ink::wave
