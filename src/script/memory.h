// Memory that begins as zeros. Null when there is none, which every caller reports in its own words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

namespace ink::script {

using Memory = std::unique_ptr<std::uint8_t[]>;

inline Memory zeroed(std::size_t size) {
    return Memory(new (std::nothrow) std::uint8_t[size]());
}

}  // namespace ink::script
