// Upkeep after every change of geometry: face normals, shading normals and bounds.
#pragma once

#include "scene/Scene.h"

namespace korvane {

/// An axis-aligned box. As computed here it starts inverted at the edge of the working range, so a
/// box of no vertices has minimum 999 and maximum -999.
struct Bounds {
    Vec3 min{999, 999, 999};
    Vec3 max{-999, -999, -999};

    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// Unit normal of (A - C) x (B - C); all zero for points on one line.
Vec3 FaceNormal(const Vec3& a, const Vec3& b, const Vec3& c);

/// Recomputes the face normals of the brush and the shading normals of its corners: a corner of a
/// side (polygonId above 2) averages the distinct normals of all sides that meet its vertex; caps
/// stay flat. The average is not of unit length. Takes time in proportion to the faces, however
/// many of them meet in one vertex.
void UpdateBrushNormals(Brush& brush);

/// UpdateBrushNormals of every selected brush.
void UpdateSelectedNormals(Scene& scene);

/// Bounds of the brush's vertices.
Bounds BrushBounds(const Brush& brush);

/// Bounds of all vertices of all selected brushes.
Bounds SelectionBounds(const Scene& scene);

/// Bounds of all vertices of all brushes, outside the working range as well; all zero when there
/// are none. Coordinates that are not numbers do not count.
Bounds SceneBounds(const Scene& scene);

}  // namespace korvane
