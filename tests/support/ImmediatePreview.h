// The preview's frame written out plainly in immediate mode, one call per corner: what the real
// renderer must look like, and what benchmarks stand it beside.
#pragma once

#include <GL/glu.h>

#include <cstdint>
#include <vector>

#include "scene/mSelection.h"
#include "views/ui/mRender.h"

namespace korvane::test {

class ImmediateBrushes {
  public:
    explicit ImmediateBrushes(const PreviewScene& shown, bool picking = false)
        : shown_(shown), picking_(picking) {}

    void Draw() {
        glEnable(GL_TEXTURE_2D);
        glBegin(GL_TRIANGLES);
        const std::int32_t selected = CountSelectedBrushes(shown_.scene);
        const bool namesFaces = shown_.scene.editMode == FaceEdit && selected > 0;
        for (std::size_t b = 0; b < shown_.scene.brushes.size(); ++b) {
            const Brush& brush = shown_.scene.brushes[b];
            if (!brush.selected && colorState_ != 1) SetPlain();
            if (picking_) LoadName(namesFaces ? kNoPickName : static_cast<GLuint>(b));
            for (std::size_t f = 0; f < brush.faces.size(); ++f) {
                const bool named = picking_ && namesFaces && selected == 1 && brush.selected;
                if (named) LoadName(static_cast<GLuint>(f));
                DrawFace(brush, brush.faces[f]);
            }
        }
        glEnd();
    }

  private:
    void LoadName(GLuint name) {
        glEnd();
        glLoadName(name);
        glBegin(GL_TRIANGLES);
    }

    void SetPlain() {
        colorState_ = 1;
        glEnd();
        glColor3f(1, 1, 1);
        glDisable(GL_COLOR_MATERIAL);
        glBegin(GL_TRIANGLES);
    }

    void SetTint(int state, ColorItem item) {
        if (colorState_ == state) return;
        colorState_ = state;
        const Color color = shown_.settings.colors[item];
        glEnd();
        glEnable(GL_COLOR_MATERIAL);
        glColor3f(GLfloat(Red(color)) / 255, GLfloat(Green(color)) / 255,
                  GLfloat(Blue(color)) / 255);
        glBegin(GL_TRIANGLES);
    }

    void DrawFace(const Brush& brush, const BrushFace& face) {
        if (!shown_.settings.showInvisible && face.invisible) return;
        if (face.texture != texture_) {
            texture_ = face.texture;
            glEnd();
            glBindTexture(GL_TEXTURE_2D, shown_.textures[static_cast<std::size_t>(face.texture)]);
            glBegin(GL_TRIANGLES);
        }
        if (brush.selected && face.selected) SetTint(2, ColorItem::View3DSelectedFaces);
        if (brush.selected && !face.selected) SetTint(3, ColorItem::View3DSelectedBrushes);
        if (face.smooth != 1) glNormal3f(face.normal.x, face.normal.y, face.normal.z);
        const std::int32_t corners[3] = {face.a, face.b, face.c};
        for (std::size_t i = 0; i < 3; ++i) {
            const Vec3& n = face.cornerNormals[i];
            if (face.smooth == 1) glNormal3f(n.x, n.y, n.z);
            glTexCoord2f(face.uv[i].u, face.uv[i].v);
            const Vertex& v = brush.vertices[static_cast<std::size_t>(corners[i])];
            glVertex3f(v.x, v.y, v.z);
        }
    }

    const PreviewScene& shown_;
    bool picking_;
    int colorState_ = 0;
    std::int32_t texture_ = -1;
};

/// RenderPreview in immediate mode.
inline void RenderImmediate(RenderContext& context, const PreviewScene& shown) {
    MakeCurrent(context);
    const Color background = shown.settings.colors[ColorItem::View3DBackground];
    glClearColor(GLfloat(Red(background)) / 255, GLfloat(Green(background)) / 255,
                 GLfloat(Blue(background)) / 255, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    ApplyCamera(shown.camera);
    PlaceLight();
    if (shown.settings.show3DGrid) {
        DrawPreviewGrid(shown.camera, shown.settings.colors[ColorItem::View3DGrid]);
    }
    ImmediateBrushes(shown).Draw();
    SwapBuffers(context);
}

/// PickPreview without leaving anything out.
inline std::int32_t PickImmediate(RenderContext& context, const PreviewScene& shown, int x, int y) {
    MakeCurrent(context);
    GLint viewport[4] = {0, 0, context.width, context.height};
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluPickMatrix(x, context.height - y, 1, 1, viewport);
    gluPerspective(kPreviewFieldOfView, double(context.width) / context.height, 0.1, kPreviewFar);
    ApplyCamera(shown.camera);
    static std::vector<GLuint> hits(1 << 20);
    glSelectBuffer(GLsizei(hits.size()), hits.data());
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(0);
    ImmediateBrushes(shown, true).Draw();
    const GLint count = glRenderMode(GL_RENDER);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    const GLuint* best = hits.data();
    for (GLint i = 1; i < count; ++i) {
        if (hits[i * 4 + 1] < best[1]) best = &hits[i * 4];
    }
    return count < 1 ? -1 : static_cast<std::int32_t>(best[3]);
}

}  // namespace korvane::test
