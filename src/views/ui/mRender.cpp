#include "views/ui/mRender.h"

#include <GL/gl.h>

#include <array>
#include <cmath>
#include <cstddef>

#include "views/ui/mOGLPlatform.h"

namespace korvane {
namespace {

std::array<GLfloat, 3> Rgb(Color color) {
    return {GLfloat(Red(color)) / 255, GLfloat(Green(color)) / 255, GLfloat(Blue(color)) / 255};
}

const void* BufferOffset(std::size_t bytes) {
    return reinterpret_cast<const void*>(bytes);
}

}  // namespace

void ApplyCamera(const Camera& camera) {
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(360 - camera.pitch, 1, 0, 0);
    glRotatef(360 - camera.yaw, 0, 1, 0);
    glTranslatef(-camera.x, -camera.y, -camera.z);
}

void DrawPreviewGrid(const Camera& camera, Color color) {
    const GLfloat cx = std::floor(camera.x);
    const GLfloat cz = std::floor(camera.z);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glColor3fv(Rgb(color).data());
    glBegin(GL_LINES);
    for (int i = -kGridReach; i <= kGridReach; ++i) {
        glVertex3f(cx + i, 0, cz - kGridReach);
        glVertex3f(cx + i, 0, cz + kGridReach);
    }
    for (int i = -kGridReach; i <= kGridReach; ++i) {
        glVertex3f(cx - kGridReach, 0, cz + i);
        glVertex3f(cx + kGridReach, 0, cz + i);
    }
    glEnd();
    glEnable(GL_LIGHTING);
}

namespace {

/// Brings the vertex buffer in line with the scene, sending only what changed.
void StoreCorners(const GLFunctions& gl, PreviewRenderer& renderer, const Scene& scene) {
    const std::vector<CornerRange> changed = UpdatePreviewMesh(renderer.mesh, scene);
    const std::vector<PreviewCorner>& corners = renderer.mesh.corners;
    if (renderer.cornerBuffer == 0) gl.glGenBuffers(1, &renderer.cornerBuffer);
    gl.glBindBuffer(GL_ARRAY_BUFFER, renderer.cornerBuffer);
    if (corners.size() > renderer.storedCorners) {
        // Room to grow, so that drawing brush after brush does not move all corners each time.
        renderer.storedCorners = corners.size() + corners.size() / 2;
        gl.glBufferData(GL_ARRAY_BUFFER,
                        static_cast<GLsizeiptr>(renderer.storedCorners * sizeof(PreviewCorner)),
                        nullptr, GL_DYNAMIC_DRAW);
        gl.glBufferSubData(GL_ARRAY_BUFFER, 0,
                           static_cast<GLsizeiptr>(corners.size() * sizeof(PreviewCorner)),
                           corners.data());
        return;
    }
    for (const CornerRange& range : changed) {
        gl.glBufferSubData(GL_ARRAY_BUFFER,
                           static_cast<GLintptr>(range.first * sizeof(PreviewCorner)),
                           static_cast<GLsizeiptr>(range.count * sizeof(PreviewCorner)),
                           corners.data() + range.first);
    }
}

void StoreIndices(const GLFunctions& gl, PreviewRenderer& renderer) {
    const std::vector<std::uint32_t>& indices = renderer.runs.corners;
    if (renderer.indexBuffer == 0) gl.glGenBuffers(1, &renderer.indexBuffer);
    gl.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, renderer.indexBuffer);
    gl.glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                    static_cast<GLsizeiptr>(indices.size() * sizeof(indices[0])), indices.data(),
                    GL_STREAM_DRAW);
}

void PointToCorners() {
    constexpr GLsizei kStride = sizeof(PreviewCorner);
    glTexCoordPointer(2, GL_FLOAT, kStride, BufferOffset(offsetof(PreviewCorner, uv)));
    glNormalPointer(GL_FLOAT, kStride, BufferOffset(offsetof(PreviewCorner, normal)));
    glVertexPointer(3, GL_FLOAT, kStride, BufferOffset(offsetof(PreviewCorner, position)));
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
}

void LeaveCorners(const GLFunctions& gl) {
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    gl.glBindBuffer(GL_ARRAY_BUFFER, 0);
    gl.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

/// The order of the two calls matters: while colour material is enabled the colour goes into the
/// material and stays there when it is disabled.
void SetColor(ColorState state, const ColorScheme& colors) {
    if (state == ColorState::Plain) {
        glColor3f(1, 1, 1);
        glDisable(GL_COLOR_MATERIAL);
        return;
    }
    glEnable(GL_COLOR_MATERIAL);
    glColor3fv(Rgb(colors[state == ColorState::SelectedFace ? ColorItem::View3DSelectedFaces
                                                            : ColorItem::View3DSelectedBrushes])
                   .data());
}

/// The texture object of an index; the placeholder's for one outside the table.
GLuint TextureObject(const TextureObjects& textures, std::int32_t index) {
    if (index >= 0 && static_cast<std::size_t>(index) < textures.size()) return textures[index];
    return textures.empty() ? 0 : textures[0];
}

/// Tells apart what OpenGL holds now from what a run needs, and changes only the difference.
class RunDrawer {
  public:
    RunDrawer(const PreviewScene& shown, bool picking) : shown_(shown), picking_(picking) {}

    void Draw(const PreviewRun& run) {
        if (run.texture != boundTexture_) {
            glBindTexture(GL_TEXTURE_2D, TextureObject(shown_.textures, run.texture));
            boundTexture_ = run.texture;
        }
        if (run.color != color_) {
            SetColor(run.color, shown_.settings.colors);
            color_ = run.color;
        }
        if (run.shown != shownIn_) {
            glScissor(run.shown.left, run.shown.bottom, run.shown.width, run.shown.height);
            shownIn_ = run.shown;
        }
        if (picking_) glLoadName(run.name);
        glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(run.count), GL_UNSIGNED_INT,
                       BufferOffset(run.first * sizeof(std::uint32_t)));
    }

  private:
    const PreviewScene& shown_;
    bool picking_;
    std::int64_t boundTexture_ = -1;
    ColorState color_ = ColorState::None;
    PixelRect shownIn_;
};

/// Projection times modelview, as OpenGL holds them now.
std::array<double, 16> CurrentProjection() {
    std::array<double, 16> projection, modelview, product{};
    glGetDoublev(GL_PROJECTION_MATRIX, projection.data());
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview.data());
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            for (int i = 0; i < 4; ++i) {
                product[column * 4 + row] += projection[i * 4 + row] * modelview[column * 4 + i];
            }
        }
    }
    return product;
}

}  // namespace

void DrawPreviewBrushes(RenderContext& context, PreviewRenderer& renderer,
                        const PreviewScene& shown) {
    glEnable(GL_TEXTURE_2D);
    const GLFunctions& gl = Functions(context);
    StoreCorners(gl, renderer, shown.scene);
    const PreviewView view{{shown.camera.x, shown.camera.y, shown.camera.z},
                           CurrentProjection(),
                           context.width,
                           context.height,
                           shown.settings.showInvisible,
                           renderer.PickRendering};
    GatherPreviewRuns(shown.scene, renderer.mesh, view, renderer.runs);
    if (!renderer.runs.runs.empty()) {
        StoreIndices(gl, renderer);
        PointToCorners();
        RunDrawer drawer(shown, renderer.PickRendering);
        if (!renderer.PickRendering) glEnable(GL_SCISSOR_TEST);
        for (const PreviewRun& run : renderer.runs.runs) drawer.Draw(run);
        glDisable(GL_SCISSOR_TEST);
    }
    LeaveCorners(gl);
}

void RenderPreview(RenderContext& context, PreviewRenderer& renderer, const PreviewScene& shown) {
    if (!MakeCurrent(context)) return;
    const auto background = Rgb(shown.settings.colors[ColorItem::View3DBackground]);
    glClearColor(background[0], background[1], background[2], 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    ApplyCamera(shown.camera);
    PlaceLight();
    if (shown.settings.show3DGrid && !renderer.PickRendering) {
        DrawPreviewGrid(shown.camera, shown.settings.colors[ColorItem::View3DGrid]);
    }
    DrawPreviewBrushes(context, renderer, shown);
    if (!renderer.PickRendering) SwapBuffers(context);
}

}  // namespace korvane
