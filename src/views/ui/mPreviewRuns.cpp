#include "views/ui/mPreviewRuns.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "scene/mConvex.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

/// Bounds beyond this say nothing reliable; world units.
constexpr float kUnbounded = 1e6F;

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

/// Depth of the nearest point of a box: clip coordinate w.
float NearestDepth(const std::array<double, 16>& m, const Vec3& min, const Vec3& max) {
    return float(m[3] * (m[3] < 0 ? max.x : min.x) + m[7] * (m[7] < 0 ? max.y : min.y) +
                 m[11] * (m[11] < 0 ? max.z : min.z) + m[15]);
}

bool IsBounded(const PreviewBrush& brush) {
    const auto inside = [](const Vec3& p) {
        return std::abs(p.x) < kUnbounded && std::abs(p.y) < kUnbounded &&
               std::abs(p.z) < kUnbounded;
    };
    return inside(brush.min) && inside(brush.max);
}

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

    void Add(const PreviewFace& face, ColorState color, std::uint32_t name,
             const PixelRect& shown) {
        if (out_.runs.empty() || !Continues(out_.runs.back(), face, color, name, shown)) {
            out_.runs.push_back({face.texture, color, name, shown,
                                 static_cast<std::uint32_t>(out_.corners.size()), 0});
        }
        out_.corners.insert(out_.corners.end(), face.corners.begin(), face.corners.end());
        out_.runs.back().count += 3;
    }

  private:
    static bool Continues(const PreviewRun& run, const PreviewFace& face, ColorState color,
                          std::uint32_t name, const PixelRect& shown) {
        return run.texture == face.texture && run.color == color && run.name == name &&
               run.shown == shown;
    }

    PreviewRuns& out_;
};

ColorState ColorOf(bool brushSelected, bool faceSelected) {
    if (!brushSelected) return ColorState::Plain;
    return faceSelected ? ColorState::SelectedFace : ColorState::SelectedBrush;
}

std::span<const PreviewFace> FacesOf(const PreviewMesh& mesh, const PreviewBrush& brush) {
    return {mesh.faces.data() + brush.firstFace, brush.faceCount};
}

/// Lists the brushes that the view volume meets, in scene order.
void FindItems(const PreviewMesh& mesh, const PreviewView& view, std::vector<DrawItem>& items) {
    const Frustum frustum(view.projection);
    const PixelRect everywhere{0, 0, view.width, view.height};
    items.clear();
    for (std::uint32_t b = 0; b < mesh.brushes.size(); ++b) {
        const PreviewBrush& brush = mesh.brushes[b];
        if (brush.faceCount == 0 || frustum.Excludes(brush.min, brush.max)) continue;
        items.push_back({b, 0, NearestDepth(view.projection, brush.min, brush.max), brush.min,
                         brush.max, everywhere});
    }
}

/// Whether the brush surely hides what is behind its front faces.
bool HidesOthers(PreviewBrush& built, const Brush& brush, bool showInvisible) {
    if (built.hasInvisible && !showInvisible) return false;
    if (built.solid == Solid::NotAsked) built.solid = IsConvexSolid(brush) ? Solid::Yes : Solid::No;
    return built.solid == Solid::Yes;
}

/// Leaves out the brushes that nearer ones hide, and puts the others in drawing order.
void KeepVisible(const Scene& scene, PreviewMesh& mesh, const PreviewView& view,
                 PreviewRuns& runs) {
    if (!runs.occlusion.Start(view.projection, view.width, view.height)) return;
    runs.nearFirst.clear();
    for (const DrawItem& item : runs.items) {
        runs.nearFirst.push_back({item.depth, std::uint32_t(runs.nearFirst.size())});
    }
    std::ranges::sort(runs.nearFirst);
    runs.visible.clear();
    for (const auto& [depth, place] : runs.nearFirst) {
        const DrawItem& item = runs.items[place];
        const PixelRect shown = runs.occlusion.Showing(item.min, item.max);
        if (shown.width == 0) continue;
        PreviewBrush& brush = mesh.brushes[item.brush];
        const std::int32_t texture = mesh.faces[brush.firstFace].texture;
        runs.visible.push_back(item);
        runs.visible.back().shown = shown;
        runs.visible.back().state = scene.brushes[item.brush].selected ? ~texture : texture;
        if (HidesOthers(brush, scene.brushes[item.brush], view.showInvisible)) {
            runs.occlusion.Add(FacesOf(mesh, brush), scene.brushes[item.brush].vertices);
        }
    }
    runs.order.Sort(runs.visible);
    runs.items.swap(runs.visible);
}

/// How a pick names what it draws.
enum class Naming { None, Brushes, FacesOfSelected };

Naming NamingOf(const Scene& scene, const PreviewView& view) {
    if (!view.PickRendering) return Naming::None;
    const bool faces = scene.editMode == FaceEdit && CountSelectedBrushes(scene) > 0;
    return faces ? Naming::FacesOfSelected : Naming::Brushes;
}

/// Writes the faces of the items.
void WriteRuns(const Scene& scene, const PreviewMesh& mesh, const PreviewView& view,
               PreviewRuns& runs) {
    RunWriter writer(runs);
    const Naming naming = NamingOf(scene, view);
    const bool oneSelected = naming != Naming::None && CountSelectedBrushes(scene) == 1;
    for (const DrawItem& item : runs.items) {
        const bool selected = scene.brushes[item.brush].selected;
        const bool namesFaces = naming == Naming::FacesOfSelected && oneSelected && selected;
        for (const PreviewFace& face : FacesOf(mesh, mesh.brushes[item.brush])) {
            if (face.invisible && !view.showInvisible) continue;
            if (IsTurnedAway(face, view.eye)) continue;
            const std::uint32_t name = namesFaces                  ? face.number
                                       : naming == Naming::Brushes ? item.brush
                                                                   : kNoPickName;
            writer.Add(face, ColorOf(selected, face.selected), name, item.shown);
        }
    }
}

}  // namespace

void GatherPreviewRuns(const Scene& scene, PreviewMesh& mesh, const PreviewView& view,
                       PreviewRuns& runs) {
    FindItems(mesh, view, runs.items);
    const bool bounded = std::ranges::all_of(
        runs.items, [&](const DrawItem& item) { return IsBounded(mesh.brushes[item.brush]); });
    if (bounded && !view.PickRendering) KeepVisible(scene, mesh, view, runs);
    WriteRuns(scene, mesh, view, runs);
}

}  // namespace korvane
