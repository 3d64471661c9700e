// Whole-brush transforms of the selection. Each ends with normals and texture coordinates, in that
// order, because the projection of a texture reads the face normal.
#pragma once

#include "scene/Scene.h"
#include "scene/mTextureCoords.h"

namespace korvane {

/// A rotation about a point of the world.
struct Turn {
    Matrix4 rotation = MatrixIdentity();
    Vec3 centre;
};

/// Degrees about Z, then X, then Y, seen from the centre.
Turn TurnAbout(const Vec3& centre, float ax, float ay, float az);

/// Where the turn takes a point.
Vec3 Turned(const Turn& turn, const Vec3& point);

/// Turns every vertex of the brush.
void TurnBrush(Brush& brush, const Turn& turn, const TextureSpace& space);

/// The middle of the selection's bounds; the origin when nothing is selected.
Vec3 SelectionCentre(const Scene& scene);

/// Turns the selected brushes by degrees about Z, then X, then Y: about the rotation marker while
/// it is shown, else about SelectionCentre.
void RotateSelection(Scene& scene, float ax, float ay, float az, const TextureSpace& space);

/// Mirrors the selected brushes across the flagged axes at SelectionCentre (the marker plays no
/// part) and turns their faces over, so that they still point outward.
void FlipSelection(Scene& scene, bool fx, bool fy, bool fz, const TextureSpace& space);

/// Turns the selected brushes inside out.
void InvertSelection(Scene& scene, const TextureSpace& space);

}  // namespace korvane
