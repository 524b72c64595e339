// The choice of the instruction set.
#include "draw/kernels.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace ink::draw {

namespace {

struct Set {
    std::string_view name;
    const Kernels &kernels;
    bool (*runs_here)();
};

// From the widest vectors to those that every processor has.
constexpr Set kSets[] = {
#if defined(INKSTONE_WIDE_KERNELS)
    {"avx512vbmi", kernels_avx512vbmi,
     [] {
         return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512vbmi") &&
                __builtin_cpu_supports("avx512vbmi2") && __builtin_cpu_supports("bmi");
     }},
    {"avx2", kernels_avx2, [] { return __builtin_cpu_supports("avx2") != 0; }},
#endif
    {"baseline", kernels_baseline, [] { return true; }},
};

const Kernels &choose_kernels() {
#if defined(INKSTONE_WIDE_KERNELS)
    __builtin_cpu_init();
#endif
    const char *asked = std::getenv("INKSTONE_CPU");
    const Set *best = nullptr;
    for (const Set &set : kSets) {
        if (!set.runs_here()) continue;
        if (asked == nullptr || *asked == '\0' || set.name == asked) return set.kernels;
        if (best == nullptr) best = &set;
    }
    std::fprintf(stderr, "INKSTONE_CPU: there are no %s kernels for this processor\n", asked);
    return best->kernels;
}

}  // namespace

const Kernels kernels = choose_kernels();

}  // namespace ink::draw
