// LZSS beside a plain byte-wise search tree and beside copying.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>

#include "inkstone/lzss.h"
#include "support/plain_lzss.h"

namespace {

using test::Bytes;

constexpr std::size_t kSize = 1 << 18;

// Words drawn from a vocabulary, the frequent ones far more often.
Bytes text() {
    std::mt19937 random(1);
    std::vector<std::string> words(2000);
    for (std::string &word : words)
        for (unsigned n = 1 + random() % 9; n > 0; --n)
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

const Bytes &input(benchmark::State &state) {
    const auto &chosen = kInputs[state.range(0)];
    state.SetLabel(chosen.name);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.max_iterations * kSize));
    return chosen.data;
}

void compress_in_memory(benchmark::State &state) {
    const Bytes &data = input(state);
    Bytes code(kSize + kSize / 8);
    const std::uint32_t length = kSize;
    std::uint32_t compressed = 0;
    for (auto _ : state) LZSS_compress_data(data.data(), code.data(), &length, &compressed);
    state.counters["part"] = compressed / double{kSize};
}
BENCHMARK(compress_in_memory)->DenseRange(0, 4);

void compress_plainly(benchmark::State &state) {
    const Bytes &data = input(state);
    test::PlainLzss plain;
    for (auto _ : state) benchmark::DoNotOptimize(plain.memory_form(data));
}
BENCHMARK(compress_plainly)->DenseRange(0, 4);

void expand_in_memory(benchmark::State &state) {
    const Bytes &data = input(state);
    Bytes code(kSize + kSize / 8), out(kSize);
    std::uint32_t length = kSize, compressed = 0;
    LZSS_compress_data(data.data(), code.data(), &length, &compressed);
    for (auto _ : state) LZSS_expand_data(code.data(), out.data(), &compressed, &length);
}
BENCHMARK(expand_in_memory)->DenseRange(0, 4);

void copy_memory(benchmark::State &state) {
    const Bytes &data = input(state);
    Bytes out(kSize);
    for (auto _ : state) {
        std::memcpy(out.data(), data.data(), kSize);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copy_memory)->Arg(0);

}  // namespace
