// The texture table and its lookups.
#include <gtest/gtest.h>

#include "textures/core/TextureLibrary.h"

namespace korvane {
namespace {

TEST(TextureLibraryTest, LookupsIgnoreCaseAndFallBackToThePlaceholder) {
    TextureLibrary library;
    library.AddTexture("brick.jpg", 256, 128);
    library.AddTexture("wall.old.tga", 64, 64);
    library.AddTexture("brick.bmp", 32, 32);
    EXPECT_EQ(library.IDByFileName("BRICK.JPG"), 1);
    EXPECT_EQ(library.IDByName("Brick"), 1) << "of two with one name the first is found";
    EXPECT_EQ(library.TextureName(2), "wall.old") << "only the last extension is cut";
    EXPECT_EQ(library.IDByFileName("unknown.bmp"), 0);
    EXPECT_EQ(library.IDByName("no material"), 0);
}

TEST(TextureLibraryTest, IndicesOutsideTheTableAreHarmless) {
    TextureLibrary library(64, 32);
    library.AddTexture("brick.jpg", 256, 128);
    library.SelectTexture(1);
    library.SelectTexture(2);
    library.SelectTexture(-1);
    EXPECT_EQ(library.Selected(), 1);
    EXPECT_EQ(library.TextureName(2), "");
    EXPECT_EQ(library.TextureName(-1), "");
    EXPECT_EQ(library.TextureWidth(99), 64);
}

}  // namespace
}  // namespace korvane
