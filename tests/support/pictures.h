// Pictures compared with kept ones. Where they differ, what was expected, what came and where they differ are
// left beside each other in the build directory.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "png/png_file.h"

namespace test {

inline void expect_same_picture(const std::filesystem::path &expected, const std::filesystem::path &actual) {
    const ink::tool::RgbPicture want = ink::tool::read_png_rgb(expected),
                                got = ink::tool::read_png_rgb(actual);
    if (want.width == got.width && want.height == got.height && want.rgb == got.rgb) return;

    namespace fs = std::filesystem;
    const fs::path place = PICTURE_DIFFERENCES, stem = expected.stem();
    fs::create_directories(place);
    const auto left = [&](const char *what) { return place / (stem.string() + "-" + what + ".png"); };
    fs::copy_file(expected, left("expected"), fs::copy_options::overwrite_existing);
    fs::copy_file(actual, left("actual"), fs::copy_options::overwrite_existing);
    if (want.rgb.size() == got.rgb.size()) {
        // White where they differ, over the expected picture in the dark.
        ink::tool::RgbPicture difference = want;
        for (std::size_t i = 0; i < want.rgb.size(); i += 3)
            for (std::size_t c = i; c < i + 3; ++c) {
                const bool same = std::equal(&want.rgb[i], &want.rgb[i] + 3, &got.rgb[i]);
                difference.rgb[c] = same ? want.rgb[c] / 4 : 255;
            }
        ink::tool::write_png_rgb(left("difference"), want.width, want.height, difference.rgb);
    }
    ADD_FAILURE() << stem << " is not the kept picture; see " << place;
}

}  // namespace test
