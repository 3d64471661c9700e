#include "views/ui/mPick.h"

#include <GL/glu.h>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace korvane {
namespace {

/// A hit: count of names (always 1), least depth, greatest depth, name.
constexpr std::size_t kHitEntries = 4;
constexpr std::size_t kFirstEntries = 512;
constexpr std::size_t kMostEntries = std::size_t{1} << 28;

/// Narrows the projection to one pixel as long as it lives.
class PickWindow {
  public:
    PickWindow(int x, int y) {
        std::array<GLint, 4> viewport;
        std::array<GLdouble, 16> projection;
        glGetIntegerv(GL_VIEWPORT, viewport.data());
        glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        gluPickMatrix(x, viewport[3] - y, 1, 1, viewport.data());
        glMultMatrixd(projection.data());
        glMatrixMode(GL_MODELVIEW);
    }
    ~PickWindow() {
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }
    PickWindow(const PickWindow&) = delete;
    PickWindow& operator=(const PickWindow&) = delete;
};

/// Draws the frame in selection mode. The hits, or nothing when they did not fit into the buffer.
std::optional<std::span<const GLuint>> Hits(RenderContext& context, PreviewRenderer& renderer,
                                            const PreviewScene& shown,
                                            std::vector<GLuint>& buffer) {
    glSelectBuffer(static_cast<GLsizei>(buffer.size()), buffer.data());
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(0);
    renderer.PickRendering = true;
    RenderPreview(context, renderer, shown);
    renderer.PickRendering = false;
    const GLint count = glRenderMode(GL_RENDER);
    if (count < 0) return std::nullopt;
    return std::span<const GLuint>(buffer.data(), static_cast<std::size_t>(count) * kHitEntries);
}

/// The first of the hits that are nearest to the eye.
std::int32_t NearestName(std::span<const GLuint> hits) {
    std::size_t best = 0;
    for (std::size_t i = kHitEntries; i < hits.size(); i += kHitEntries) {
        if (hits[i + 1] < hits[best + 1]) best = i;
    }
    const GLuint name = hits.empty() ? kNoPickName : hits[best + 3];
    return name == kNoPickName ? -1 : static_cast<std::int32_t>(name);
}

}  // namespace

std::int32_t PickPreview(RenderContext& context, PreviewRenderer& renderer,
                         const PreviewScene& shown, int x, int y) {
    if (!MakeCurrent(context)) return -1;
    const PickWindow window(x, y);
    std::vector<GLuint> buffer(kFirstEntries);
    auto hits = Hits(context, renderer, shown, buffer);
    while (!hits && buffer.size() < kMostEntries) {
        buffer.resize(buffer.size() * 4);
        hits = Hits(context, renderer, shown, buffer);
    }
    return hits ? NearestName(*hits) : -1;
}

}  // namespace korvane
