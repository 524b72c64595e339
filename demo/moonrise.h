// The moon that was painted: it rises out of the lake and stands in the sky, mirrored in the water.
#pragma once

namespace moon {

// The boat goes out, the painting is laid on the water, the moon rises and the light of the night brightens.
void let_moon_rise();

// What is to be seen at the lake afterwards: the moon, its image in the water, the boat, and everyone on the
// jetty.
void draw_risen_moon();

}  // namespace moon
