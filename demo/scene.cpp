#include "scene.h"

#include <inkstone/inkstone.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "figure.h"
#include "frame.h"
#include "hero.h"
#include "light.h"
#include "mask.h"
#include "moonrise.h"
#include "picture.h"

namespace moon {
namespace {

constexpr std::int32_t kFigureCounter = 2;
constexpr int kLanterns = 21;

// Who stands where, and at what time of the day: 0 day, 1 night, 2 always.
struct Resident {
    int speaker, place, when, key;
    const char *name;
};
constexpr int kAlways = 2;
constexpr Resident kResidents[] = {{kMaster, kStudy, kAlways, 10, "master"},
                                   {kSeller, kMarket, kAlways, 20, "seller"},
                                   {kGirl, kMarket, 0, 24, "girl"},
                                   {kBoatman, kLake, kAlways, 30, "boatman"},
                                   {kGirl, kLake, 1, 36, "girl"}};

constexpr const char *kPlaceNames[] = {"study", "market", "lake"};

std::vector<std::uint8_t> picture, front, lantern_light, kite, boat;
Figure people[kSpeakers];
Both names[256];
std::uint8_t *keys = nullptr;  // of the frame
int speaking = kNarrator, highlighted = kNothing;
std::vector<int> far_floor, near_floor;  // height and percent of the size

std::string section() {
    return kPlaceNames[get(kPlace)];
}

bool is_here(const Resident &resident) {
    return resident.place == get(kPlace) && get(kMoonlit) == 0 &&
           (resident.when == kAlways || resident.when == get(kNight));
}

// The others and the hero, those farther off first.
void draw_people() {
    struct Standing {
        const Resident *resident;  // null for the hero
        int x, y;
        bool mirrored;
    };
    std::vector<Standing> all{{nullptr, hero_feet().x, hero_feet().y, false}};
    for (const Resident &resident : kResidents) {
        if (!is_here(resident)) continue;
        const std::vector<int> at = layout(section(), resident.name, {480, 400, 1});
        all.push_back({&resident, at[0], at[1], at[2] != 0});
    }
    std::stable_sort(all.begin(), all.end(), [](const auto &a, const auto &b) { return a.y < b.y; });
    for (const Standing &one : all) {
        if (one.resident == nullptr)
            draw_hero(percent_at(one.y));
        else
            draw_person(one.resident->speaker, one.x, one.y, percent_at(one.y), one.mirrored,
                        one.resident->key);
    }
}

}  // namespace

void load_scenes() {
    const char *const files[] = {"hero.can", "master.can", "seller.can", "girl.can", "boatman.can"};
    for (int i = kMaster; i < kNarrator; ++i) people[i].load(files[i]);
    kite = read_image("kite.img");
    boat = read_image("boat.img");
    load_hero();
}

void enter_place() {
    picture = read_screen(section() + ".pcx");
    load_mask(section() + "_m.pcx");
    front = read_image(section() + "_f.img");
    // Through them warm glass is laid once they are lit.
    lantern_light = cut_out(kLanterns);
    far_floor = layout(section(), "top", {340, 70});
    near_floor = layout(section(), "bottom", {470, 110});
}

void enter_by(Place place, Side side) {
    set(kPlace, place);
    enter_place();
    const Point start = layout_point(section(), "start", {320, 430});
    if (side == Side::kStart) place_hero(start);
    if (side == Side::kLeft) place_hero(layout_point(section(), "from_left", start));
    if (side == Side::kRight) place_hero(layout_point(section(), "from_right", start));
    turn_hero_to(INK_SCREEN_WIDTH / 2);
}

void draw_scene() {
    move_water();
    std::copy(picture.begin(), picture.end(), screen());
    keys = begin_mask();
    if (get(kPlace) == kMarket && get(kLanternsLit) != 0 && get(kNight) != 0)
        BUF_glass_mask_pest_image(0, 0, lantern_light.data(), screen(), kWarmGlass);
    if (get(kPlace) == kLake) {
        const Point hangs = layout_point("lake", "kite", {500, 120});
        if (get(kKiteDown) == 0) BUF_pest_image(hangs.x, hangs.y, kite.data(), screen());
        if (get(kMoonlit) == 0) {
            const Point lies = layout_point("lake", "boat", {400, 330});
            BUF_pest_image(lies.x, lies.y, boat.data(), screen());
        } else {
            draw_risen_moon();
        }
    }
    draw_people();
    BUF_pest_image(0, 0, front.data(), screen());
}

void name_thing(int key, const Both &name) {
    names[key & 0xFF] = name;
}

std::string name_of_thing(int key) {
    return in_language(names[key & 0xFF]);
}

bool is_person(int key) {
    return std::any_of(std::begin(kResidents), std::end(kResidents),
                       [key](const Resident &resident) { return resident.key == key; });
}

Point standing_point(int key) {
    const Point thing = point_of(key);
    const Point otherwise = thing.x < 0 ? hero_feet() : nearest_floor(thing.x, thing.y);
    return layout_point(section(), "stand_" + std::to_string(key), otherwise);
}

int percent_at(int y) {
    const int heights = std::max(1, near_floor[0] - far_floor[0]);
    return std::max(20, far_floor[1] + (near_floor[1] - far_floor[1]) * (y - far_floor[0]) / heights);
}

void let_speak(int speaker) {
    speaking = speaker;
}

void highlight(int key) {
    highlighted = key;
}

void draw_person(int speaker, int x, int y, int percent, bool mirrored, int key) {
    constexpr int kIdleFrames = 4, kTalkingFrames = 2;
    const std::uint32_t ticks = GetTimerTick(kFigureCounter) + static_cast<std::uint32_t>(speaker) * 5;
    Figure::Look look;
    look.frame = speaking == speaker ? kIdleFrames + static_cast<int>(ticks / 3 % kTalkingFrames)
                                     : static_cast<int>(ticks / 6 % kIdleFrames);
    look.percent = percent;
    look.mirrored = mirrored;
    look.key = key;
    look.outline = key != 0 && key == highlighted ? kGold : 0;
    people[speaker].draw(x, y, look, keys);
}

}  // namespace moon
