// A session with a context, textures and brushes to look at, for tests and benchmarks of the
// preview.
#pragma once

#include <GL/gl.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "scene/mBrush.h"
#include "scene/mTextureCoords.h"
#include "support/RecordingHost.h"
#include "views/ui/mRender.h"

namespace korvane::test {

struct PreviewStage {
    RecordingHost host;
    ScriptedPrompts prompts;
    Editor editor{host, prompts};
    RenderContext context;
    TextureObjects textures;
    PreviewRenderer renderer;

    explicit PreviewStage(int width = 320, int height = 240, int textureCount = 4) {
        if (CreateRenderContext(context, 32, 32) < 0) throw std::runtime_error("no context");
        ApplyGLDefaults(context);
        ApplyColorMaterial(context);
        ApplyLights(context, true);
        ResizePreviewViewport(context, width, height, kPreviewFar, kPreviewFieldOfView);
        for (int i = 0; i < textureCount; ++i) AddTexture(i);
    }

    PreviewScene Shown() const { return {editor.scene, editor.settings, editor.camera, textures}; }
    const QImage& Render() {
        RenderPreview(context, renderer, Shown());
        return context.frame;
    }

    /// Adds a brush of the shape between two corners, with one texture. It is not selected.
    Brush& Add(const Vec3& p1, const Vec3& p2, std::int32_t texture = 0, int sides = 4,
               BrushShape shape = Box) {
        editor.scene.createShape = shape;
        editor.textures.SelectTexture(texture);
        const std::int32_t index = CreateBrush(editor.scene, p1, p2, sides, editor.Space());
        if (index < 0) throw std::runtime_error("no brush");
        return editor.scene.brushes[static_cast<std::size_t>(index)];
    }

    /// Looks at a point from a place on the +Z side, level.
    void LookFrom(float x, float y, float z, float pitch = 0, float yaw = 0) {
        editor.camera = {x, y, z, pitch, yaw, 0};
    }

  private:
    /// A 64 x 64 checker of two shades of a colour of its own; texture 0 is plain white.
    void AddTexture(int index) {
        std::vector<GLubyte> bgr;
        for (int i = 0; i < 64 * 64; ++i) {
            const bool light = index == 0 || ((i / 8) + (i / 512)) % 2 == 0;
            const int bits = index == 0 ? 0 : index;
            for (const int bit : {1, 2, 4}) {
                bgr.push_back(GLubyte((bits & bit ? 90 : 255) - (light ? 0 : 60)));
            }
        }
        unsigned name = 0;
        glGenTextures(1, &name);
        glBindTexture(GL_TEXTURE_2D, name);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 64, 64, 0, GL_BGR, GL_UNSIGNED_BYTE, bgr.data());
        textures.push_back(name);
        if (index > 0) editor.textures.AddTexture(std::to_string(index) + ".bmp", 64, 64);
    }
};

}  // namespace korvane::test
