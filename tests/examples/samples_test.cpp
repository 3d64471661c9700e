// The sample content: every texture loads, and the stored objects are what their builders make of
// them, closed and facing outwards.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "examples/SampleKit.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "scene/mNormals.h"
#include "support/SceneMaker.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/mOGLTextures.h"

namespace korvane {
namespace {

const std::string kExamples = std::string(KORVANE_SOURCE_DIR) + "/examples/";
const std::string kTextures = kExamples + "ObjTextures/";

TextureLibrary Library() {
    TextureLibrary library;
    for (const std::string& name : TextureFilesIn(kTextures)) {
        cDIBSection image;
        EXPECT_EQ(LoadImageFile(kTextures + name, image), ImageLoaded) << name;
        EXPECT_TRUE(IsTextureSide(image.width) && IsTextureSide(image.height)) << name;
        library.AddTexture(name, image.width, image.height);
    }
    return library;
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

TEST_P(SampleObjects, AreClosedDressedAndWhatTheirBuildersMake) {
    const Scene built = GetParam().build(library);
    const std::vector<Brush> stored = Stored();
    EXPECT_GE(stored.size(), GetParam().leastBrushes);
    ASSERT_EQ(stored.size(), built.brushes.size());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        const Brush& brush = stored[i];
        SCOPED_TRACE(brush.name + " of " + brush.group);
        EXPECT_GT(SixfoldVolume(brush), 0);
        EXPECT_TRUE(IsClosed(brush));
        EXPECT_FALSE(brush.group.empty());
        for (const BrushFace& face : brush.faces) ASSERT_NE(face.texture, 0);
        EXPECT_EQ(brush.group, built.brushes[i].group);
        EXPECT_TRUE(SameVertices(brush, built.brushes[i]));
        EXPECT_TRUE(SameMapping(brush, built.brushes[i]));
    }
}

INSTANTIATE_TEST_SUITE_P(All, SampleObjects,
                         testing::Values(Sample{"house", BuildHouse, 100},
                                         Sample{"castle_tower", BuildCastleTower, 100},
                                         Sample{"chessboard", BuildChessboard, 301}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace korvane
