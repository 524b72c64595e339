#include "route.h"

#include "state.h"

namespace moon {
namespace {

using Goal = Player::Goal;
using What = Player::What;

// Scan codes.
constexpr int kEsc = 0x01, kTwo = 0x03, kOne = 0x02, kTab = 0x0F, kEnter = 0x1C, kF5 = 0x3F, kDown = 0x150,
              kUp = 0x148;
// Keys of the masks.
constexpr int kWest = 2, kEast = 3, kMasterKey = 10, kDesk = 11, kShelf = 12, kStove = 13, kBed = 14,
              kSellerKey = 20, kLanterns = 21, kGirlByDay = 24, kBoatmanKey = 30;

Goal use(int key) {
    return {What::kUse, Waiting::kPlay, key};
}
Goal hold(int thing) {
    return {What::kHold, Waiting::kPlay, thing};
}
Goal press(Waiting when, int scan_code) {
    return {What::kKey, when, scan_code};
}
// After a number of texts that are clicked away, or of milliseconds where nothing is waited for.
Goal picture(Waiting when, const char *name, int after = 0) {
    return {What::kPicture, when, after, name};
}

const std::vector<Goal> kBeginning = {
    picture(Waiting::kTitle, "title"),
    press(Waiting::kTitle, kDown),
    press(Waiting::kTitle, kEnter),
    picture(Waiting::kTitle, "title-english"),
    press(Waiting::kTitle, kDown),
    press(Waiting::kTitle, kEnter),
    press(Waiting::kTitle, kEnter),
    {What::kType, Waiting::kName, 0, "Mei"},
    picture(Waiting::kName, "name"),
    press(Waiting::kName, kEnter),
    picture(Waiting::kTime, "opening", 2600),
    picture(Waiting::kTime, "opening", 3200),
    picture(Waiting::kClick, "speech", 1),
    picture(Waiting::kPlay, "study"),
    press(Waiting::kPlay, kTab),
    picture(Waiting::kPlay, "names"),
    use(kMasterKey),
    picture(Waiting::kClick, "treasures", 3),
    use(kShelf),
    use(kShelf),
    picture(Waiting::kClick, "inkstone", 1),
    use(kStove),
    use(kEast),
    picture(Waiting::kPlay, "market"),
    use(kGirlByDay),
    picture(Waiting::kClick, "girl", 0),
    use(kEast),
    picture(Waiting::kPlay, "lake"),
    hold(kTea),
    picture(Waiting::kPlay, "strip"),
    use(kBoatmanKey),
    picture(Waiting::kClick, "boatman", 1),
    use(kWest),
    hold(kKite),
    use(kGirlByDay),
};

// Saved with a key, and left by the menu.
const std::vector<Goal> kLeaving = {
    press(Waiting::kPlay, kF5), press(Waiting::kPlay, kEsc),   picture(Waiting::kMenu, "menu"),
    press(Waiting::kMenu, kUp), press(Waiting::kMenu, kEnter),
};
const std::vector<Goal> kLeavingTitle = {press(Waiting::kTitle, kUp), press(Waiting::kTitle, kEnter)};
const std::vector<Goal> kComingBack = {press(Waiting::kTitle, kDown), press(Waiting::kTitle, kEnter)};

const std::vector<Goal> kEnd = {
    use(kWest),
    use(kBed),
    press(Waiting::kChoice, kOne),
    picture(Waiting::kPlay, "study-night"),
    use(kEast),
    picture(Waiting::kPlay, "market-night"),
    use(kSellerKey),
    use(kWest),
    use(kShelf),
    use(kEast),
    hold(kOil),
    use(kLanterns),
    picture(Waiting::kClick, "lanterns", 0),
    picture(Waiting::kPlay, "market-lit"),
    use(kEast),
    picture(Waiting::kPlay, "lake-night"),
    use(kBoatmanKey),
    picture(Waiting::kChoice, "riddle"),
    press(Waiting::kChoice, kTwo),
    use(kWest),
    use(kWest),
    use(kDesk),
    {What::kPaint, Waiting::kPainting},
    use(kEast),
    use(kEast),
    use(kBoatmanKey),
    picture(Waiting::kTime, "boat", 2500),
    picture(Waiting::kTime, "moonrise", 7000),
    picture(Waiting::kClick, "moon", 1),
    picture(Waiting::kClick, "seen", 2),
    picture(Waiting::kClick, "end", 3),
    {What::kDrop, Waiting::kTitle},
};

}  // namespace

std::vector<Goal> route(int half) {
    std::vector<Goal> goals;
    const auto add = [&goals](const std::vector<Goal> &more) {
        goals.insert(goals.end(), more.begin(), more.end());
    };
    if (half != 2) {
        add(kBeginning);
        add(kLeaving);
    }
    if (half != 1) {
        add(kComingBack);
        add(kEnd);
    }
    add(kLeavingTitle);
    return goals;
}

}  // namespace moon
