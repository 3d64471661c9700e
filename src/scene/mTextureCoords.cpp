// Projection of textures onto faces. Both mappings read the same table of axes and signs; they
// differ in what a coordinate is divided by.
#include "scene/mTextureCoords.h"

#include <algorithm>
#include <cmath>

#include "scene/mNormals.h"

namespace korvane {
namespace {

using Axes = std::array<double, 3>;

/// One texture direction on a face: along a world axis or against it.
struct Direction {
    std::size_t axis;
    bool against;
};

struct Projection {
    Direction u, v;
};

// Rows: facing X, Y, Z; columns: the normal points along the axis (0 included) or against it. The
// signs make a texture read the right way round from outside.
constexpr Projection kProjections[3][2] = {
    {{{2, true}, {1, false}}, {{2, false}, {1, false}}},
    {{{0, false}, {2, true}}, {{0, false}, {2, false}}},
    {{{0, false}, {1, false}}, {{0, true}, {1, false}}},
};

const Projection& ProjectionOf(const Vec3& normal) {
    const Vec3 n = Absolute(normal);
    if (n.x >= n.y || n.z >= n.y) {  // ties go to Z before X, and to both before Y
        return n.z >= n.x ? kProjections[2][normal.z < 0] : kProjections[0][normal.x < 0];
    }
    return kProjections[1][normal.y < 0];
}

struct Coordinate {
    double u, v;
};

/// Tiles of a fixed world size. A tile without size (a scale of 0) gives 0.
struct WorldMapping {
    double width, height;

    static double Along(const Axes& p, const Direction& d, double tile) {
        if (tile == 0) return 0;
        return (d.against ? -p[d.axis] : p[d.axis]) / tile;
    }

    Coordinate operator()(const Axes& p, const Projection& projection) const {
        return {Along(p, projection.u, width), Along(p, projection.v, height)};
    }
};

/// One copy over the bounds of the brush, repeated and moved.
struct LocalMapping {
    const Axes& min;
    const Axes& max;
    const BrushFace& face;

    double Along(const Axes& p, const Direction& d, double repeat, double offset) const {
        const double size = max[d.axis] - min[d.axis];
        if (!(size > 0)) return offset;  // flat: vertex editing can do that
        const double distance = d.against ? min[d.axis] - p[d.axis] : p[d.axis] - min[d.axis];
        return distance / size * repeat + offset;
    }

    Coordinate operator()(const Axes& p, const Projection& projection) const {
        return {Along(p, projection.u, face.repeatX, face.offsetX),
                Along(p, projection.v, face.repeatY, face.offsetY)};
    }
};

/// The settings applied last: flip, mirror, rotation, in this order.
class Finish {
  public:
    explicit Finish(const BrushFace& face)
        : flipped_(face.flipped), mirrored_(face.mirrored), turned_(face.rotation >= 1) {
        if (!turned_) return;
        const double t = DegToRad(face.rotation);
        cos_ = std::cos(t);
        sin_ = std::sin(t);
    }

    TexCoord operator()(Coordinate t) const {
        if (flipped_) t.v = -t.v;
        if (mirrored_) t.u = -t.u;
        if (turned_) t = {t.u * cos_ - t.v * sin_, t.u * sin_ + t.v * cos_};
        return {static_cast<float>(t.u), static_cast<float>(t.v)};
    }

  private:
    bool flipped_, mirrored_, turned_;
    double cos_ = 1, sin_ = 0;
};

template <class Mapping>
void Project(const Brush& brush, BrushFace& face, const Mapping& mapping) {
    const Projection& projection = ProjectionOf(face.normal);
    const Finish finish(face);
    const std::int32_t corners[3] = {face.a, face.b, face.c};
    for (std::size_t i = 0; i < 3; ++i) {
        const Vertex& p = brush.vertices[static_cast<std::size_t>(corners[i])];
        face.uv[i] = finish(mapping(Axes{p.x, p.y, p.z}, projection));
    }
}

WorldMapping TilesOf(std::int32_t texture, const TextureSpace& space) {
    const double scale = space.TextureScale;
    return {space.library.TextureWidth(texture) * scale / 512,
            space.library.TextureHeight(texture) * scale / 512};
}

}  // namespace

void UpdateTextureCoords(Brush& brush, const TextureSpace& space) {
    const Bounds bounds = BrushBounds(brush);
    const Axes min{bounds.min.x, bounds.min.y, bounds.min.z};
    const Axes max{bounds.max.x, bounds.max.y, bounds.max.z};
    for (BrushFace& face : brush.faces) {
        if (face.localCoords) {
            Project(brush, face, LocalMapping{min, max, face});
        } else {
            Project(brush, face, TilesOf(face.texture, space));
        }
    }
    Touch(brush);
}

void UpdateSelectedTextureCoords(Scene& scene, const TextureSpace& space) {
    for (Brush& brush : scene.brushes) {
        if (brush.selected) UpdateTextureCoords(brush, space);
    }
}

void AssignTextureToBrush(Brush& brush, const TextureLibrary& library) {
    for (BrushFace& face : brush.faces) face.texture = library.Selected();
    Touch(brush);
}

void AssignTextureToSelectedBrushes(Scene& scene, const TextureLibrary& library) {
    for (Brush& brush : scene.brushes) {
        if (brush.selected) AssignTextureToBrush(brush, library);
    }
}

void AssignTextureToSelectedFaces(Scene& scene, const TextureSpace& space) {
    for (Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        bool changed = false;
        for (BrushFace& face : brush.faces) {
            if (!face.selected) continue;
            face.texture = space.library.Selected();
            changed = true;
        }
        if (changed) UpdateTextureCoords(brush, space);
    }
}

}  // namespace korvane
