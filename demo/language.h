// The two languages of the game.
#pragma once

#include <string>

namespace moon {

// A text in both: Big5, and ASCII. In either a "$" stands for the name of the one who plays.
struct Both {
    std::string chinese, english;
};

enum class Language { kChinese, kEnglish };

void set_language(Language language);
Language language();

// The text in the language that is set, with the name put in.
std::string in_language(const Both &text);
inline std::string in_language(const char *chinese, const char *english) {
    return in_language({chinese, english});
}

}  // namespace moon
