// Every page of the gallery is the kept one, which the manual shows. After an intended change the kept pages
// are drawn anew: build/release/examples/gallery/gallery docs/gallery
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "support/pictures.h"

namespace fs = std::filesystem;

TEST(Gallery, PagesAreTheKeptOnes) {
    ASSERT_EQ(std::system(GALLERY_PROGRAM " drawn"), 0);
    std::set<fs::path> kept, drawn;
    for (const auto &entry : fs::directory_iterator(GALLERY_PAGES)) kept.insert(entry.path().filename());
    for (const auto &entry : fs::directory_iterator("drawn")) drawn.insert(entry.path().filename());
    EXPECT_EQ(drawn, kept);
    for (const fs::path &name : kept)
        if (drawn.contains(name)) test::expect_same_picture(GALLERY_PAGES / name, "drawn" / name);
}
