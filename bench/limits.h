// Bare loops that move the bytes that a drawing operation moves, and nothing else, compiled for the instruction
// set that the kernels use: no drawing can be faster on that machine than the loop that belongs to it. Plain
// copies and fills have the system's memcpy and memset instead, which choose the best of the processor always.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace bench {

// One row of so many pixels: the target with itself, the target with a source, the target and keys with a source.
using Loop = void (*)(std::uint8_t *to, const std::uint8_t *from, std::uint8_t *keys, int columns);

#define LOOPS(SET, ...)                                                                                   \
    __VA_ARGS__ inline void update_##SET(std::uint8_t *to, const std::uint8_t *, std::uint8_t *,          \
                                         int columns) {                                                   \
        for (int i = 0; i < columns; ++i) to[i] = static_cast<std::uint8_t>(to[i] ^ 1);                   \
    }                                                                                                     \
    __VA_ARGS__ inline void merge_##SET(std::uint8_t *__restrict to, const std::uint8_t *__restrict from, \
                                        std::uint8_t *, int columns) {                                    \
        for (int i = 0; i < columns; ++i) to[i] = static_cast<std::uint8_t>(to[i] ^ from[i]);             \
    }                                                                                                     \
    __VA_ARGS__ inline void keyed_##SET(std::uint8_t *__restrict to, const std::uint8_t *__restrict from, \
                                        std::uint8_t *__restrict keys, int columns) {                     \
        for (int i = 0; i < columns; ++i) {                                                               \
            to[i] = static_cast<std::uint8_t>(to[i] ^ from[i]);                                           \
            keys[i] = static_cast<std::uint8_t>(keys[i] ^ from[i]);                                       \
        }                                                                                                 \
    }

LOOPS(baseline)
#if defined(__x86_64__) && defined(__GNUC__)
LOOPS(avx2, [[gnu::target("avx2")]])
#if defined(__clang__)
LOOPS(avx512vbmi, [[gnu::target("avx512bw,avx512vl")]])
#else  // which keeps to 32 bytes unless told
LOOPS(avx512vbmi, [[gnu::target("avx512bw,avx512vl,prefer-vector-width=512")]])
#endif
#endif
#undef LOOPS

struct Loops {
    Loop update = update_baseline, merge = merge_baseline, keyed = keyed_baseline;
};

// Those of the instruction set that the kernels are told to use, or of the best.
inline const Loops &loops() {
    static const Loops chosen = [] {
#if defined(__x86_64__) && defined(__GNUC__)
        const char *wanted = std::getenv("INKSTONE_CPU");
        const std::string_view set = wanted != nullptr ? wanted : "avx512vbmi";
        if (set == "avx512vbmi" && __builtin_cpu_supports("avx512bw"))
            return Loops{update_avx512vbmi, merge_avx512vbmi, keyed_avx512vbmi};
        if (set != "baseline" && __builtin_cpu_supports("avx2"))
            return Loops{update_avx2, merge_avx2, keyed_avx2};
#endif
        return Loops{};
    }();
    return chosen;
}

}  // namespace bench
