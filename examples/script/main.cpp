// A conversation in a terminal. What is said stands in gate.mas and city.mas, which ink mac builds; what the
// commands of the scripts mean stands here. The state is kept in talk.sav, so the next conversation goes on
// where this one ended:
//
//     example_script FOLDER_OF_THE_SCRIPTS
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include "inkstone/mac.h"

namespace {

constexpr std::uint32_t kVariables = 16;
constexpr std::int32_t kMain = 0;     // by our convention every script begins with its procedure 0
constexpr std::int32_t kChained = 8;  // what MAC_driver says when a script has named its successor
constexpr std::int32_t kSilence = 1;  // what we say when nobody answers any more

enum Command : std::uint8_t { kSay = 24, kGive = 25, kAsk = 26 };

// The operands are read in the order in which commands.mas declares them.
std::int32_t command(std::uint8_t opcode) {
    switch (opcode) {
        case kSay: std::printf("%s\n", MAC_get_string()); return 0;
        case kGive: {
            const std::int32_t thing = MAC_get_number(), count = MAC_get_number();
            std::printf("(You are given %d of thing %d.)\n", count, thing);
            return 0;
        }
        case kAsk: {
            std::printf("%s ", MAC_get_string());
            const std::int32_t variable = MAC_get_number();
            int answer = 0;
            if (std::scanf("%d", &answer) != 1) return kSilence;
            std::printf("%d\n", answer);
            MAC_set_variable(variable, answer);
            return 0;
        }
        default: std::printf("(The script asks for something unknown, %d.)\n", opcode); return 0;
    }
}

// Takes up a saved conversation; false when there is none.
bool resume(const char *name) {
    std::ifstream file(name, std::ios::binary);
    const std::vector<char> state(std::istreambuf_iterator<char>(file), {});
    // A state tells its own size; a file that was cut short must not be believed.
    return state.size() == sizeof(MAC_INFO_STRUCT) + 4 * kVariables && MAC_inport_info(state.data()) != 0 &&
           MAC_info_size() == static_cast<std::int32_t>(state.size());
}

void save(const char *name) {
    std::vector<char> state(static_cast<std::size_t>(MAC_info_size()));
    MAC_export_info(state.data());
    std::ofstream(name, std::ios::binary).write(state.data(), static_cast<std::streamsize>(state.size()));
}

}  // namespace

int main(int argc, char **argv) {
    const char *folder = argc > 1 ? argv[1] : ".";
    if (MAC_init(folder, ".", kVariables, command) != 0) return 1;
    const bool resumed = resume("talk.sav");
    if ((resumed ? MAC_reload() : MAC_load("gate.mac")) != 0) {
        std::fprintf(stderr, "The scripts are not in %s; ERROR.MSG says more.\n", folder);
        return 1;
    }
    std::int32_t result = MAC_driver(kMain);
    while (result == kChained && MAC_reload() == 0) result = MAC_driver(kMain);
    save("talk.sav");
    MAC_free();
    return 0;
}
