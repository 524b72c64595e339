// The game of the demo: what its texts and its saved games promise. A whole play is a test of its own.
#include <gtest/gtest.h>
#include <inkstone/inkstone.h>

#include <fstream>
#include <string>

#include "charset/big5.h"
#include "language.h"
#include "panel.h"
#include "save.h"
#include "script.h"
#include "sheet.h"
#include "state.h"
#include "support/files.h"
#include "text.h"

namespace {

using namespace moon;

// The texts between quotation marks of a line of the script.
std::vector<std::string> texts_of(const std::string &line) {
    std::vector<std::string> texts;
    for (std::size_t at = 0; (at = line.find('"', at)) != line.npos;) {
        const std::size_t end = line.find('"', at + 1);
        texts.push_back(ink::tool::to_big5(line.substr(at + 1, end - at - 1)));
        at = end + 1;
    }
    return texts;
}

// The script as the build made it, with a fresh state.
void begin() {
    std::filesystem::remove(kScriptFile);
    std::filesystem::copy_file(GAME_SCRIPT, kScriptFile);
    ASSERT_TRUE(begin_script());
}

TEST(Game, EverythingThatIsSaidFitsThePanel) {
    begin();
    set_name("Wwwwwwwwww");
    std::ifstream story(GAME_STORY);
    int said = 0;
    for (std::string line; std::getline(story, line);) {
        if (line.find("    say ") != 0) continue;
        const int width = panel_text_width(line.find("say NARRATOR") != line.npos);
        const auto texts = texts_of(line);
        ASSERT_EQ(texts.size(), 2U) << line;
        for (const Language language : {Language::kChinese, Language::kEnglish}) {
            set_language(language);
            const auto lines = wrap(in_language({texts[0], texts[1]}), width);
            EXPECT_LE(static_cast<int>(lines.size()), panel_lines()) << line;
            for (const std::string &part : lines) EXPECT_LE(text_width(part), width + 12) << line;
        }
        ++said;
    }
    EXPECT_GT(said, 100);
}

TEST(Game, LinesBreakWhereAReaderExpectsIt) {
    struct {
        Language language;
        int width;
        const char *text, *lines;
    } const cases[] = {
        {Language::kEnglish, 120, "the moon in the ink", "the moon |in the ink"},
        {Language::kEnglish, 120, "the ~C1moon in~C0 the ink", "the ~C1moon |~C1in~C0 the ink"},
        {Language::kEnglish, 36, "inkstone", "inkstone"},           // a word is never cut
        {Language::kChinese, 96, "墨中月下，人", "墨中月|下，人"},  // no line begins with a comma
        {Language::kChinese, 96, "他說：「好！」",
         "他說：|「好！」"},  // none ends with an opening quotation mark
        {Language::kChinese, 96, "~C1筆墨~C0紙硯台", "~C1筆墨~C0紙|硯台"},  // nor stands alone
        {Language::kChinese, 72, "~C1筆墨紙硯~C0。", "~C1筆墨紙|~C1硯~C0。"},
        {Language::kChinese, 72, "用Mei的筆", "用Mei|的筆"},
    };
    for (const auto &one : cases) {
        set_language(one.language);
        std::string lines;
        for (const std::string &line : wrap(ink::tool::to_big5(one.text), one.width))
            lines += (lines.empty() ? "" : "|") + line;
        EXPECT_EQ(ink::tool::from_big5(lines), one.lines);
    }
}

TEST(Game, APaintedCircleHoldsAFillAndAStrokeCanBeUndone) {
    constexpr std::uint8_t kPaperColour = 110, kInk = 1, kGold = 8;
    for (const int brush : {1, 4, 9}) {
        for (int radius = 3; radius < 140; ++radius) {
            Sheet sheet(288, kPaperColour);
            sheet.take(kInk, brush);
            sheet.circle({144, 144}, {144 + radius, 144});
            sheet.take(kGold, brush);
            sheet.remember();
            sheet.fill({144, 144});
            ASSERT_EQ(sheet.pixels()[144 * 288 + 144], kGold) << radius;
            ASSERT_EQ(sheet.pixels()[0], kPaperColour) << "the fill runs out of a circle of " << radius;
            sheet.undo();
            ASSERT_NE(sheet.pixels()[144 * 288 + 144], kGold);
        }
    }
}

TEST(Game, ASavedGameComesBackAndADamagedOneIsRefused) {
    begin();
    EXPECT_FALSE(load_game());
    set_name("Mei");
    set(kPlace, kLake);
    set(kHeroX, 123);
    save_game();
    const test::Bytes saved = test::read_file("GAME.SAV");
    begin();
    EXPECT_EQ(typed_name(), "");
    ASSERT_TRUE(load_game());
    EXPECT_EQ(typed_name(), "Mei");
    EXPECT_EQ(get(kPlace), kLake);

    set(kHeroX, 77);
    for (std::size_t size = 0; size < saved.size(); size += 7) {
        test::write_file("GAME.SAV", test::Bytes(saved.begin(), saved.begin() + static_cast<long>(size)));
        EXPECT_FALSE(load_game()) << size;
    }
    for (const std::size_t at : {0U, 88U}) {  // the script's name, and the count of variables
        test::Bytes damaged = saved;
        damaged[at] ^= 0x20;
        test::write_file("GAME.SAV", damaged);
        EXPECT_FALSE(load_game()) << at;
    }
    EXPECT_EQ(get(kHeroX), 77);
    // Places that do not exist are brought back into the world.
    test::Bytes wild = saved;
    for (std::size_t at = 92; at < 92 + 4 * 6; ++at) wild[at] = 0x7F;
    test::write_file("GAME.SAV", wild);
    ASSERT_TRUE(load_game());
    EXPECT_EQ(get(kPlace), kLake);
    EXPECT_LT(get(kHeroX), INK_SCREEN_WIDTH);
    EXPECT_LT(get(kHeroY), INK_SCREEN_HEIGHT);
}

}  // namespace
