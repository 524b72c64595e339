// From the state of the keys to the codes games read: the character and function-key tables, the two readers
// and the waits.
#include <cstddef>
#include <iterator>

#include "core/counters.h"
#include "core/hooks.h"
#include "inkstone/keyboard.h"
#include "inkstone/runtime.h"
#include "inkstone/timer.h"
#include "platform/keyboard/key_state.h"

using namespace ink::keyboard;

namespace {

// The keys that stand for characters, in the order in which they are looked for.
struct Character {
    std::uint8_t scan;
    char character;
};
constexpr Character kCharacters[] = {
    {0x02, '1'}, {0x03, '2'}, {0x04, '3'}, {0x05, '4'}, {0x06, '5'}, {0x07, '6'},  {0x08, '7'},
    {0x09, '8'}, {0x0A, '9'}, {0x0B, '0'}, {0x1E, 'A'}, {0x30, 'B'}, {0x2E, 'C'},  {0x20, 'D'},
    {0x12, 'E'}, {0x21, 'F'}, {0x22, 'G'}, {0x23, 'H'}, {0x17, 'I'}, {0x24, 'J'},  {0x25, 'K'},
    {0x26, 'L'}, {0x32, 'M'}, {0x31, 'N'}, {0x18, 'O'}, {0x19, 'P'}, {0x10, 'Q'},  {0x13, 'R'},
    {0x1F, 'S'}, {0x14, 'T'}, {0x16, 'U'}, {0x2F, 'V'}, {0x11, 'W'}, {0x2D, 'X'},  {0x15, 'Y'},
    {0x2C, 'Z'}, {0x0C, '-'}, {0x0D, '='}, {0x1A, '['}, {0x1B, ']'}, {0x27, ';'},  {0x28, '\''},
    {0x33, ','}, {0x34, '.'}, {0x35, '/'}, {0x37, '*'}, {0x29, '`'}, {0x2B, '\\'}, {kBackspace, '\b'},
};

// What Shift makes of the characters of a US keyboard; letters are capitals already.
constexpr char kUnshifted[] = "',-./0123456789;=[\\]`";
constexpr char kShifted[] = "\"<_>?)!@#$%^&*(:+{|}~";
static_assert(sizeof kUnshifted == sizeof kShifted);

std::uint8_t shifted(std::uint8_t code) {
    for (std::size_t i = 0; i + 1 < sizeof kUnshifted; ++i)
        if (code == static_cast<std::uint8_t>(kUnshifted[i])) return static_cast<std::uint8_t>(kShifted[i]);
    return code;
}

// The special keys, each with its test, in the order in which a reader tests them.
struct Special {
    std::int16_t (*held)();
    std::uint8_t code;
};
constexpr std::uint8_t kTabCode = 9, kEnterCode = 13, kEscCode = 27, kSpaceCode = 32;
constexpr std::uint8_t kF11Code = 133, kF12Code = 134;
// What sets the special keys of the data reader apart from characters. F11 and F12 go on where F10 ends there.
constexpr std::uint8_t kDataBit = 0x80, kDataF11Code = kDataBit + kF10 + 1, kDataF12Code = kDataF11Code + 1;
constexpr Special kSystemKeys[] = {
    {fnCheckUpKey, kUp},         {fnCheckDownKey, kDown},       {fnCheckLeftKey, kLeft},
    {fnCheckRightKey, kRight},   {fnCheckSpaceKey, kSpaceCode}, {fnCheckEnterKey, kEnterCode},
    {fnCheckEscKey, kEscCode},   {fnCheckTabKey, kTabCode},     {fnCheckInsertKey, kInsert},
    {fnCheckDeleteKey, kDelete}, {fnCheckPgUpKey, kPgUp},       {fnCheckPgDnKey, kPgDn},
    {fnCheckHomeKey, kHome},     {fnCheckEndKey, kEnd},
};
constexpr Special kDataKeys[] = {
    {fnCheckUpKey, kDataBit + kUp},         {fnCheckDownKey, kDataBit + kDown},
    {fnCheckLeftKey, kDataBit + kLeft},     {fnCheckRightKey, kDataBit + kRight},
    {fnCheckInsertKey, kDataBit + kInsert}, {fnCheckDeleteKey, kDataBit + kDelete},
    {fnCheckHomeKey, kDataBit + kHome},     {fnCheckEndKey, kDataBit + kEnd},
    {fnCheckPgUpKey, kDataBit + kPgUp},     {fnCheckPgDnKey, kDataBit + kPgDn},
    {fnCheckSpaceKey, kSpaceCode},          {fnCheckEnterKey, kDataBit + kEnterCode},
    {fnCheckEscKey, kDataBit + kEscCode},   {fnCheckTabKey, kDataBit + kTabCode},
};

template <std::size_t count>
std::uint8_t first_held(const Special (&specials)[count]) {
    for (const Special &special : specials)
        if (special.held() != 0) return special.code;
    return 0;
}

std::uint8_t system_code() {
    const std::uint8_t code = first_held(kSystemKeys);
    return code != 0 ? code : fnCheckFunctionKey();
}

std::uint8_t unshifted_data_code() {
    if (const std::uint8_t code = first_held(kDataKeys)) return code;
    switch (const std::uint8_t function = fnCheckFunctionKey()) {
        case 0: return fnCheckAlphaNumberKey();
        case kF11Code: return kDataF11Code;
        case kF12Code: return kDataF12Code;
        default: return static_cast<std::uint8_t>(kDataBit + function);
    }
}

std::uint8_t data_code() {
    const std::uint8_t code = unshifted_data_code();
    return fnCheckShiftKey() != 0 ? shifted(code) : code;
}

// What both readers do: let pending key messages arrive, look, and when nothing is held give the game a turn.
std::uint8_t read_key(std::uint8_t (*code_of_state)(), std::uint8_t tab_code) {
    fnCheckMessage();
    const std::uint8_t code = fnScanKeyPress() != 0 ? code_of_state() : 0;
    if (code == 0) {
        ink::idle();
    } else if (code == tab_code) {
        ink::tab_pressed();
        fnResetKeyBoard();
    }
    return code;
}

// Enter and Space end a wait for either of them.
std::int32_t enter_as_space(std::int32_t key) {
    return key == kEnterCode ? kSpaceCode : key;
}

}  // namespace

uint8_t fnCheckAlphaNumberKey(void) {
    for (const Character &key : kCharacters)
        if (keys.normal[key.scan] != 0) return static_cast<std::uint8_t>(key.character);
    return 0;
}

uint8_t fnCheckFunctionKey(void) {
    for (std::uint8_t scan = kF1; scan <= kF10; ++scan)
        if (keys.normal[scan] != 0) return scan;
    if (keys.normal[kF11] != 0) return kF11Code;
    return keys.normal[kF12] != 0 ? kF12Code : 0;
}

uint8_t read_system_key(void) {
    return read_key(system_code, kTabCode);
}

uint8_t read_data_key(void) {
    return read_key(data_code, kDataBit + kTabCode);
}

void wait_key(int32_t key) {
    key = enter_as_space(key);
    for (ink::Wait wait; key != 0 && enter_as_space(read_system_key()) != key;) wait.rest();
    fnResetKeyBoard();
}

uint8_t wait_any_key(void) {
    fnResetKeyBoard();
    std::uint8_t code = 0;
    for (ink::Wait wait; code == 0; code = read_system_key()) wait.rest();
    fnResetKeyBoard();
    return code;
}

void wait_key_time(int32_t key, uint32_t ticks) {
    key = enter_as_space(key);
    SetTimerTick(ink::kWaitCounter, 0);
    ink::Wait wait;
    do {
        wait.rest();
        if (enter_as_space(read_system_key()) == key) return;
        ink::idle();
    } while (GetTimerTick(ink::kWaitCounter) < ticks);
}
