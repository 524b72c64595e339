#include "settings.h"

#include <inkstone/inkstone.h>

#include <fstream>
#include <string>

#include "language.h"

namespace moon {
namespace {

constexpr const char *kFile = "GAME.INF";
Settings current;

std::string value_of(const char *key) {
    char value[255] = {};
    std::string result = INFO_read_config("GAME", key, value);
    for (char &letter : result) letter = static_cast<char>(char_upper(static_cast<std::uint8_t>(letter)));
    return result;
}

void read_switch(const char *key, bool &value) {
    const std::string text = value_of(key);
    if (!text.empty()) value = text != "OFF";
}

}  // namespace

Settings &settings() {
    return current;
}

void read_settings() {
    if (check_file_exist(kFile) != 0) return;
    if (INFO_open_file(kFile) == 0) {
        if (value_of("LANGUAGE") == "EN") set_language(Language::kEnglish);
        if (value_of("LANGUAGE") == "ZH") set_language(Language::kChinese);
        read_switch("SOUND", current.sound);
        read_switch("MUSIC", current.music);
    }
    INFO_close_file();
}

void write_settings() {
    std::ofstream file(kFile);
    file << "; The settings of The Moon in the Ink: LANGUAGE = ZH or EN, SOUND and MUSIC = ON or "
            "OFF.\n[GAME]\n"
         << "LANGUAGE = " << (language() == Language::kEnglish ? "EN" : "ZH") << '\n'
         << "SOUND = " << (current.sound ? "ON" : "OFF") << '\n'
         << "MUSIC = " << (current.music ? "ON" : "OFF") << '\n';
}

}  // namespace moon
