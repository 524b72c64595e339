// Memory that begins as zeros. Null when there is none, which every caller reports in its own words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace ink::script {

struct FreeMemory {
    void operator()(std::uint8_t *memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<std::uint8_t[], FreeMemory>;

inline Memory zeroed(std::size_t size) {
    return Memory(static_cast<std::uint8_t *>(std::calloc(size, 1)));
}

}  // namespace ink::script
