// The object file: reference files written by hand from the layout, and what the writer makes of a
// scene. Hostile files are in hostile_object_test.cpp.
#include <gtest/gtest.h>

#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;

Bytes Golden(const std::string& name) {
    Bytes bytes = test::FileBytes(std::string(KORVANE_GOLDEN_DIR) + "/" + name);
    EXPECT_FALSE(bytes.empty()) << name;
    return bytes;
}

/// The textures that the reference files use.
TextureLibrary GoldenLibrary() {
    TextureLibrary library;
    library.AddTexture("unused.bmp", 64, 64);
    library.AddTexture("F\u00FC\u00DFe \u20AC.jpg", 64, 64);
    library.AddTexture("Mauer.bmp", 64, 64);
    return library;
}

Scene SceneOf(std::vector<Brush> brushes) {
    Scene scene;
    scene.brushes = std::move(brushes);
    return scene;
}

TEST(ObjectFileTest, GoldenFilesComeBackByteForByte) {
    const TextureLibrary library = GoldenLibrary();
    for (const bool withSelection : {false, true}) {
        const Bytes bytes = Golden(withSelection ? "snapshot.kvobject" : "scene.kvobject");
        auto brushes = DecodeObject(bytes, library, withSelection);
        ASSERT_TRUE(brushes);
        EXPECT_EQ(EncodeObject(SceneOf(*brushes), library, withSelection), bytes);
        EXPECT_FALSE(DecodeObject(bytes, library, !withSelection)) << "the layouts differ";
    }
}

TEST(ObjectFileTest, NamesThatTheLibraryLacksCanBeKept) {
    const Bytes bytes = Golden("scene.kvobject");
    TextureLibrary library;
    library.AddTexture("MAUER.BMP", 256, 256);
    auto brushes = DecodeObjectAndNames(bytes, library);
    ASSERT_TRUE(brushes);
    EXPECT_EQ(library.ListCount(), 3);
    EXPECT_EQ(library.TextureFilename(2), "F\u00FC\u00DFe \u20AC.jpg");
    TextureLibrary names;
    brushes = DecodeObjectAndNames(bytes, names);
    ASSERT_TRUE(brushes);
    EXPECT_EQ(EncodeObject(SceneOf(*brushes), names, false), bytes);
}

TEST(ObjectFileTest, EveryFieldOfTheGoldenFileHasItsMeaning) {
    const auto brushes = DecodeObject(Golden("snapshot.kvobject"), GoldenLibrary(), true, 7);
    ASSERT_TRUE(brushes && brushes->size() == 2);
    const Brush& box = brushes->front();
    const Brush& cone = brushes->back();
    EXPECT_EQ(box.name, "Brush-0007");
    EXPECT_EQ(cone.name, "Brush-0008");
    EXPECT_EQ(box.group, "T\u00FCrme");
    EXPECT_EQ(box.shape, Box);
    EXPECT_EQ(cone.shape, Cone);
    EXPECT_FALSE(box.selected);
    EXPECT_TRUE(cone.selected);
    EXPECT_NE(box.revision, cone.revision);
    ASSERT_EQ(box.vertices.size(), 8U);
    EXPECT_EQ(box.vertices[5].Position(), (Vec3{1, -1, -1}));
    ASSERT_EQ(box.faces.size(), 12U);
    ASSERT_EQ(cone.faces.size(), 6U);

    const BrushFace& face = box.faces[10];
    EXPECT_EQ((std::array{face.polygonId, face.a, face.b, face.c}), (std::array{6, 3, 0, 4}));
    EXPECT_EQ(face.uv[0], (TexCoord{10, 10.125F}));
    EXPECT_EQ(face.uv[2], (TexCoord{10.5F, 10.625F}));
    EXPECT_EQ((std::array{face.offsetX, face.offsetY, face.repeatX, face.repeatY}),
              (std::array{5.0F, -2.5F, 11.0F, 0.1F}));
    EXPECT_EQ((std::array{face.transparency, face.rotation}), (std::array{100, 60}));
    EXPECT_EQ(face.texture, 2) << "material 1";
    EXPECT_EQ(box.faces[9].texture, 3) << "material 0";
    EXPECT_EQ(box.faces[11].texture, 0) << "the material without a name";
    EXPECT_EQ(face.smooth, 0);
    EXPECT_EQ(box.faces[9].smooth, 1);
    EXPECT_EQ(face.normal, (Vec3{-1, 0, 0})) << "recomputed";
    const std::array<int, 7> flags = {0, 1, 2, 4, 8, 15, 9};
    for (int f = 0; f < 12; ++f) {
        const BrushFace& flagged = box.faces[f];
        EXPECT_EQ(flagged.selected, f % 4 == 0) << f;
        EXPECT_EQ(flagged.invisible, (flags[f % 7] & 1) != 0) << f;
        EXPECT_EQ(flagged.localCoords, (flags[f % 7] & 2) != 0) << f;
        EXPECT_EQ(flagged.flipped, (flags[f % 7] & 4) != 0) << f;
        EXPECT_EQ(flagged.mirrored, (flags[f % 7] & 8) != 0) << f;
    }
}

TEST(ObjectFileTest, ReadsWhatOtherVersionsWrite) {
    const auto brushes = DecodeObject(Golden("foreign.kvobject"), GoldenLibrary(), false);
    ASSERT_TRUE(brushes && brushes->size() == 3);
    const Brush& first = brushes->front();
    EXPECT_EQ(first.name, "Brush-0000") << "the stored name is not used";
    EXPECT_EQ(first.group, "old");
    EXPECT_EQ(first.shape, Sphere) << "narrowed to 16 bits";
    EXPECT_EQ((*brushes)[2].shape, Box);
    EXPECT_EQ((*brushes)[2].vertices.at(0).Position(), (Vec3{1, 2, 3}));

    // No material, no extension, an unknown one, a next one, and two not in the library.
    const std::pair<std::int32_t, int> expected[] = {{0, 1}, {0, 0}, {3, 0},
                                                     {2, 1}, {0, 1}, {0, 1}};
    ASSERT_EQ(first.faces.size(), std::size(expected));
    for (std::size_t f = 0; f < std::size(expected); ++f)
        EXPECT_EQ(std::pair(first.faces[f].texture, int{first.faces[f].smooth}), expected[f]) << f;
}

TEST(ObjectFileTest, NamesEqualIgnoringCaseShareAMaterial) {
    TextureLibrary library;
    library.AddTexture("Stone.bmp", 64, 64);
    library.AddTexture("H\u00DCGEL.bmp", 64, 64);
    library.AddTexture("stone.BMP", 64, 64);
    library.AddTexture("h\u00FCgel.bmp", 64, 64);
    Scene scene;
    Brush& brush = scene.brushes[AddBrush(scene, "", "")];
    AddVertex(brush, {}, false);
    constexpr std::int32_t kOutside = 99;
    for (const std::int32_t texture : {3, 4, 1, 2, 0, kOutside, -1}) {
        brush.faces[AddFace(brush, 0, 0, 0, 1)].texture = texture;
    }
    const Bytes bytes = EncodeObject(scene, library, false);

    FileReader file(bytes);
    file.Skip(24);
    ASSERT_EQ(file.ReadLong(), 3);
    EXPECT_EQ(file.ReadCountedString(), "stone.BMP") << "spelled as first met";
    EXPECT_EQ(file.ReadCountedString(), "h\u00FCgel.bmp");
    EXPECT_EQ(file.ReadCountedString(), "") << "textures outside the library have no name either";
    const auto brushes = DecodeObject(bytes, library, false);
    ASSERT_TRUE(brushes);
    const std::int32_t expected[] = {1, 2, 1, 2, 0, 0, 0};
    for (std::size_t f = 0; f < std::size(expected); ++f) {
        EXPECT_EQ((*brushes)[0].faces[f].texture, expected[f]) << f;
    }
}

TEST(ObjectFileTest, SizeFieldsCountCharacters) {
    Scene scene;
    AddBrush(scene, "\u20AC\u20AC", "gr\u00FC");
    for (int i = 0; i < 2; ++i) AddVertex(scene.brushes[0], {}, false);
    const Bytes bytes = EncodeObject(scene, TextureLibrary(), false);
    FileReader file(bytes);
    file.Skip(4);
    EXPECT_EQ(file.ReadLong(), 16 + (16 + 2 + 3 + 24 + 2 * 88) + 12);
    file.Skip(4 + 16 + 4);
    EXPECT_EQ(file.ReadLong(), 16 + 2 + 3 + 24 + 2 * 88) << "not the length of the chunk";
}

}  // namespace
}  // namespace korvane
