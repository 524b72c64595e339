#include "tour.h"

#include <inkstone/inkstone.h>

#include <filesystem>
#include <memory>

#include "player.h"

namespace moon {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<Player> player;
fs::path pictures;  // wherever the game goes

}  // namespace

bool begin_tour(const Tour &tour, const std::string &content) {
    pictures = fs::absolute(tour.pictures);
    // The kept play checks itself: when it ends the machine says whether picture and sound were as they were then.
    const std::string kept = content + "/tour.rec";
    if (!tour.scripted && tour.half == 0 && fs::exists(kept) && HOST_replay(kept.c_str()) != 0) return false;
    const fs::path folder = pictures / "play";
    fs::create_directories(folder);
    fs::current_path(folder);
    if (tour.half != 2)
        for (const char *file : {"GAME.INF", "GAME.SAV", "MOON.PCX"}) fs::remove(file);
    return true;
}

void let_player_play(const Tour &tour, std::int32_t frame_list) {
    player = std::make_unique<Player>(pictures, tour.half);
    PollingAppend(frame_list, [] { player->play(); });
}

bool end_tour() {
    player->finish();
    return player->at_the_end();
}

}  // namespace moon
