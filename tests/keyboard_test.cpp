// The keyboard, fed as a game feeds it: from the key messages of a window, or byte by byte.
#include "inkstone/keyboard.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "inkstone/host.h"
#include "inkstone/timer.h"

namespace {

void feed(std::initializer_list<int> bytes) {
    for (const int byte : bytes) fnKeyBoardInterrupt(static_cast<std::uint8_t>(byte));
}

TEST(Keyboard, KeepsTheStateOfEachKey) {
    feed({0x1E, 0x1E, 0x1E});
    EXPECT_EQ(fnCheckKeyValue(0x1E), 3);
    feed({0x9E});
    EXPECT_EQ(fnScanKeyPress(), 0);
    feed({0xE0, 0x48});
    EXPECT_EQ(fnCheckKeyValue(0x48), 0);
    EXPECT_EQ(fnCheckKeyValue(0xC8), 1);
    EXPECT_EQ(fnCheckUpKey(), 1);
    feed({0xE0, 0xC8, 0xE1, 0x1D, 0x45});
    EXPECT_EQ(fnCheckKeyValue(0xC5), 1);
    EXPECT_EQ(fnCheckCtrlKey(), 0);  // the 1D belonged to Pause
    feed({0xE1, 0x9D, 0xC5});
    EXPECT_EQ(fnScanKeyPress(), 0);
    for (int i = 0; i < 256; ++i) feed({0x10});
    EXPECT_EQ(fnCheckKeyValue(0x10), 0);  // the count wraps
    feed({0x90});
    // Codes of no key, with and without a prefix: none of them leaves a mark or a pending prefix.
    for (int code = 0x59; code < 0x80; ++code) feed({code, 0xE0, code, 0xE0, code | 0x80});
    feed({0xE0, 0xE0, 0xE0, 0xE1});
    EXPECT_EQ(fnScanKeyPress(), 0);
    for (int code = 0x59; code < 0x80; ++code) EXPECT_EQ(fnCheckKeyValue(static_cast<std::uint8_t>(code)), 0);
    feed({0x02});
    EXPECT_EQ(fnCheckAlphaNumberKey(), '1');
}

TEST(Keyboard, TestsSingleKeys) {
    struct Case {
        std::int16_t (*test)();
        std::vector<int> normal, extended;
    };
    const std::vector<Case> cases = {
        {fnCheckUpKey, {0x48}, {0x48}},     {fnCheckDownKey, {0x50}, {0x50}},
        {fnCheckLeftKey, {0x4B}, {0x4B}},   {fnCheckRightKey, {0x4D}, {0x4D}},
        {fnCheckHomeKey, {0x47}, {0x47}},   {fnCheckEndKey, {0x4F}, {0x4F}},
        {fnCheckPgUpKey, {0x49}, {0x49}},   {fnCheckPgDnKey, {0x51}, {0x51}},
        {fnCheckInsertKey, {0x52}, {0x52}}, {fnCheckDeleteKey, {0x53}, {0x53}},
        {fnCheckEnterKey, {0x1C}, {0x1C}},  {fnCheckCtrlKey, {0x1D}, {0x1D}},
        {fnCheckLeftCtrlKey, {0x1D}, {}},   {fnCheckRightCtrlKey, {}, {0x1D}},
        {fnCheckAltKey, {0x38}, {0x38}},    {fnCheckLeftAltKey, {0x38}, {}},
        {fnCheckRightAltKey, {}, {0x38}},   {fnCheckShiftKey, {0x2A, 0x36}, {}},
        {fnCheckLeftShiftKey, {0x2A}, {}},  {fnCheckRightShiftKey, {0x36}, {}},
        {fnCheckSpaceKey, {0x39}, {}},      {fnCheckTabKey, {0x0F}, {}},
        {fnCheckPauseKey, {0x19}, {}},      {fnCheckEscKey, {0x01}, {}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        for (int scan = 0; scan <= 0x58; ++scan) {
            for (const bool extended : {false, true}) {
                fnResetKeyBoard();
                if (extended) feed({0xE0});
                feed({scan});
                const std::vector<int> &table = extended ? cases[i].extended : cases[i].normal;
                const bool expected = std::find(table.begin(), table.end(), scan) != table.end();
                EXPECT_EQ(cases[i].test(), expected) << i << ' ' << scan << ' ' << extended;
            }
        }
    }
}

TEST(Keyboard, ResetsKeepOnlyWhatTheySay) {
    feed({0x2A, 0x36, 0x1E, 0x01, 0xE0, 0x48, 0xE0, 0x2A, 0xE0});
    fnResetNormalKey();
    EXPECT_EQ(fnCheckKeyValue(0x80 | 0x2A), 0);
    EXPECT_EQ(fnCheckLeftShiftKey() + fnCheckRightShiftKey(), 2);
    EXPECT_EQ(fnCheckEscKey() + fnCheckUpKey() + fnCheckKeyValue(0x1E), 0);
    feed({0x1E});  // no prefix is pending
    EXPECT_EQ(fnCheckKeyValue(0x1E), 1);
    fnResetKeyBoard();
    EXPECT_EQ(fnScanKeyPress(), 0);
}

// What both readers give for a key held alone; normal scan codes unless 0x100 is added.
TEST(KeyReaders, GiveTheCodesOfBothSpaces) {
    struct Case {
        int scan, system, data, shifted;
    };
    std::vector<Case> cases = {
        {0x148, 72, 200, 200}, {0x48, 72, 200, 200},  {0x150, 80, 208, 208}, {0x14B, 75, 203, 203},
        {0x14D, 77, 205, 205}, {0x39, 32, 32, 32},    {0x1C, 13, 141, 141},  {0x11C, 13, 141, 141},
        {0x01, 27, 155, 155},  {0x152, 82, 210, 210}, {0x153, 83, 211, 211}, {0x149, 73, 201, 201},
        {0x151, 81, 209, 209}, {0x147, 71, 199, 199}, {0x14F, 79, 207, 207}, {0x57, 133, 197, 197},
        {0x58, 134, 198, 198}, {0x0E, 0, 8, 8},       {0x37, 0, '*', '*'},   {0x3A, 0, 0, 0},
        {0x13A, 0, 0, 0},      {0x0F, 9, 137, 137}};
    for (int i = 0; i < 10; ++i) cases.push_back({0x3B + i, 59 + i, 187 + i, 187 + i});
    const std::string digits = "1234567890", upper = "!@#$%^&*()";
    for (int i = 0; i < 10; ++i)
        cases.push_back({2 + i, 0, digits[static_cast<std::size_t>(i)], upper[static_cast<std::size_t>(i)]});
    const std::vector<std::pair<int, std::string>> rows = {
        {0x10, "QWERTYUIOP"}, {0x1E, "ASDFGHJKL"}, {0x2C, "ZXCVBNM"}};
    for (const auto &[scan, letters] : rows)
        for (int i = 0; i < static_cast<int>(letters.size()); ++i)
            cases.push_back(
                {scan + i, 0, letters[static_cast<std::size_t>(i)], letters[static_cast<std::size_t>(i)]});
    const std::vector<int> marks = {0x0C, 0x0D, 0x1A, 0x1B, 0x27, 0x28, 0x33, 0x34, 0x35, 0x29, 0x2B};
    const std::string plain = "-=[];',./`\\", with_shift = "_+{}:\"<>?~|";
    for (std::size_t i = 0; i < marks.size(); ++i) cases.push_back({marks[i], 0, plain[i], with_shift[i]});

    for (const Case &key : cases) {
        for (const int shift : {0, 0x2A, 0x36}) {
            const auto hold = [&] {
                fnResetKeyBoard();
                if (shift != 0) feed({shift});
                if (key.scan >= 0x100) feed({0xE0});
                feed({key.scan & 0xFF});
            };
            hold();
            EXPECT_EQ(read_system_key(), key.system) << std::hex << key.scan;
            hold();
            EXPECT_EQ(read_data_key(), shift != 0 ? key.shifted : key.data) << std::hex << key.scan;
            if (key.system == 9) continue;  // Tab resets
            EXPECT_EQ(read_data_key(), shift != 0 ? key.shifted : key.data);
        }
    }
}

TEST(KeyReaders, TestKeysInTheirOrder) {
    // Each list is in the order of its reader; holding all from some key on gives that key.
    const std::vector<std::pair<int, int>> system = {
        {0x48, 72}, {0x50, 80}, {0x4B, 75}, {0x4D, 77}, {0x39, 32}, {0x1C, 13}, {0x01, 27}, {0x52, 82},
        {0x53, 83}, {0x49, 73}, {0x51, 81}, {0x47, 71}, {0x4F, 79}, {0x3B, 59}, {0x58, 134}};
    const std::vector<std::pair<int, int>> data = {
        {0x48, 200}, {0x50, 208}, {0x4B, 203}, {0x4D, 205}, {0x52, 210}, {0x53, 211}, {0x47, 199},
        {0x4F, 207}, {0x49, 201}, {0x51, 209}, {0x39, 32},  {0x1C, 141}, {0x01, 155}, {0x44, 196},
        {0x02, '1'}, {0x0B, '0'}, {0x1E, 'A'}, {0x2C, 'Z'}, {0x0C, '-'}, {0x0E, 8}};
    for (std::size_t from = 0; from < data.size(); ++from) {
        fnResetKeyBoard();
        for (std::size_t i = from; i < data.size(); ++i) feed({data[i].first});
        EXPECT_EQ(read_data_key(), data[from].second);
    }
    for (std::size_t from = 0; from < system.size(); ++from) {
        fnResetKeyBoard();
        for (std::size_t i = from; i < system.size(); ++i) feed({system[i].first});
        EXPECT_EQ(read_system_key(), system[from].second);
    }
}

int tabs = 0, idles = 0;

TEST(KeyReaders, ServeTabEscAndIdleness) {
    tabs = idles = 0;
    set_system_tab_function([] { ++tabs; });
    set_system_idle_function([] { ++idles; });
    feed({0x0F});
    EXPECT_EQ(read_system_key(), 9);
    EXPECT_EQ(read_system_key(), 0);
    feed({0x2A, 0x0F});
    EXPECT_EQ(read_data_key(), 137);
    EXPECT_EQ(fnCheckShiftKey(), 0);
    EXPECT_EQ(tabs, 2);
    EXPECT_EQ(idles, 1);
    feed({0x01, 0x81});  // pressed and released: the latch shows only while some key is held
    EXPECT_EQ(read_system_key(), 0);
    feed({0x1E});
    EXPECT_EQ(read_system_key(), 27);
    feed({0x39});
    EXPECT_EQ(read_system_key(), 32);
    EXPECT_EQ(idles, 2);
}

// A game's window procedure: key messages become set-1 bytes.
LRESULT forward_keys(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_KEYDOWN || message == WM_KEYUP) {
        if ((lparam >> 24 & 1) != 0) fnKeyBoardInterrupt(0xE0);
        fnKeyBoardInterrupt(
            static_cast<std::uint8_t>((lparam >> 16 & 0xFF) | (message == WM_KEYUP ? 0x80 : 0)));
    }
    return HOST_default_procedure(window, message, wparam, lparam);
}

TEST(KeyWaits, EndOnKeysThatComeThroughTheWindow) {
    HOST_open_window("t", 64, 48, forward_keys);
    HOST_key(0x14D, 1);
    HOST_key(0x14D, 1);
    EXPECT_EQ(read_system_key(), 77);
    EXPECT_EQ(fnCheckKeyValue(0x80 | 0x4D), 2);  // auto-repeat
    HOST_key(0x14D, 0);
    EXPECT_EQ(read_system_key(), 0);

    HOST_key(0x39, 1);
    wait_key(13);  // Space will do
    EXPECT_EQ(fnScanKeyPress(), 0);
    HOST_key(0x39, 0);
    feed({0x3B});
    wait_key(0);
    EXPECT_EQ(fnScanKeyPress(), 0);
    feed({0x3B});  // held since before, and so not waited for
    HOST_key(0x3C, 1);
    EXPECT_EQ(wait_any_key(), 60);
    EXPECT_EQ(fnScanKeyPress(), 0);

    SetupTimerProc(nullptr);
    HOST_key(0x3C, 0);
    SetTimerTick(14, 100);
    wait_key_time(60, 4);  // the time ends it
    EXPECT_EQ(GetTimerTick(14), 4U);
    HOST_key(0x1C, 1);
    wait_key_time(32, 1000);  // Enter will do
    EXPECT_LT(GetTimerTick(14), 1000U);
    EXPECT_EQ(fnCheckEnterKey(), 1);  // not reset
    HOST_key(0x1C, 0);
    HOST_key(0x39, 1);
    wait_key_time(13, 1000);  // and Space for Enter
    EXPECT_LT(GetTimerTick(14), 1000U);
}

}  // namespace
