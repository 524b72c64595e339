// How text is drawn at the moment: what the control sequences switch.
#pragma once

#include <cstdint>

namespace ink::text {

inline constexpr std::int32_t kColourSlots = 4, kOutlineSlot = 3;

struct TextStyle {
    std::int32_t slot = 0;
    bool zoom = false, bold = false, outline = false, shadow = false;
};

// Carries out a control sequence that both families of text know: colour, double size, outline, shadow.
// Returns false for any other letter.
inline bool apply_control(TextStyle &style, char letter, char argument) {
    const bool on = argument == '1';
    switch (letter) {
        case 'C':
        case 'c': style.slot = argument == '0' ? 0 : on ? 1 : 2; return true;
        case 'Z':
        case 'z': style.zoom = on; return true;
        case 'O':
        case 'o': style.outline = on; return true;
        case 'T':
        case 't': style.shadow = on; return true;
        default: return false;
    }
}

}  // namespace ink::text
