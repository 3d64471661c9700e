// Rotation, reflection and inversion. A point takes its way from the world to the centre and back
// in 64-bit floats and is rounded once, so that an angle of 0 or a whole turn leaves it in place.
#include "scene/mTransform.h"

#include <utility>

#include "scene/mNormals.h"

namespace korvane {
namespace {

void UpdateDerived(Brush& brush, const TextureSpace& space) {
    UpdateBrushNormals(brush);
    UpdateTextureCoords(brush, space);
}

/// Applies the change to every selected brush and brings what derives from it up to date.
template <class Change>
void ChangeSelected(Scene& scene, const TextureSpace& space, Change change) {
    for (Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        change(brush);
        UpdateDerived(brush, space);
    }
}

void TurnFacesOver(Brush& brush) {
    for (BrushFace& face : brush.faces) std::swap(face.a, face.c);
}

float Mirrored(float value, float centre, bool flip) {
    const double offset = double{value} - centre;
    return static_cast<float>((flip ? -offset : offset) + centre);
}

}  // namespace

Turn TurnAbout(const Vec3& centre, float ax, float ay, float az) {
    Turn turn{MatrixIdentity(), centre};
    const auto append = [&](const Matrix4& m) { turn.rotation = MatrixMultiply(turn.rotation, m); };
    if (ay != 0) append(MatrixRotateY(DegToRad(ay)));
    if (ax != 0) append(MatrixRotateX(DegToRad(ax)));
    if (az != 0) append(MatrixRotateZ(DegToRad(az)));
    return turn;
}

Vec3 Turned(const Turn& turn, const Vec3& point) {
    const Vec3& c = turn.centre;
    const double x = double{point.x} - c.x;
    const double y = double{point.y} - c.y;
    const double z = double{point.z} - c.z;
    const auto row = [&](std::size_t r, float centre) {
        const float* m = &turn.rotation[4 * r];
        return static_cast<float>(m[0] * x + m[1] * y + m[2] * z + centre);
    };
    return {row(0, c.x), row(1, c.y), row(2, c.z)};
}

void TurnBrush(Brush& brush, const Turn& turn, const TextureSpace& space) {
    for (Vertex& v : brush.vertices) v.MoveTo(Turned(turn, v.Position()));
    UpdateDerived(brush, space);
}

Vec3 SelectionCentre(const Scene& scene) {
    const Bounds bounds = SelectionBounds(scene);
    return Midpoint(bounds.min, bounds.max);
}

void RotateSelection(Scene& scene, float ax, float ay, float az, const TextureSpace& space) {
    const Vec3 centre = scene.markerShown ? scene.marker : SelectionCentre(scene);
    const Turn turn = TurnAbout(centre, ax, ay, az);
    for (Brush& brush : scene.brushes) {
        if (brush.selected) TurnBrush(brush, turn, space);
    }
}

void FlipSelection(Scene& scene, bool fx, bool fy, bool fz, const TextureSpace& space) {
    const Vec3 c = SelectionCentre(scene);
    ChangeSelected(scene, space, [&](Brush& brush) {
        for (Vertex& v : brush.vertices) {
            v.MoveTo({Mirrored(v.x, c.x, fx), Mirrored(v.y, c.y, fy), Mirrored(v.z, c.z, fz)});
        }
        TurnFacesOver(brush);
    });
}

void InvertSelection(Scene& scene, const TextureSpace& space) {
    ChangeSelected(scene, space, TurnFacesOver);
}

}  // namespace korvane
