// LZSS in memory beside the plain coder and memcpy, from file to file beside fread and fwrite; bit files
// beside a byte at a time.
#include <benchmark/benchmark.h>

#include <cstring>
#include <iterator>
#include <random>
#include <string>

#include "bench/peers.h"
#include "bench/scratch_directory.h"
#include "inkstone/bitio.h"
#include "inkstone/lzss.h"
#include "support/files.h"
#include "support/plain_lzss.h"

namespace {

using test::Bytes;

constexpr std::size_t kSize = 1 << 18;

// Words drawn from a vocabulary, the frequent ones far more often.
Bytes text() {
    std::mt19937 random(1);
    std::vector<std::string> words(2000);
    for (std::string &word : words)
        for (auto n = 1 + random() % 9; n > 0; --n)
            word += static_cast<char>('a' + random() % 26 * (random() % 26) / 26);
    Bytes data;
    while (data.size() < kSize) {
        const std::string &word = words[random() % (1 + random() % words.size())];
        data.insert(data.end(), word.begin(), word.end());
        data.push_back(random() % 12 == 0 ? '\n' : ' ');
    }
    data.resize(kSize);
    return data;
}

// Rows of a shaded picture with some noise.
Bytes picture() {
    std::mt19937 random(2);
    Bytes data(kSize);
    for (std::size_t i = 0; i < kSize; ++i) {
        const std::size_t x = i % 512, y = i / 512;
        data[i] = static_cast<std::uint8_t>((x / 9 + y / 5) % 48 + 16 + (random() % 6 == 0));
    }
    return data;
}

Bytes noise() {
    std::mt19937 random(3);
    Bytes data(kSize);
    for (std::uint8_t &byte : data) byte = static_cast<std::uint8_t>(random());
    return data;
}

// A table of ascending 32-bit numbers: the strings come in order, the worst there is for a plain tree.
Bytes table() {
    Bytes data(kSize);
    for (std::size_t i = 0; i < kSize; ++i) data[i] = static_cast<std::uint8_t>(i / 4 >> 8 * (3 - i % 4));
    return data;
}

const struct {
    const char *name;
    Bytes data;
} kInputs[] = {{"text", text()},
               {"picture", picture()},
               {"noise", noise()},
               {"table", table()},
               {"equal", Bytes(kSize, 65)}};

constexpr int kInputCount = std::size(kInputs) - 1;

const Bytes &input(benchmark::State &state) {
    const auto &chosen = kInputs[state.range(0)];
    state.SetLabel(chosen.name);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.max_iterations * kSize));
    return chosen.data;
}

Bytes compressed(const Bytes &data) {
    Bytes code(kSize + kSize / 8);
    const std::uint32_t length = kSize;
    std::uint32_t code_length = 0;
    LZSS_compress_data(data.data(), code.data(), &length, &code_length);
    code.resize(code_length);
    return code;
}

void lzss_compress_data(benchmark::State &state) {
    const Bytes &data = input(state);
    Bytes code(kSize + kSize / 8);
    const std::uint32_t length = kSize;
    std::uint32_t code_length = 0;
    for (auto _ : state) LZSS_compress_data(data.data(), code.data(), &length, &code_length);
    state.counters["part"] = code_length / double{kSize};
}
BENCHMARK(lzss_compress_data)->Name("Data/LZSS_compress_data 256 KiB/inkstone")->DenseRange(0, kInputCount);

void lzss_compress_plainly(benchmark::State &state) {
    const Bytes &data = input(state);
    test::PlainLzss plain;
    for (auto _ : state) benchmark::DoNotOptimize(plain.memory_form(data));
}
BENCHMARK(lzss_compress_plainly)
    ->Name("Data/LZSS_compress_data 256 KiB/plain coder")
    ->DenseRange(0, kInputCount);

#if defined(INKSTONE_BENCH_ALLEGRO)
// Into memory, by the byte, as its files take them.
struct MemoryFile {
    Bytes bytes;
    static int put(int byte, void *data) {
        static_cast<MemoryFile *>(data)->bytes.push_back(static_cast<std::uint8_t>(byte));
        return byte;
    }
    static int close(void *) { return 0; }
    static int none(void *) { return 0; }
};

void lzss_compress_allegro(benchmark::State &state) {
    Bytes data = input(state);
    const peers::AllegroBitmap started(1, 1);
    PACKFILE_VTABLE table{};
    table.pf_putc = MemoryFile::put;
    table.pf_fclose = MemoryFile::close;
    table.pf_ferror = MemoryFile::none;
    table.pf_feof = MemoryFile::none;
    MemoryFile memory;
    memory.bytes.reserve(2 * kSize);
    for (auto _ : state) {
        memory.bytes.clear();
        PACKFILE *file = pack_fopen_vtable(&table, &memory);
        LZSS_PACK_DATA *pack = create_lzss_pack_data();
        lzss_write(file, pack, kSize, data.data(), 1);
        free_lzss_pack_data(pack);
        pack_fclose(file);
    }
    state.counters["part"] = static_cast<double>(memory.bytes.size()) / double{kSize};
}
BENCHMARK(lzss_compress_allegro)
    ->Name("Data/LZSS_compress_data 256 KiB/Allegro 4")
    ->DenseRange(0, kInputCount);
#endif

void lzss_expand_data(benchmark::State &state) {
    const Bytes code = compressed(input(state));
    Bytes out(kSize);
    const auto code_length = static_cast<std::uint32_t>(code.size());
    std::uint32_t length = kSize;
    for (auto _ : state) LZSS_expand_data(code.data(), out.data(), &code_length, &length);
}
BENCHMARK(lzss_expand_data)->Name("Data/LZSS_expand_data 256 KiB/inkstone")->DenseRange(0, kInputCount);

void lzss_expand_plainly(benchmark::State &state) {
    const Bytes code = compressed(input(state));
    test::PlainLzss plain;
    for (auto _ : state) benchmark::DoNotOptimize(plain.expand_memory_form(code, kSize));
}
BENCHMARK(lzss_expand_plainly)->Name("Data/LZSS_expand_data 256 KiB/plain coder")->DenseRange(0, kInputCount);

void lzss_memcpy(benchmark::State &state) {
    const Bytes &data = input(state);
    Bytes out(kSize);
    for (auto _ : state) {
        std::memcpy(out.data(), data.data(), kSize);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(lzss_memcpy)->Name("Data/LZSS_expand_data 256 KiB/limit memcpy")->DenseRange(0, kInputCount);

void copy_file(const char *from, const char *to, Bytes &block) {
    std::FILE *in = std::fopen(from, "rb"), *out = std::fopen(to, "wb");
    while (const std::size_t part = std::fread(block.data(), 1, block.size(), in))
        std::fwrite(block.data(), 1, part, out);
    std::fclose(in);
    std::fclose(out);
}

void lzss_compress_file(benchmark::State &state) {
    const bench::ScratchDirectory place;
    test::write_file("plain", input(state));
    for (auto _ : state) LZSS_compress_file("plain", "packed");
}
BENCHMARK(lzss_compress_file)->Name("Data/LZSS_compress_file 256 KiB/inkstone")->DenseRange(0, kInputCount);

void lzss_expand_file(benchmark::State &state) {
    const bench::ScratchDirectory place;
    test::write_file("plain", input(state));
    LZSS_compress_file("plain", "packed");
    for (auto _ : state) LZSS_expand_file("packed", "plain");
}
BENCHMARK(lzss_expand_file)->Name("Data/LZSS_expand_file 256 KiB/inkstone")->DenseRange(0, kInputCount);

void lzss_fread_fwrite(benchmark::State &state) {
    const bench::ScratchDirectory place;
    Bytes block(kSize);
    test::write_file("plain", input(state));
    for (auto _ : state) copy_file("plain", "copy", block);
}
BENCHMARK(lzss_fread_fwrite)
    ->Name("Data/LZSS_expand_file 256 KiB/limit fread, fwrite")
    ->DenseRange(0, kInputCount);

// Bit files move the same bytes as codes of so many bits, beside a byte at a time without them.
void bits_out(benchmark::State &state) {
    const bench::ScratchDirectory place;
    const auto count = static_cast<std::int32_t>(state.range(0));
    for (auto _ : state) {
        BIT_FILE_STRUCT *file = BITIO_open_output_bit_file("bits");
        for (std::size_t bits = 0; bits < 8 * kSize; bits += static_cast<std::size_t>(count))
            BITIO_output_bits(file, 0x5A5A5A5A, count);
        BITIO_close_output_bit_file(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSize));
}
BENCHMARK(bits_out)
    ->Name("Data/BITIO_output_bits, 256 KiB as codes of so many bits/inkstone")
    ->Arg(1)
    ->Arg(9)
    ->Arg(17)
    ->Arg(32);

void bits_fputc(benchmark::State &state) {
    const bench::ScratchDirectory place;
    for (auto _ : state) {
        std::FILE *file = std::fopen("bits", "wb");
        for (std::size_t i = 0; i < kSize; ++i) std::fputc(0x5A, file);
        std::fclose(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSize));
}
BENCHMARK(bits_fputc)->Name("Data/BITIO_output_bits, 256 KiB as codes of so many bits/plain fputc");

void bits_in(benchmark::State &state) {
    const bench::ScratchDirectory place;
    const auto count = static_cast<std::int32_t>(state.range(0));
    test::write_file("bits", Bytes(kSize + 4));
    for (auto _ : state) {
        BIT_FILE_STRUCT *file = BITIO_open_input_bit_file("bits");
        for (std::size_t bits = 0; bits < 8 * kSize; bits += static_cast<std::size_t>(count))
            benchmark::DoNotOptimize(BITIO_input_bits(file, count));
        BITIO_close_input_bit_file(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSize));
}
BENCHMARK(bits_in)
    ->Name("Data/BITIO_input_bits, 256 KiB as codes of so many bits/inkstone")
    ->Arg(1)
    ->Arg(9)
    ->Arg(17)
    ->Arg(32);

void bits_fgetc(benchmark::State &state) {
    const bench::ScratchDirectory place;
    test::write_file("bits", Bytes(kSize));
    for (auto _ : state) {
        std::FILE *file = std::fopen("bits", "rb");
        for (std::size_t i = 0; i < kSize; ++i) benchmark::DoNotOptimize(std::fgetc(file));
        std::fclose(file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kSize));
}
BENCHMARK(bits_fgetc)->Name("Data/BITIO_input_bits, 256 KiB as codes of so many bits/plain fgetc");

}  // namespace
