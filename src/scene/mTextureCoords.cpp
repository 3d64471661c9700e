// Projection of textures onto faces. Both mappings read the same table of axes and signs; they
// differ in what a coordinate is divided by.
#include "scene/mTextureCoords.h"

#include <cmath>
#include <limits>

#include "scene/mNormals.h"

namespace korvane {
namespace {

/// One texture direction on a face: along a world axis or against it.
struct Direction {
    float Vertex::*place;
    float Vec3::*bound;
    double sign;
};

constexpr Direction kAlongX{&Vertex::x, &Vec3::x, 1};
constexpr Direction kAgainstX{&Vertex::x, &Vec3::x, -1};
constexpr Direction kAlongY{&Vertex::y, &Vec3::y, 1};
constexpr Direction kAlongZ{&Vertex::z, &Vec3::z, 1};
constexpr Direction kAgainstZ{&Vertex::z, &Vec3::z, -1};

struct Projection {
    Direction u, v;
};

// Rows: facing X, Y, Z; columns: the normal points along the axis (0 included) or against it. The
// signs make a texture read the right way round from outside.
constexpr Projection kProjections[3][2] = {
    {{kAgainstZ, kAlongY}, {kAlongZ, kAlongY}},
    {{kAlongX, kAgainstZ}, {kAlongX, kAlongZ}},
    {{kAlongX, kAlongY}, {kAgainstX, kAlongY}},
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

/// World mapping of one direction: tiles of a fixed size. A tile without size (a scale of 0) gives
/// 0.
class Tiled {
  public:
    Tiled(const Direction& d, double tile)
        : place_(d.place),
          divisor_(tile == 0 ? std::numeric_limits<double>::infinity() : d.sign * tile) {}

    double operator()(const Vertex& p) const { return p.*place_ / divisor_; }

  private:
    float Vertex::*place_;
    double divisor_;
};

/// Local mapping of one direction: one copy over the bounds, repeated and moved. Without extent,
/// which vertex editing can bring about, every vertex lies at the start and gets the offset.
class Stretched {
  public:
    Stretched(const Direction& d, const Bounds& bounds, double repeat, double offset)
        : place_(d.place), start_(bounds.min.*d.bound), repeat_(repeat), offset_(offset) {
        const double size = bounds.max.*d.bound - start_;
        divisor_ = size > 0 ? d.sign * size : 1;
    }

    double operator()(const Vertex& p) const {
        return (p.*place_ - start_) / divisor_ * repeat_ + offset_;
    }

  private:
    float Vertex::*place_;
    double start_, divisor_, repeat_, offset_;
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

    TexCoord operator()(double u, double v) const {
        if (flipped_) v = -v;
        if (mirrored_) u = -u;
        if (!turned_) return Stored(u, v);
        return Stored(u * cos_ - v * sin_, u * sin_ + v * cos_);
    }

  private:
    static TexCoord Stored(double u, double v) {
        return {static_cast<float>(u), static_cast<float>(v)};
    }

    bool flipped_, mirrored_, turned_;
    double cos_ = 1, sin_ = 0;
};

/// Whether a coordinate changed.
template <class Mapping>
bool Project(const Brush& brush, BrushFace& face, const Mapping& u, const Mapping& v) {
    const Finish finish(face);
    const auto before = face.uv;
    const std::int32_t corners[3] = {face.a, face.b, face.c};
    for (std::size_t i = 0; i < 3; ++i) {
        const Vertex& p = brush.vertices[static_cast<std::size_t>(corners[i])];
        face.uv[i] = finish(u(p), v(p));
    }
    return face.uv != before;
}

/// World size of one tile of a texture.
struct Tile {
    double width, height;

    Tile(std::int32_t texture, const TextureSpace& space)
        : width(space.library.TextureWidth(texture) * double{space.TextureScale} / 512),
          height(space.library.TextureHeight(texture) * double{space.TextureScale} / 512) {}
};

/// Whether a coordinate of the brush changed.
bool ProjectFaces(Brush& brush, const TextureSpace& space) {
    const Bounds bounds = BrushBounds(brush);
    bool changed = false;
    for (BrushFace& face : brush.faces) {
        const auto& [u, v] = ProjectionOf(face.normal);
        if (face.localCoords) {
            changed |= Project(brush, face, Stretched(u, bounds, face.repeatX, face.offsetX),
                               Stretched(v, bounds, face.repeatY, face.offsetY));
        } else {
            const Tile tile(face.texture, space);
            changed |= Project(brush, face, Tiled(u, tile.width), Tiled(v, tile.height));
        }
    }
    return changed;
}

}  // namespace

void UpdateTextureCoords(Brush& brush, const TextureSpace& space) {
    ProjectFaces(brush, space);
    Touch(brush);
}

void UpdateAllTextureCoords(Scene& scene, const TextureSpace& space, KnownTextureCoords& known) {
    const std::int32_t listCount = space.library.ListCount();
    if (known.TextureScale != space.TextureScale || known.listCount != listCount) {
        known = {space.TextureScale, listCount, {}};
    }
    known.revisions.resize(scene.brushes.size());  // 0 is the stamp of no changed brush
    for (std::size_t i = 0; i < scene.brushes.size(); ++i) {
        Brush& brush = scene.brushes[i];
        if (brush.revision != 0 && brush.revision == known.revisions[i]) continue;
        if (ProjectFaces(brush, space)) Touch(brush);
        known.revisions[i] = brush.revision;
    }
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
