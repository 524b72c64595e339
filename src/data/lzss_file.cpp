// LZSS from file to file: tokens of 9 and 17 bits, closed by an end code.
#include <array>
#include <cstdio>
#include <span>

#include "core/log.h"
#include "data/lzss_coder.h"
#include "data/lzss_output.h"
#include "host/file_name.h"
#include "inkstone/bitio.h"
#include "inkstone/lzss.h"

namespace ink::data {
namespace {

constexpr int kLiteralBits = 8, kPositionBits = 12, kLengthBits = 4;
constexpr int kLongestToken = 1 + kPositionBits + kLengthBits;
constexpr unsigned kEndCode = 0;  // the position that no match has

class FileSource {
  public:
    explicit FileSource(std::FILE *file) : file_(file) {}
    int next() {
        if (at_ == end_) {
            at_ = 0;
            end_ = std::fread(block_.data(), 1, block_.size(), file_);
            if (end_ == 0) return -1;
        }
        return block_[at_++];
    }

  private:
    std::FILE *file_;
    std::array<std::uint8_t, 8192> block_;
    std::size_t at_ = 0, end_ = 0;
};

class BitWriter {
  public:
    explicit BitWriter(BIT_FILE_STRUCT *file) : file_(file) {}

    void literal(std::uint8_t byte) { BITIO_output_bits(file_, 1u << kLiteralBits | byte, 1 + kLiteralBits); }
    void match(Match match) {
        BITIO_output_bits(file_, match.position << kLengthBits | (match.length - kShortestMatch),
                          kLongestToken);
    }
    void end() { BITIO_output_bits(file_, kEndCode, 1 + kPositionBits); }

  private:
    BIT_FILE_STRUCT *file_;
};

// The bits of a file, many at once, read by blocks into memory of the caller's: so nothing but the reading
// itself refers to the fetcher, and the compiler keeps it in registers.
class BitFetcher {
  public:
    BitFetcher(std::FILE *file, std::span<std::uint8_t> block) : file_(file), block_(block) {}

    // Fetches as many bits as there is room for, or as the file has.
    void fill() {
        if (end_ - at_ >= 8) {
            bits_ |= load_word(&block_[at_]) >> count_;
            const int bytes = (63 - count_) / 8;
            at_ += static_cast<std::size_t>(bytes);
            count_ += 8 * bytes;
            return;
        }
        for (; count_ <= 56; count_ += 8) {
            if (at_ == end_) {
                at_ = 0;
                end_ = std::fread(block_.data(), 1, block_.size(), file_);
                if (end_ == 0) return;
            }
            bits_ |= std::uint64_t{block_[at_++]} << (56 - count_);
        }
    }
    int count() const { return count_; }

    // The next bits, which must be there.
    unsigned take(int count) {
        const auto bits = static_cast<unsigned>(bits_ >> (64 - count));
        bits_ <<= count;
        count_ -= count;
        return bits;
    }

  private:
    std::FILE *file_;
    std::span<std::uint8_t> block_;
    std::size_t at_ = 0, end_ = 0;
    std::uint64_t bits_ = 0;  // the next bit is the highest
    int count_ = 0;
};

enum class Token { kDone, kEnd, kNoFlag, kNoBits };

Token expand_token(BitFetcher &bits, LzssOutput &output) {
    if (bits.count() < kLongestToken) bits.fill();
    if (bits.count() < 1) return Token::kNoFlag;
    if (bits.take(1) == 1) {
        if (bits.count() < kLiteralBits) return Token::kNoBits;
        output.literal(static_cast<std::uint8_t>(bits.take(kLiteralBits)));
        return Token::kDone;
    }
    if (bits.count() < kPositionBits) return Token::kNoBits;
    const unsigned position = bits.take(kPositionBits);
    if (position == kEndCode) return Token::kEnd;
    if (bits.count() < kLengthBits) return Token::kNoBits;
    output.copy_with_slack({bits.take(kLengthBits) + kShortestMatch, position});
    return Token::kDone;
}

void expand(std::FILE *from, std::FILE *to) {
    std::array<std::uint8_t, 16384> in;
    std::array<std::uint8_t, 8 * kWindowSize> out;
    BitFetcher bits(from, in);
    LzssOutput output(out, lzss.window);
    std::size_t kept = 0;  // bytes at the beginning of the output that are in the file already
    Token token = Token::kDone;
    while (token == Token::kDone) {
        while (token == Token::kDone && output.room() >= kLongestMatch + LzssOutput::kSlack)
            token = expand_token(bits, output);
        const auto written = output.written().subspan(kept);
        std::fwrite(written.data(), 1, written.size(), to);
        output.slide();
        kept = output.written().size();
    }
    output.close();
    if (token == Token::kNoFlag) log_error("BITIO_input_bit error");
    if (token == Token::kNoBits) log_error("BITIO_input_bits error");
}

}  // namespace
}  // namespace ink::data

using namespace ink;
using namespace ink::data;

// A file is not packed into itself: it would be empty before it is read.
int32_t LZSS_compress_file(const char *input_name, const char *output_name) {
    const host::File input = host::open_file(input_name, "rb");
    const bool can_write = input && !host::same_file(input_name, output_name);
    BIT_FILE_STRUCT *const output = can_write ? BITIO_open_output_bit_file(output_name) : nullptr;
    if (output == nullptr) {
        log_error_format("ERROR : file %s open error(LZSS_compress_file)",
                         text_of(input ? output_name : input_name));
        return -1;
    }
    FileSource bytes(input.get());
    BitWriter tokens(output);
    compress(bytes, tokens);
    tokens.end();
    BITIO_close_output_bit_file(output);
    return std::ferror(input.get()) == 0 ? 0 : -1;
}

int32_t LZSS_expand_file(const char *input_name, const char *output_name) {
    const bool can_write = !host::same_file(input_name, output_name);
    const host::File output = can_write ? host::open_file(output_name, "wb") : nullptr;
    const host::File input = output ? host::open_file(input_name, "rb") : nullptr;
    if (!input) {
        log_error_format("ERROR : file %s open error(LZSS_expand_file)",
                         text_of(output ? input_name : output_name));
        return -1;
    }
    expand(input.get(), output.get());
    return 0;
}
