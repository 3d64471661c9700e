// The mesh builder of the 3DS export as it is defined: every corner of a smooth triangle is
// compared with every vertex of the open object, from the one added last to the first. Slow; the
// reference that the fast builder has to equal.
#pragma once

#include <array>
#include <utility>

#include "export/MeshBuilder.h"

namespace korvane::plain {

class MeshBuilder {
  public:
    explicit MeshBuilder(Model3DS& model) : model_(model) {}

    void AddTriangle(const Vec3& p1, const Vec3& p2, const Vec3& p3, const TexCoord& uv1,
                     const TexCoord& uv2, const TexCoord& uv3, std::uint8_t smooth) {
        const std::array<Vec3, 3> points{p1, p2, p3};
        const std::array<TexCoord, 3> uvs{uv1, uv2, uv3};
        std::array<std::ptrdiff_t, 3> found{-1, -1, -1};
        for (std::size_t i = 0; smooth != 0 && i < 3; ++i) found[i] = Find(points[i]);
        Face3DS face;
        face.smooth = smooth;
        for (std::size_t i = 0; i < 3; ++i) {
            if (found[i] < 0) {
                found[i] = std::ssize(open_.vertices);
                open_.vertices.push_back(points[i]);
                open_.texCoords.push_back(uvs[i]);
            }
            face.corners[i] = static_cast<std::uint16_t>(found[i]);
        }
        open_.faces.push_back(face);
        if (open_.faces.size() == korvane::MeshBuilder::kMostTriangles) EndObject();
    }

    void EndObject() {
        if (!open_.faces.empty()) AddModelObject(model_, std::exchange(open_, {}));
    }

  private:
    std::ptrdiff_t Find(const Vec3& p) const {
        for (std::ptrdiff_t i = std::ssize(open_.vertices) - 1; i >= 0; --i) {
            const Vec3& v = open_.vertices[static_cast<std::size_t>(i)];
            if (v.x == p.x && v.y == p.y && v.z == p.z) return i;
        }
        return -1;
    }

    Model3DS& model_;
    Object3DS open_;
};

}  // namespace korvane::plain
