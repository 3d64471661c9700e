#include "views/ui/mPreviewMesh.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace korvane {
namespace {

/// Bounds beyond this say nothing reliable; world units.
constexpr float kUnbounded = 1e6F;

bool IsBounded(const BoundingBox& bounds) {
    const auto inside = [](const Vec3& p) {
        return std::abs(p.x) < kUnbounded && std::abs(p.y) < kUnbounded &&
               std::abs(p.z) < kUnbounded;
    };
    return inside(bounds.min) && inside(bounds.max);
}

bool NamesVertices(const BrushFace& face, std::size_t vertexCount) {
    const auto inside = [&](std::int32_t index) {
        return index >= 0 && static_cast<std::size_t>(index) < vertexCount;
    };
    return inside(face.a) && inside(face.b) && inside(face.c);
}

void SetPlane(PreviewFace& face, const Vec3& a, const Vec3& b, const Vec3& c) {
    const double px = double(a.x) - c.x, py = double(a.y) - c.y, pz = double(a.z) - c.z;
    const double qx = double(b.x) - c.x, qy = double(b.y) - c.y, qz = double(b.z) - c.z;
    const double nx = py * qz - pz * qy, ny = pz * qx - px * qz, nz = px * qy - py * qx;
    const double length = std::sqrt(nx * nx + ny * ny + nz * nz);
    if (!(length > 0)) return;
    const Vec3& n = face.normal = {float(nx / length), float(ny / length), float(nz / length)};
    face.distance = double(n.x) * a.x + double(n.y) * a.y + double(n.z) * a.z;
}

/// Builds one brush at the ends of two tables.
class BrushBuilder {
  public:
    BrushBuilder(std::vector<PreviewCorner>& corners, std::vector<PreviewFace>& faces)
        : corners_(corners), faces_(faces) {}

    PreviewBrush Build(const Brush& brush) {
        constexpr float kFar = std::numeric_limits<float>::infinity();
        PreviewBrush built;
        built.firstCorner = static_cast<std::uint32_t>(corners_.size());
        built.firstFace = static_cast<std::uint32_t>(faces_.size());
        built.bounds = {{kFar, kFar, kFar}, {-kFar, -kFar, -kFar}};
        previous_ = {};
        previousCount_ = 0;
        for (std::uint32_t number = 0; number < brush.faces.size(); ++number) {
            if (NamesVertices(brush.faces[number], brush.vertices.size()))
                Add(brush, number, built);
        }
        built.cornerRoom = static_cast<std::uint32_t>(corners_.size()) - built.firstCorner;
        built.faceCount = static_cast<std::uint32_t>(faces_.size()) - built.firstFace;
        return built;
    }

  private:
    void Add(const Brush& brush, std::uint32_t number, PreviewBrush& built) {
        const BrushFace& face = brush.faces[number];
        const std::array<std::int32_t, 3> indices = {face.a, face.b, face.c};
        PreviewFace added;
        added.number = number;
        std::array<Vec3, 3> points;
        for (int i = 0; i < 3; ++i) {
            points[i] = brush.vertices[indices[i]].Position();
            Include(built.bounds, {points[i], points[i]});
            const Vec3& normal = face.smooth == 1 ? face.cornerNormals[i] : face.normal;
            added.corners[i] = Place({face.uv[i], normal, points[i]});
            added.points[i] = static_cast<std::uint32_t>(indices[i]);
        }
        SetPlane(added, points[0], points[1], points[2]);
        added.texture = face.texture;
        added.selected = face.selected;
        added.invisible = face.invisible;
        built.hasInvisible = built.hasInvisible || added.invisible;
        previous_ = added.corners;
        previousCount_ = 3;
        faces_.push_back(added);
    }

    /// Triangles of one polygon stand together and share corners: look only at the one before.
    std::uint32_t Place(const PreviewCorner& corner) {
        for (int i = 0; i < previousCount_; ++i) {
            if (corners_[previous_[i]] == corner) return previous_[i];
        }
        corners_.push_back(corner);
        return static_cast<std::uint32_t>(corners_.size() - 1);
    }

    std::vector<PreviewCorner>& corners_;
    std::vector<PreviewFace>& faces_;
    std::array<std::uint32_t, 3> previous_{};
    int previousCount_ = 0;
};

void BuildAll(PreviewMesh& mesh, const Scene& scene) {
    mesh.corners.clear();
    mesh.faces.clear();
    mesh.brushes.clear();
    mesh.revisions.clear();
    BrushBuilder builder(mesh.corners, mesh.faces);
    for (const Brush& brush : scene.brushes) {
        mesh.brushes.push_back(builder.Build(brush));
        mesh.revisions.push_back(brush.revision);
    }
}

void BuildTree(PreviewMesh& mesh) {
    std::vector<PreviewTree::Leaf> leaves;
    mesh.loose.clear();
    for (std::uint32_t b = 0; b < mesh.brushes.size(); ++b) {
        const PreviewBrush& brush = mesh.brushes[b];
        if (brush.faceCount == 0) continue;
        if (IsBounded(brush.bounds)) {
            leaves.push_back({brush.bounds, b});
        } else {
            mesh.loose.push_back(b);
        }
    }
    mesh.tree.Build(std::move(leaves));
}

/// Tells the tree where a brush is now. False when the brush enters or leaves the tree.
bool FollowInTree(PreviewMesh& mesh, std::uint32_t index) {
    const PreviewBrush& brush = mesh.brushes[index];
    if (brush.faceCount == 0) return true;
    if (!IsBounded(brush.bounds)) return !mesh.tree.Holds(index);
    return mesh.tree.Move(index, brush.bounds);
}

/// Builds the brush anew in its old place; false when it does not fit there.
bool RebuildInPlace(PreviewMesh& mesh, PreviewBrush& place, const Brush& brush) {
    std::vector<PreviewCorner> corners;
    std::vector<PreviewFace> faces;
    PreviewBrush built = BrushBuilder(corners, faces).Build(brush);
    if (corners.size() > place.cornerRoom || faces.size() != place.faceCount) return false;
    for (PreviewFace& face : faces) {
        for (std::uint32_t& corner : face.corners) corner += place.firstCorner;
    }
    std::ranges::copy(corners, mesh.corners.begin() + place.firstCorner);
    std::ranges::copy(faces, mesh.faces.begin() + place.firstFace);
    built.firstCorner = place.firstCorner;
    built.cornerRoom = place.cornerRoom;
    built.firstFace = place.firstFace;
    place = built;
    return true;
}

void AddRange(std::vector<CornerRange>& ranges, const PreviewBrush& brush) {
    if (!ranges.empty() && ranges.back().first + ranges.back().count == brush.firstCorner) {
        ranges.back().count += brush.cornerRoom;
    } else {
        ranges.push_back({brush.firstCorner, brush.cornerRoom});
    }
}

/// Whether what was built for the brush still holds. A brush never touched has no stamp to tell by.
bool IsCurrent(std::uint64_t built, const Brush& brush) {
    return built == brush.revision && brush.revision != 0;
}

/// Asks for a brush that is looked at soon: nearly all are only asked for their stamp, so the time
/// goes by waiting for memory.
void FetchAhead([[maybe_unused]] const Scene& scene, [[maybe_unused]] std::size_t index) {
    constexpr std::size_t kAhead = 16;
#ifdef __GNUC__
    if (index + kAhead < scene.brushes.size()) {
        __builtin_prefetch(&scene.brushes[index + kAhead].revision);
    }
#endif
}

}  // namespace

std::vector<CornerRange> UpdatePreviewMesh(PreviewMesh& mesh, const Scene& scene) {
    std::vector<CornerRange> changed;
    bool fits = mesh.brushes.size() == scene.brushes.size();
    bool treeHolds = true;
    for (std::uint32_t i = 0; fits && i < scene.brushes.size(); ++i) {
        FetchAhead(scene, i);
        if (IsCurrent(mesh.revisions[i], scene.brushes[i])) continue;
        PreviewBrush& brush = mesh.brushes[i];
        fits = RebuildInPlace(mesh, brush, scene.brushes[i]);
        if (!fits) break;
        mesh.revisions[i] = scene.brushes[i].revision;
        AddRange(changed, brush);
        treeHolds = treeHolds && FollowInTree(mesh, i);
    }
    if (!fits) {
        BuildAll(mesh, scene);
        changed = {{0, static_cast<std::uint32_t>(mesh.corners.size())}};
    }
    if (!fits || !treeHolds || mesh.tree.IsWorn()) BuildTree(mesh);
    return changed;
}

}  // namespace korvane
