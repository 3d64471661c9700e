// The sample content: every texture loads and repeats without a seam, and the stored objects are
// what their builders make, closed, facing outwards and mapped for the textures as they are.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "examples/SampleKit.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "scene/mNormals.h"
#include "scene/mTextureCoords.h"
#include "support/SceneMaker.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/mOGLTextures.h"

namespace korvane {
namespace {

const std::string kExamples = std::string(KORVANE_SOURCE_DIR) + "/examples/";
const std::string kTextures = kExamples + "ObjTextures/";

cDIBSection Decoded(const std::string& name) {
    cDIBSection image;
    EXPECT_EQ(LoadImageFile(kTextures + name, image), ImageLoaded) << name;
    return image;
}

TextureLibrary Library() {
    TextureLibrary library;
    for (const std::string& name : TextureFilesIn(kTextures)) {
        const cDIBSection image = Decoded(name);
        library.AddTexture(name, image.width, image.height);
    }
    return library;
}

/// Mean difference of two rows or columns of pixels.
double Difference(const cDIBSection& image, bool columns, int first, int second) {
    const int length = columns ? image.height : image.width;
    double sum = 0;
    for (int i = 0; i < length; ++i) {
        for (int channel = 0; channel < 3; ++channel) {
            const auto at = [&](int line) {
                const int x = columns ? line : i, y = columns ? i : line;
                return int(image.pixels[std::size_t((y * image.width + x) * 3 + channel)]);
            };
            sum += std::abs(at(first) - at(second));
        }
    }
    return sum / (3 * length);
}

TEST(SampleTextures, LoadWithSidesThatTheProgramTakes) {
    const std::vector<std::string> names = TextureFilesIn(kTextures);
    EXPECT_GE(names.size(), 12U);
    std::set<std::pair<int, int>> sizes;
    for (const std::string& name : names) {
        const cDIBSection image = Decoded(name);
        EXPECT_TRUE(IsTextureSide(image.width) && IsTextureSide(image.height)) << name;
        sizes.insert({image.width, image.height});
    }
    EXPECT_THAT(sizes, testing::IsSupersetOf(std::vector<std::pair<int, int>>{
                           {64, 64}, {512, 512}, {256, 128}, {128, 256}}));
}

TEST(SampleTextures, UseEveryDecoder) {
    std::set<std::string> kinds;
    for (const std::string& name : TextureFilesIn(kTextures)) {
        const auto bytes = LoadFile(kTextures + name);
        ASSERT_TRUE(bytes && bytes->size() > 18) << name;
        const auto& b = *bytes;
        if (name.ends_with(".tga")) {
            kinds.insert("tga " + std::to_string(b[2]) + " " + std::to_string(b[16]) +
                         ((b[17] & 0x20) != 0 ? " top" : ""));
        } else {
            kinds.insert(b[0] == 'B' ? "bmp" : b[0] == 'G' ? "gif" : b[0] == 0xFF ? "jpeg" : name);
        }
    }
    EXPECT_THAT(kinds, testing::ElementsAre("bmp", "gif", "jpeg", "tga 10 24", "tga 10 32",
                                            "tga 2 24", "tga 2 24 top", "tga 2 32"));
}

TEST(SampleTextures, RepeatWithoutASeam) {
    for (const std::string& name : TextureFilesIn(kTextures)) {
        const cDIBSection image = Decoded(name);
        for (const bool columns : {true, false}) {
            const int count = columns ? image.width : image.height;
            double roughest = 0;
            for (int i = 0; i + 1 < count; ++i) {
                roughest = std::max(roughest, Difference(image, columns, i, i + 1));
            }
            EXPECT_LE(Difference(image, columns, count - 1, 0), roughest * 1.05)
                << name << (columns ? ", columns" : ", rows");
        }
    }
}

struct Sample {
    const char* name;
    Scene (*build)(TextureLibrary&);
    std::size_t leastBrushes;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.name;
}

class SampleObjects : public testing::TestWithParam<Sample> {
  protected:
    std::vector<Brush> Stored() {
        const auto bytes = LoadFile(kExamples + GetParam().name + ".kvobject");
        return bytes ? DecodeObject(*bytes, library, false).value() : std::vector<Brush>{};
    }

    TextureLibrary library = Library();
};

bool Near(double a, double b) {
    return std::abs(a - b) < 1e-4 * std::max(1.0, std::abs(a));
}

bool SameVertices(const Brush& a, const Brush& b) {
    return std::ranges::equal(a.vertices, b.vertices, [](const Vertex& p, const Vertex& q) {
        return Near(p.x, q.x) && Near(p.y, q.y) && Near(p.z, q.z);
    });
}

bool SameMapping(const Brush& a, const Brush& b) {
    return std::ranges::equal(a.faces, b.faces, [](const BrushFace& f, const BrushFace& g) {
        return f.texture == g.texture && f.smooth == g.smooth && f.rotation == g.rotation &&
               std::ranges::equal(f.uv, g.uv, [](const TexCoord& s, const TexCoord& t) {
                   return Near(s.u, t.u) && Near(s.v, t.v);
               });
    });
}

/// Six times the volume; negative for a brush turned inside out.
double SixfoldVolume(const Brush& brush) {
    double sum = 0;
    for (const BrushFace& face : brush.faces) {
        const Vec3 a = At(brush, face.a), b = At(brush, face.b), c = At(brush, face.c);
        sum += double(a.x) * (double(b.y) * c.z - double(b.z) * c.y) -
               double(a.y) * (double(b.x) * c.z - double(b.z) * c.x) +
               double(a.z) * (double(b.x) * c.y - double(b.y) * c.x);
    }
    return sum;
}

TEST_P(SampleObjects, AreClosedAndFaceOutwards) {
    const std::vector<Brush> brushes = Stored();
    EXPECT_GE(brushes.size(), GetParam().leastBrushes);
    for (const Brush& brush : brushes) {
        EXPECT_GT(SixfoldVolume(brush), 0) << brush.name << " of " << brush.group;
        EXPECT_TRUE(IsClosed(brush)) << brush.name << " of " << brush.group;
    }
}

TEST_P(SampleObjects, AreDressedAndMappedForTheTexturesAsTheyAre) {
    for (const Brush& brush : Stored()) {
        EXPECT_FALSE(brush.group.empty()) << brush.name;
        Brush again = brush;
        UpdateTextureCoords(again, {library});
        EXPECT_TRUE(SameMapping(brush, again)) << brush.name << " of " << brush.group;
        for (const BrushFace& face : brush.faces) ASSERT_NE(face.texture, 0) << brush.name;
    }
}

TEST_P(SampleObjects, AreWhatTheirBuildersMake) {
    const Scene built = GetParam().build(library);
    const std::vector<Brush> stored = Stored();
    ASSERT_EQ(stored.size(), built.brushes.size());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        EXPECT_EQ(stored[i].group, built.brushes[i].group);
        EXPECT_TRUE(SameVertices(stored[i], built.brushes[i])) << stored[i].name;
        EXPECT_TRUE(SameMapping(stored[i], built.brushes[i])) << stored[i].name;
    }
}

INSTANTIATE_TEST_SUITE_P(All, SampleObjects,
                         testing::Values(Sample{"house", BuildHouse, 100},
                                         Sample{"castle_tower", BuildCastleTower, 100},
                                         Sample{"chessboard", BuildChessboard, 301}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace korvane
