#include "views/ui/mSelectionEngine.h"

#include <GL/glu.h>

#include <algorithm>
#include <array>
#include <set>

#include "optimizer/mPick.h"
#include "views/ui/mRender.h"

namespace korvane {
namespace {

using HitBuffer = std::array<GLuint, 2048>;

void UseVertices(const Brush& brush) {
    const Vertex* first = brush.vertices.data();
    glVertexPointer(3, GL_FLOAT, sizeof(Vertex), first ? &first->x : nullptr);
}

/// Adds the corners of a face, in the numbers of UseVertices, unless the brush lacks one.
void AddCorners(const Brush& brush, const BrushFace& face, std::vector<GLint>& corners) {
    const auto count = static_cast<std::int32_t>(brush.vertices.size());
    const auto [low, high] = std::minmax({face.a, face.b, face.c});
    if (low >= 0 && high < count) corners.insert(corners.end(), {face.a, face.b, face.c});
}

void DrawTriangles(std::vector<GLint>& corners) {
    if (corners.empty()) return;
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(corners.size()), GL_UNSIGNED_INT,
                   corners.data());
    corners.clear();
}

/// The name of the nearest record: the first of the smallest depth.
GLuint NearestName(const HitBuffer& buffer, GLint hits) {
    constexpr std::size_t kRecord = 4;  // name count, smallest depth, largest depth, name
    std::size_t best = 0;
    for (std::size_t i = 1; i < static_cast<std::size_t>(hits); ++i) {
        if (buffer[i * kRecord + 1] < buffer[best * kRecord + 1]) best = i;
    }
    return buffer[best * kRecord + 3];
}

void LoadPickProjection(const ClipRange& range) {
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    const double width = viewport[2];
    const double height = viewport[3];
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPickMatrix(width * 0.5, height * 0.5, 1.0, 1.0, viewport.data());
    gluPerspective(kPreviewFieldOfView, width / height, range.zNear, range.zFar);
}

/// Names and positions are all that counts: what costs time in the driver is switched off.
class SelectionState {
  public:
    SelectionState() {
        glPushAttrib(GL_ENABLE_BIT | GL_TRANSFORM_BIT);
        glDisable(GL_LIGHTING);
        glDisable(GL_TEXTURE_2D);
        glEnable(GL_CULL_FACE);
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
    }
    ~SelectionState() {
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glPopAttrib();
    }
    SelectionState(const SelectionState&) = delete;
    SelectionState& operator=(const SelectionState&) = delete;
};

class SelectionEngine final : public OptimizeEngine {
  public:
    SelectionEngine(RenderContext& context, const Scene& scene, const OptimizeOptions& options)
        : context_(context),
          scene_(scene),
          camera_(InViewportOf(context, options)),
          stops_(CameraStops(options)) {}

    bool OptimizeBrush(std::int32_t target, std::vector<bool>& invisible,
                       OptimizeWatch& watch) override {
        if (!MakePickBrushes(scene_, brushes_, watch)) return false;
        const std::int32_t others = scene_.brushCount() - 1;
        for (std::int32_t i = 0; i < others; ++i) {
            if (!OptimizePair(target, i < target ? i : i + 1, invisible, watch)) return false;
            watch.progress.shareOfBrush = double(i + 1) / others;
        }
        return true;
    }

  private:
    static StopCamera InViewportOf(const RenderContext& context, OptimizeOptions options) {
        options.viewportWidth = context.width;
        options.viewportHeight = context.height;
        return StopCamera(options);
    }

    const Brush& BrushAt(std::int32_t i) const {
        return scene_.brushes[static_cast<std::size_t>(i)];
    }

    bool OptimizePair(std::int32_t target, std::int32_t other, std::vector<bool>& invisible,
                      OptimizeWatch& watch) {
        const Brush& brush = BrushAt(target);
        const PickPair pair{brush, invisible, BrushAt(other)};
        const OrbitTarget orbit = OrbitOf(brush);
        std::set<std::int32_t> seen;
        for (const CameraStop& stop : stops_) {
            const StopView view =
                ViewBeside(camera_, stop, orbit, brushes_[static_cast<std::size_t>(other)]);
            // The poll may have drawn a frame of the preview, or lost the context.
            if (!MakeCurrent(context_)) return false;
            const std::int32_t face = SelectAtStop(stop, view, pair);
            if (face >= 0) seen.insert(brush.faces[static_cast<std::size_t>(face)].polygonId);
            if (!watch.GoOn(kWorkOfPick + brush.faces.size() + pair.other.faces.size())) {
                return false;
            }
        }
        for (std::size_t i = 0; i < invisible.size(); ++i) {
            invisible[i] = !seen.contains(brush.faces[i].polygonId);
        }
        return true;
    }

    static constexpr std::size_t kWorkOfPick = 500;  ///< in triangles of the watch

    RenderContext& context_;
    const Scene& scene_;
    StopCamera camera_;
    std::vector<CameraStop> stops_;
    std::vector<PickBrush> brushes_;
};

}  // namespace

/// With vertex arrays: the driver would keep each vertex that glVertex is given in selection mode.
void RenderPickPair(const PickPair& pair) {
    std::vector<GLint> corners;
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnableClientState(GL_VERTEX_ARRAY);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    UseVertices(pair.target);
    for (std::size_t i = 0; i < pair.target.faces.size(); ++i) {
        if (pair.invisible[i]) continue;
        glLoadName(static_cast<GLuint>(i));
        AddCorners(pair.target, pair.target.faces[i], corners);
        DrawTriangles(corners);
    }
    glLoadName(kNoPickName);
    UseVertices(pair.other);
    for (const BrushFace& face : pair.other.faces) AddCorners(pair.other, face, corners);
    DrawTriangles(corners);
    glPopClientAttrib();
}

std::int32_t SelectAtStop(const CameraStop& stop, const StopView& view, const PickPair& pair) {
    HitBuffer buffer{};
    const SelectionState state;
    glSelectBuffer(static_cast<GLsizei>(buffer.size()), buffer.data());
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(0);
    LoadPickProjection(view.range);
    ApplyCamera({view.eye.x, view.eye.y, view.eye.z, stop.pitch, stop.yaw, 0});
    RenderPickPair(pair);
    const GLint hits = glRenderMode(GL_RENDER);
    if (hits <= 0) return -1;
    const GLuint name = NearestName(buffer, hits);
    return name == kNoPickName ? -1 : static_cast<std::int32_t>(name);
}

std::unique_ptr<OptimizeEngine> MakeSelectionEngine(RenderContext& context, const Scene& scene,
                                                    const OptimizeOptions& options) {
    return std::make_unique<SelectionEngine>(context, scene, options);
}

}  // namespace korvane
