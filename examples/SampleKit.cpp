#include "examples/SampleKit.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "scene/mBrush.h"
#include "scene/mNormals.h"

namespace korvane {
namespace {

constexpr int kLastCap = 2;  // polygon ids up to here are caps

/// Repeats that give tiles of the wanted size on the side that the face belongs to.
struct Repeat {
    double x, y;
};

Repeat RepeatOf(const Vec3& normal, const Vec3& size, double width, double height) {
    const Vec3 n = Absolute(normal);
    if (n.y > n.x && n.y > n.z) return {size.x / width, size.z / height};
    return {(n.z >= n.x ? size.x : size.z) / width, size.y / height};
}

}  // namespace

void SampleKit::Texture(const std::string& filename, double tile) {
    const std::int32_t index = library_.IDByFileName(filename);
    if (index == 0) throw std::invalid_argument("no texture " + filename);
    library_.SelectTexture(index);
    tile_ = tile;
}

Brush& SampleKit::Block(const Vec3& low, const Vec3& high) {
    return Add(Box, low, high, 4);
}

Brush& SampleKit::Drum(double x, double z, double radius, double bottom, double top, int sides) {
    return Add(Box, {float(x - radius), float(bottom), float(z - radius)},
               {float(x + radius), float(top), float(z + radius)}, sides);
}

Brush& SampleKit::Spire(double x, double z, double radius, double bottom, double top, int sides) {
    return Add(Cone, {float(x - radius), float(bottom), float(z - radius)},
               {float(x + radius), float(top), float(z + radius)}, sides);
}

Brush& SampleKit::Ball(const Vec3& centre, double radius, int sides) {
    const auto r = float(radius);
    return Add(Sphere, {centre.x - r, centre.y - r, centre.z - r},
               {centre.x + r, centre.y + r, centre.z + r}, sides);
}

Brush& SampleKit::Add(BrushShape shape, const Vec3& low, const Vec3& high, int sides) {
    scene_.createShape = shape;
    const TextureSpace space{library_};
    Brush& brush = scene_.brushes.at(std::size_t(CreateBrush(scene_, low, high, sides, space)));
    brush.group = group_;
    Lay(brush);
    return brush;
}

void SampleKit::Lay(Brush& brush) const {
    const Bounds bounds = BrushBounds(brush);
    const Vec3 size = Difference(bounds.min, bounds.max);
    for (BrushFace& face : brush.faces) {
        face.localCoords = true;
        if (tile_ == 0) continue;
        const double width = tile_ * library_.TextureWidth(face.texture) / 256;
        const double height = tile_ * library_.TextureHeight(face.texture) / 256;
        const Repeat repeat = RepeatOf(face.normal, size, width, height);
        face.repeatX = float(repeat.x);
        face.repeatY = float(repeat.y);
    }
    UpdateTextureCoords(brush, {library_});
    Touch(brush);
}

void SampleKit::Reshape(Brush& brush, const std::function<Vec3(const Vec3&)>& move) {
    for (Vertex& vertex : brush.vertices) vertex.MoveTo(move(vertex.Position()));
    UpdateBrushNormals(brush);
    Lay(brush);
}

void SampleKit::Taper(Brush& brush, double factor) {
    const Bounds bounds = BrushBounds(brush);
    const Vec3 middle = Midpoint(bounds.min, bounds.max);
    Reshape(brush, [&](const Vec3& p) {
        const double scale = p.y > middle.y ? factor : 1.0;
        return Vec3{float(middle.x + (p.x - middle.x) * scale), p.y,
                    float(middle.z + (p.z - middle.z) * scale)};
    });
}

void SampleKit::Turn(Brush& brush, double degrees, double x, double z) {
    const Matrix4 turn = MatrixMultiply(
        MatrixTranslate(x, 0, z),
        MatrixMultiply(MatrixRotateY(DegToRad(degrees)), MatrixTranslate(-x, 0, -z)));
    Reshape(brush, [&](const Vec3& p) { return TransformPoint(turn, p); });
}

void SampleKit::TurnTexture(Brush& brush, int degrees) {
    for (BrushFace& face : brush.faces) face.rotation = degrees;
    UpdateTextureCoords(brush, {library_});
}

void SampleKit::MoveAhead(double distance) {
    for (Brush& brush : scene_.brushes) {
        for (Vertex& vertex : brush.vertices) vertex.z = float(vertex.z + distance);
        UpdateBrushNormals(brush);
        UpdateTextureCoords(brush, {library_});
        Touch(brush);
    }
}

void SampleKit::Smooth(Brush& brush) {
    for (BrushFace& face : brush.faces) face.smooth = face.polygonId > kLastCap;
}

}  // namespace korvane
