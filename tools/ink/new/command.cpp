// ink new: a game of one page to begin with.
#include <algorithm>
#include <iostream>
#include <memory>

#include "command_line.h"
#include "new/template.h"

namespace ink::tool {
namespace {

namespace fs = std::filesystem;

void create(const std::string &directory) {
    const fs::path place = path_of(directory);
    // With or without a slash behind it; "." is the folder we stand in.
    const fs::path whole = fs::absolute(place / "").lexically_normal();
    const std::string game = name_of(whole.parent_path().filename());
    const auto plain = [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
               (letter >= '0' && letter <= '9') || letter == '_' || letter == '-';
    };
    if (game.empty() || !std::ranges::all_of(game, plain))
        throw FileError(place, "a game's name is made of letters a to z, digits, _ and -");
    if (fs::exists(place) && !(fs::is_directory(place) && fs::is_empty(place)))
        throw FileError(place, "is there already, and not empty");
    fs::create_directories(place / "content" / "art");
    NewFiles files;
    for (const auto &[name, text] : texts_of_game(game))
        files.add(place / name, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
    for (const auto &[name, bytes] : art_of_game()) files.add(place / "content" / "art" / name, bytes);
    files.commit();
    std::cout << "The game stands in " << directory << ". Build and run it:\n\n    cd " << directory
              << "\n    cmake -B build\n    cmake --build build --target run\n";
}

}  // namespace

void add_new(CLI::App &app) {
    const auto directory = std::make_shared<std::string>();
    CLI::App *command = add_command(
        app, "new", "Begin a game: one page with pictures, text, a script and a sound, ready to build",
        {"ink new lantern"});
    command->add_option("directory", *directory, "Where it is to stand; its last part names the game")
        ->required();
    command->callback([directory] { create(*directory); });
}

}  // namespace ink::tool
