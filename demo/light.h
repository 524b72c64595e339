// The light of the scenes: the same pictures through another palette, the fades between them, and the glass
// that panels are made of.
#pragma once

namespace moon {

enum class Light { kDay, kDusk, kNight, kMoon };

// Where the ramps of the palette begin, dark to bright; entries 1 to 15 are the same in every light.
enum Colour : int {
    kInkBlack = 1,
    kGrey = 3,
    kPaperWhite = 5,
    kVermilion = 6,
    kJade = 7,
    kGold = 8,
    kBrightGold = 14,
    kWhite = 15,
    kWaterRamp = 48,  // 16 of them, which go round in a ring
    kPaperRamp = 96,
    kGoldRamp = 144,
    kInkRamp = 160,
    kMoonRamp = 240,
};

// Dark glass under texts, dim glass over a scene behind a menu, warm glass over what is lit.
enum Glass : int { kDarkGlass = 1, kDimGlass = 2, kWarmGlass = 3 };

void load_palettes();

// Fades from what is shown to a light, or to black. The picture on the screen stays.
void fade_to(Light light);
void fade_out();

// The same fade in steps, while the picture moves: progress goes from 0 to 1000.
void begin_slow_fade(Light light);
void slow_fade_to(int progress);

// Takes a light for the next fade and for the glass without showing it.
void prepare(Light light);

// The 768 bytes of the light prepared last.
const unsigned char *palette();

// Turns the water's colours one step further when it is time to.
void move_water();

}  // namespace moon
