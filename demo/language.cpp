#include "language.h"

#include "state.h"

namespace moon {
namespace {

Language chosen = Language::kChinese;

}  // namespace

void set_language(Language language) {
    chosen = language;
}

Language language() {
    return chosen;
}

std::string in_language(const Both &text) {
    std::string result = chosen == Language::kChinese ? text.chinese : text.english;
    // The second byte of a Big5 character is never a "$", so it can be looked for byte by byte.
    for (std::size_t at = 0; (at = result.find('$', at)) != std::string::npos;) {
        const std::string name = player_name();
        result.replace(at, 1, name);
        at += name.size();
    }
    return result;
}

}  // namespace moon
