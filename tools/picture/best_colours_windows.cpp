// By the imaging component that every Windows has.
#include <windows.h>

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <stdexcept>

#include "picture/best_colours.h"
#include "png/imaging.h"

namespace ink::tool {

std::vector<Rgb> best_colours(const std::vector<ColourPicture> &pictures, int count) {
    constexpr const char *kWhat = "the colours cannot be chosen";
    std::vector<std::uint8_t> bgra;  // of all pictures one under the other, one pixel a row
    for (const ColourPicture &picture : pictures)
        for (const auto &[red, green, blue, opacity] : picture.pixels)
            if (opacity >= kOpaque) bgra.insert(bgra.end(), {blue, green, red, 255});
    if (bgra.empty()) return {};
    Com<IWICBitmap> bitmap;
    Com<IWICPalette> palette;
    check(
        imaging().CreateBitmapFromMemory(1, static_cast<UINT>(bgra.size() / 4), GUID_WICPixelFormat32bppBGRA,
                                         4, static_cast<UINT>(bgra.size()), bgra.data(), bitmap.to()),
        kWhat);
    check(imaging().CreatePalette(palette.to()), kWhat);
    check(palette->InitializeFromBitmap(bitmap.get(), static_cast<UINT>(std::max(2, count)), FALSE), kWhat);
    std::array<WICColor, 256> made{};
    UINT made_count = 0;
    check(palette->GetColors(static_cast<UINT>(made.size()), made.data(), &made_count), kWhat);
    std::vector<Rgb> colours;
    for (UINT i = 0; i < std::min(made_count, static_cast<UINT>(count)); ++i)
        colours.push_back({static_cast<int>(made[i] >> 18 & 63), static_cast<int>(made[i] >> 10 & 63),
                           static_cast<int>(made[i] >> 2 & 63)});
    return colours;
}

}  // namespace ink::tool
