// The preview's frame written out plainly in immediate mode, one call per corner: what the real
// renderer must look like, and what benchmarks stand it beside.
#pragma once

#include <GL/gl.h>

#include "views/ui/mRender.h"

namespace korvane::test {

class ImmediateBrushes {
  public:
    explicit ImmediateBrushes(const PreviewScene& shown) : shown_(shown) {}

    void Draw() {
        glEnable(GL_TEXTURE_2D);
        glBegin(GL_TRIANGLES);
        for (const Brush& brush : shown_.scene.brushes) {
            if (!brush.selected && colorState_ != 1) SetPlain();
            for (const BrushFace& face : brush.faces) DrawFace(brush, face);
        }
        glEnd();
    }

  private:
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

}  // namespace korvane::test
