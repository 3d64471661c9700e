#include "views/ui/mPreviewMesh.h"

#include <algorithm>
#include <cmath>

#include "scene/mSelection.h"

namespace korvane {
namespace {

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
    face.normal = {float(nx / length), float(ny / length), float(nz / length)};
    face.distance = (nx * a.x + ny * a.y + nz * a.z) / length;
}

void Include(PreviewBrush& brush, const Vec3& p) {
    brush.min = {std::min(brush.min.x, p.x), std::min(brush.min.y, p.y),
                 std::min(brush.min.z, p.z)};
    brush.max = {std::max(brush.max.x, p.x), std::max(brush.max.y, p.y),
                 std::max(brush.max.z, p.z)};
}

/// Builds one brush at the ends of two tables.
class BrushBuilder {
  public:
    BrushBuilder(std::vector<PreviewCorner>& corners, std::vector<PreviewFace>& faces)
        : corners_(corners), faces_(faces) {}

    PreviewBrush Build(const Brush& brush) {
        constexpr float kFar = std::numeric_limits<float>::infinity();
        PreviewBrush built;
        built.revision = brush.revision;
        built.firstCorner = static_cast<std::uint32_t>(corners_.size());
        built.firstFace = static_cast<std::uint32_t>(faces_.size());
        built.min = {kFar, kFar, kFar};
        built.max = {-kFar, -kFar, -kFar};
        previous_ = {};
        previousCount_ = 0;
        for (const BrushFace& face : brush.faces) {
            if (NamesVertices(face, brush.vertices.size())) Add(brush, face, built);
        }
        built.cornerRoom = static_cast<std::uint32_t>(corners_.size()) - built.firstCorner;
        built.faceCount = static_cast<std::uint32_t>(faces_.size()) - built.firstFace;
        return built;
    }

  private:
    void Add(const Brush& brush, const BrushFace& face, PreviewBrush& built) {
        const std::array<std::int32_t, 3> indices = {face.a, face.b, face.c};
        PreviewFace added;
        std::array<Vec3, 3> points;
        for (int i = 0; i < 3; ++i) {
            points[i] = brush.vertices[indices[i]].Position();
            Include(built, points[i]);
            const Vec3& normal = face.smooth == 1 ? face.cornerNormals[i] : face.normal;
            added.corners[i] = Place({face.uv[i], normal, points[i]});
        }
        SetPlane(added, points[0], points[1], points[2]);
        added.texture = face.texture;
        added.selected = face.selected;
        added.invisible = face.invisible;
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
    BrushBuilder builder(mesh.corners, mesh.faces);
    for (const Brush& brush : scene.brushes) mesh.brushes.push_back(builder.Build(brush));
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
bool IsCurrent(const PreviewBrush& built, const Brush& brush) {
    return built.revision == brush.revision && brush.revision != 0;
}

}  // namespace

std::vector<CornerRange> UpdatePreviewMesh(PreviewMesh& mesh, const Scene& scene) {
    std::vector<CornerRange> changed;
    bool fits = mesh.brushes.size() == scene.brushes.size();
    for (std::size_t i = 0; fits && i < scene.brushes.size(); ++i) {
        if (IsCurrent(mesh.brushes[i], scene.brushes[i])) continue;
        fits = RebuildInPlace(mesh, mesh.brushes[i], scene.brushes[i]);
        if (fits) AddRange(changed, mesh.brushes[i]);
    }
    if (fits) return changed;
    BuildAll(mesh, scene);
    return {{0, static_cast<std::uint32_t>(mesh.corners.size())}};
}

namespace {

/// The view volume as six planes; a point is inside where all are positive.
class Frustum {
  public:
    explicit Frustum(const std::array<double, 16>& m) {
        for (int i = 0; i < 6; ++i) {
            const int row = i / 2;
            const double sign = i % 2 == 0 ? 1 : -1;
            for (int column = 0; column < 4; ++column) {
                planes_[i][column] = m[column * 4 + 3] + sign * m[column * 4 + row];
            }
        }
    }

    /// Whether the box lies wholly outside one plane, by more than rounding can explain.
    bool Excludes(const Vec3& min, const Vec3& max) const {
        return std::ranges::any_of(planes_, [&](const std::array<double, 4>& p) {
            const double x = p[0] * (p[0] > 0 ? max.x : min.x);
            const double y = p[1] * (p[1] > 0 ? max.y : min.y);
            const double z = p[2] * (p[2] > 0 ? max.z : min.z);
            const double size = std::abs(x) + std::abs(y) + std::abs(z) + std::abs(p[3]);
            return x + y + z + p[3] < -1e-5 * size;
        });
    }

  private:
    std::array<std::array<double, 4>, 6> planes_{};
};

/// Whether the face turns its back to the eye so clearly that OpenGL's rounding cannot see it
/// otherwise.
bool IsTurnedAway(const PreviewFace& face, const Vec3& eye) {
    const double along = double(face.normal.x) * eye.x + double(face.normal.y) * eye.y +
                         double(face.normal.z) * eye.z;
    const double margin = 1e-3 + 1e-6 * (std::abs(along) + std::abs(face.distance));
    return along - face.distance < -margin;
}

/// Collects triangles and opens a new run at every change of state.
class RunWriter {
  public:
    explicit RunWriter(PreviewRuns& out) : out_(out) {
        out_.corners.clear();
        out_.runs.clear();
    }

    void Add(const PreviewFace& face, ColorState color, std::uint32_t name) {
        if (out_.runs.empty() || !Continues(out_.runs.back(), face, color, name)) {
            out_.runs.push_back(
                {face.texture, color, name, static_cast<std::uint32_t>(out_.corners.size()), 0});
        }
        out_.corners.insert(out_.corners.end(), face.corners.begin(), face.corners.end());
        out_.runs.back().count += 3;
    }

  private:
    static bool Continues(const PreviewRun& run, const PreviewFace& face, ColorState color,
                          std::uint32_t name) {
        return run.texture == face.texture && run.color == color && run.name == name;
    }

    PreviewRuns& out_;
};

ColorState ColorOf(bool brushSelected, bool faceSelected) {
    if (!brushSelected) return ColorState::Plain;
    return faceSelected ? ColorState::SelectedFace : ColorState::SelectedBrush;
}

/// How a pick names what it draws.
enum class Naming { None, Brushes, FacesOfSelected };

Naming NamingOf(const Scene& scene, const PreviewView& view) {
    if (!view.PickRendering) return Naming::None;
    const bool faces = scene.editMode == FaceEdit && CountSelectedBrushes(scene) > 0;
    return faces ? Naming::FacesOfSelected : Naming::Brushes;
}

}  // namespace

void GatherPreviewRuns(const Scene& scene, const PreviewMesh& mesh, const PreviewView& view,
                       PreviewRuns& runs) {
    RunWriter writer(runs);
    const Frustum frustum(view.projection);
    const Naming naming = NamingOf(scene, view);
    const bool oneSelected = CountSelectedBrushes(scene) == 1;
    for (std::uint32_t b = 0; b < mesh.brushes.size(); ++b) {
        const PreviewBrush& brush = mesh.brushes[b];
        if (frustum.Excludes(brush.min, brush.max)) continue;
        const bool selected = scene.brushes[b].selected;
        const bool namesFaces = naming == Naming::FacesOfSelected && oneSelected && selected;
        for (std::uint32_t f = 0; f < brush.faceCount; ++f) {
            const PreviewFace& face = mesh.faces[brush.firstFace + f];
            if (face.invisible && !view.showInvisible) continue;
            if (IsTurnedAway(face, view.eye)) continue;
            const std::uint32_t name = namesFaces ? f : naming == Naming::Brushes ? b : kNoPickName;
            writer.Add(face, ColorOf(selected, face.selected), name);
        }
    }
}

}  // namespace korvane
