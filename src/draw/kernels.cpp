// The choice of the instruction set.
#include "draw/kernels.h"

#include <cstdlib>
#include <string_view>

namespace ink::draw {

namespace {

const Kernels &best_kernels() {
#if defined(INKSTONE_X86_LEVELS)
    const char *asked = std::getenv("INKSTONE_CPU");
    const std::string_view most = asked != nullptr ? asked : "v4";
    __builtin_cpu_init();
    const bool v3 = most != "baseline" && __builtin_cpu_supports("avx2");
    const bool v4 = v3 && most != "v3" && __builtin_cpu_supports("avx512f") &&
                    __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
                    __builtin_cpu_supports("avx512vbmi");
    if (v4) return kernels_v4;
    if (v3) return kernels_v3;
#endif
    return kernels_baseline;
}

}  // namespace

const Kernels kernels = best_kernels();

}  // namespace ink::draw
