#include "script.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <vector>

#include "hero.h"
#include "inventory.h"
#include "light.h"
#include "moonrise.h"
#include "name_entry.h"
#include "painting.h"
#include "panel.h"
#include "play.h"
#include "scene.h"
#include "sound.h"
#include "words.h"

namespace moon {
namespace {

enum Command : std::uint8_t {
    kSay = 24,
    kAnswer,
    kChoose,
    kTake,
    kWalk,
    kReach,
    kSleep,
    kGo,
    kPlay,
    kAskName,
    kPaint,
    kMoonrise,
    kTheEnd,
    kNameThing,
    kNameCarried,
    kNameSpeaker,
};

std::vector<std::string> answers;  // of the next choice

// A text of a command; empty when the script has none there.
std::string read_text() {
    const char *text = MAC_get_string();
    return text != nullptr ? text : "";
}

// Both texts of a command. The library keeps one at a time.
Both read_both() {
    Both both;
    both.chinese = read_text();
    both.english = read_text();
    return both;
}

void take(int thing) {
    MAC_set_variable(kFirstThing + thing, 1);
    Both name = read_both();
    show_found(thing, in_language({GOT_ZH + name.chinese, GOT_EN + name.english}));
}

std::int32_t command(std::uint8_t opcode) {
    switch (opcode) {
        case kSay: {
            const std::int32_t speaker = MAC_get_number();
            say(std::clamp<std::int32_t>(speaker, kHero, kNarrator), in_language(read_both()));
            break;
        }
        case kAnswer: answers.push_back(in_language(read_both())); break;
        case kChoose:
            MAC_set_variable(MAC_get_number(), choose(answers));
            answers.clear();
            break;
        case kTake: take(MAC_get_number()); break;
        case kWalk: walk_and_wait(standing_point(MAC_get_number())); break;
        case kReach: reach_and_wait(); break;
        case kSleep: sleep_till(MAC_get_number()); break;
        case kGo: {
            const std::int32_t place = MAC_get_number();
            go_to(static_cast<Place>(std::clamp<std::int32_t>(place, kStudy, kLake)), Side::kStart);
            break;
        }
        case kPlay: play(static_cast<Sound>(MAC_get_number())); break;
        case kAskName: set_name(enter_name(draw_scene)); break;
        case kPaint: paint_moon(); break;
        case kMoonrise: let_moon_rise(); break;
        case kTheEnd: set(kFinished, 1); break;
        case kNameThing: {
            const std::int32_t key = MAC_get_number();
            name_thing(key, read_both());
            break;
        }
        case kNameCarried: {
            const std::int32_t thing = MAC_get_number();
            name_carried(thing, read_both());
            break;
        }
        case kNameSpeaker: {
            const std::int32_t speaker = MAC_get_number();
            const Both name = read_both();
            name_speaker(speaker, name.chinese, name.english);
            break;
        }
        default: return -1;  // the script was made for another game
    }
    constexpr std::int32_t kStop = 1;
    return window_closed() ? kStop : 0;
}

}  // namespace

bool begin_script() {
    if (MAC_init(".", ".", kVariables, command) != 0 || MAC_load(kScriptFile) != 0) return false;
    run(kNames);
    return true;
}

void run(int procedure) {
    answers.clear();
    MAC_driver(procedure);
}

}  // namespace moon
