#include "views/ui/mPreviewRuns.h"

#include <cmath>

#include "scene/mSelection.h"

namespace korvane {
namespace {

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

/// How a pick names what it draws.
enum class Naming { None, Brushes, FacesOfSelected };

Naming NamingOf(const Scene& scene, const PreviewView& view) {
    if (!view.PickRendering) return Naming::None;
    const bool faces = scene.editMode == FaceEdit && CountSelectedBrushes(scene) > 0;
    return faces ? Naming::FacesOfSelected : Naming::Brushes;
}

}  // namespace

void GatherPreviewRuns(const Scene& scene, PreviewMesh& mesh, const PreviewView& view,
                       PreviewRuns& runs) {
    runs.brushes.Find(scene, mesh, view);
    RunWriter writer(runs);
    const Naming naming = NamingOf(scene, view);
    const bool oneSelected = naming != Naming::None && CountSelectedBrushes(scene) == 1;
    for (const DrawItem& item : runs.brushes.Items()) {
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

}  // namespace korvane
