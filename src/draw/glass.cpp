#include "draw/glass.h"

namespace ink::draw {

namespace {

std::uint8_t tables[kGlassTables][256];

}  // namespace

std::uint8_t *glass_table(std::int32_t number) {
    return number >= 0 && number < kGlassTables ? tables[number] : nullptr;
}

}  // namespace ink::draw
