#include "platform/keyboard/key_state.h"

#include <algorithm>

#include "inkstone/keyboard.h"

namespace ink::keyboard {
namespace {

constexpr std::uint8_t kExtendedPrefix = 0xE0, kPausePrefix = 0xE1, kBreak = 0x80;

// The key of a make or break code.
constexpr std::uint8_t key_of(std::uint8_t code) {
    return code & static_cast<std::uint8_t>(~kBreak);
}

// Codes beyond the last key stand for none.
void make_or_break(KeyTable &table, std::uint8_t code) {
    const std::size_t scan = key_of(code);
    if (scan >= table.size()) return;
    if ((code & kBreak) != 0)
        table[scan] = 0;
    else
        ++table[scan];
}

}  // namespace

KeyState keys;

void KeyState::take(std::uint8_t code) {
    switch (prefix) {
        case kExtendedPrefix:
            prefix = 0;
            make_or_break(extended, code);
            return;
        case kPausePrefix:
            // Pause sends E1 1D 45 and E1 9D C5: the code in the middle says nothing.
            if (key_of(code) != kPause) return;
            prefix = 0;
            make_or_break(extended, code);
            return;
        default:
            if (code == kExtendedPrefix || code == kPausePrefix) {
                prefix = code;
                return;
            }
            make_or_break(normal, code);
            if (code == kEsc) esc_latch = true;
    }
}

bool KeyState::any() const {
    const auto held = [](std::uint8_t count) { return count != 0; };
    return std::any_of(normal.begin(), normal.end(), held) ||
           std::any_of(extended.begin(), extended.end(), held);
}

}  // namespace ink::keyboard

using namespace ink::keyboard;

void fnKeyBoardInterrupt(uint8_t code) {
    keys.take(code);
}

void fnResetKeyBoard(void) {
    keys = {};
}

void fnResetNormalKey(void) {
    KeyState reset;
    for (const Scan shift : {kLeftShift, kRightShift}) reset.normal[shift] = keys.normal[shift];
    keys = reset;
}

uint8_t fnCheckKeyValue(uint8_t code) {
    const KeyTable &table = (code & 0x80) != 0 ? keys.extended : keys.normal;
    const std::size_t scan = code & 0x7F;
    return scan < table.size() ? table[scan] : 0;
}

int16_t fnScanKeyPress(void) {
    return keys.any();
}

int16_t fnCheckUpKey(void) {
    return keys.either(kUp);
}
int16_t fnCheckDownKey(void) {
    return keys.either(kDown);
}
int16_t fnCheckLeftKey(void) {
    return keys.either(kLeft);
}
int16_t fnCheckRightKey(void) {
    return keys.either(kRight);
}
int16_t fnCheckHomeKey(void) {
    return keys.either(kHome);
}
int16_t fnCheckEndKey(void) {
    return keys.either(kEnd);
}
int16_t fnCheckPgUpKey(void) {
    return keys.either(kPgUp);
}
int16_t fnCheckPgDnKey(void) {
    return keys.either(kPgDn);
}
int16_t fnCheckInsertKey(void) {
    return keys.either(kInsert);
}
int16_t fnCheckDeleteKey(void) {
    return keys.either(kDelete);
}
int16_t fnCheckEnterKey(void) {
    return keys.either(kEnter);
}
int16_t fnCheckCtrlKey(void) {
    return keys.either(kCtrl);
}
int16_t fnCheckLeftCtrlKey(void) {
    return keys.normal[kCtrl] != 0;
}
int16_t fnCheckRightCtrlKey(void) {
    return keys.extended[kCtrl] != 0;
}
int16_t fnCheckAltKey(void) {
    return keys.either(kAlt);
}
int16_t fnCheckLeftAltKey(void) {
    return keys.normal[kAlt] != 0;
}
int16_t fnCheckRightAltKey(void) {
    return keys.extended[kAlt] != 0;
}
int16_t fnCheckShiftKey(void) {
    return keys.normal[kLeftShift] != 0 || keys.normal[kRightShift] != 0;
}
int16_t fnCheckLeftShiftKey(void) {
    return keys.normal[kLeftShift] != 0;
}
int16_t fnCheckRightShiftKey(void) {
    return keys.normal[kRightShift] != 0;
}
int16_t fnCheckSpaceKey(void) {
    return keys.normal[kSpace] != 0;
}
int16_t fnCheckTabKey(void) {
    return keys.normal[kTab] != 0;
}
int16_t fnCheckPauseKey(void) {
    return keys.normal[kP] != 0;
}
int16_t fnCheckEscKey(void) {
    return keys.esc_latch;
}
