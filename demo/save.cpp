#include "save.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "script.h"
#include "sound.h"
#include "state.h"

namespace moon {
namespace {

constexpr const char *kFile = "GAME.SAV";
constexpr std::size_t kSize = sizeof(MAC_INFO_STRUCT) + 4 * std::size_t{kVariables};

std::vector<char> read_file() {
    std::ifstream file(kFile, std::ios::binary);
    std::vector<char> state(std::istreambuf_iterator<char>(file), {});
    // A state tells its own size and its script; a file that somebody damaged must not be believed.
    const bool whole = state.size() == kSize && std::strcmp(state.data(), kScriptFile) == 0;
    return whole ? state : std::vector<char>();
}

}  // namespace

bool has_saved_game() {
    return !read_file().empty();
}

void save_game() {
    std::vector<char> state(static_cast<std::size_t>(MAC_info_size()));
    MAC_export_info(state.data());
    std::ofstream(kFile, std::ios::binary).write(state.data(), static_cast<std::streamsize>(state.size()));
    play(Sound::kPage);
}

bool load_game() {
    const std::vector<char> state = read_file();
    if (state.empty()) return false;
    // The count of variables stands after the name, the size and the position.
    std::uint32_t count = 0;
    for (int i = 3; i >= 0; --i)
        count = count << 8 | static_cast<std::uint8_t>(state[88 + static_cast<std::size_t>(i)]);
    if (count != kVariables || MAC_inport_info(state.data()) == 0 || MAC_reload() != 0) return false;
    set(kPlace, std::clamp<int>(get(kPlace), kStudy, kLake));
    set(kNight, std::clamp(get(kNight), 0, 1));
    set(kHeroX, std::clamp(get(kHeroX), 0, INK_SCREEN_WIDTH - 1));
    set(kHeroY, std::clamp(get(kHeroY), 0, INK_SCREEN_HEIGHT - 1));
    play(Sound::kPage);
    return true;
}

}  // namespace moon
