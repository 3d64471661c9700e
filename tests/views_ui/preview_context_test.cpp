// The OpenGL context: making, sizing, releasing, and what the driver tells.
#include <GL/gl.h>
#include <gtest/gtest.h>

#include "support/PreviewStage.h"
#include "views/ui/mOGL3D.h"

namespace korvane {
namespace {

TEST(RenderContextTest, MakesACurrentContextAndReleasesItOnce) {
    RenderContext context;
    EXPECT_FALSE(MakeCurrent(context));
    EXPECT_TRUE(ReleaseRenderContext(context)) << "nothing to release is no failure";
    EXPECT_GT(CreateRenderContext(context, 32, 32), 0);
    EXPECT_TRUE(context.OpenGLReady);
    EXPECT_NE(glGetString(GL_VERSION), nullptr);
    GLint depthBits = 0;
    glGetIntegerv(GL_DEPTH_BITS, &depthBits);
    EXPECT_GE(depthBits, 24);
    EXPECT_TRUE(ReleaseRenderContext(context));
    EXPECT_FALSE(context.OpenGLReady);
    EXPECT_EQ(context.handle, 0);
    EXPECT_FALSE(MakeCurrent(context));
}

TEST(RenderContextTest, RefusesFormatsThatDoNotExist) {
    RenderContext context;
    EXPECT_EQ(CreateRenderContext(context, 0, 32), -1);
    EXPECT_EQ(CreateRenderContext(context, 32, 0), -1);
    EXPECT_EQ(CreateRenderContext(context, 128, 32), -1);
    EXPECT_FALSE(context.OpenGLReady);
    EXPECT_EQ(context.handle, 0);
}

TEST(RenderContextTest, AHandleWithoutAContextIsAFailedRelease) {
    RenderContext context;
    context.handle = 7;
    EXPECT_FALSE(ReleaseRenderContext(context));
}

TEST(RenderContextTest, DrawingBeforeTheContextDoesNothing) {
    RenderContext context;
    ApplyGLDefaults(context);
    ApplyLights(context, true);
    ResizePreviewViewport(context, 10, 10, 100, 45);
    SwapBuffers(context);
    EXPECT_TRUE(context.frame.isNull());
    EXPECT_TRUE(QueryOpenGLStrings(context).renderer.empty());
}

TEST(RenderContextTest, FixedStateIsAsTheFacesNeedIt) {
    test::PreviewStage stage;
    for (const GLenum enabled :
         {GL_DEPTH_TEST, GL_TEXTURE_2D, GL_CULL_FACE, GL_LIGHTING, GL_LIGHT0, GL_COLOR_MATERIAL}) {
        EXPECT_TRUE(glIsEnabled(enabled)) << std::hex << enabled;
    }
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_ALPHA_TEST));
    ApplyLights(stage.context, false);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT0));
}

TEST(RenderContextTest, AViewOfNoHeightIsOnePixelHigh) {
    test::PreviewStage stage;
    ResizePreviewViewport(stage.context, 50, 0, 100, 45);
    GLint viewport[4];
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 50);
    EXPECT_EQ(viewport[3], 1);
    GLdouble projection[16];
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    EXPECT_NEAR(projection[5] / projection[0], 50, 1e-4) << "aspect is width / 1";
    EXPECT_EQ(stage.Render().size(), QSize(50, 1));
}

TEST(RenderContextTest, OneWithoutWidthOrLargerThanTheDriverAllowsIsHarmless) {
    test::PreviewStage stage;
    ResizePreviewViewport(stage.context, 0, 40, 100, 45);
    stage.Render();
    ResizePreviewViewport(stage.context, -5, -5, 100, 45);
    stage.Render();
    ResizePreviewViewport(stage.context, 40, 30, 100, 45);
    EXPECT_EQ(stage.Render().size(), QSize(40, 30));
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

TEST(RenderContextTest, TheFrameIsUprightAndOpaque) {
    test::PreviewStage stage(7, 5);
    for (const int row : {0, 2, 4}) {  // rows counted from the bottom, as OpenGL does
        glEnable(GL_SCISSOR_TEST);
        glClearColor(0, 0, 0, 0);
        glScissor(0, 0, 7, 5);
        glClear(GL_COLOR_BUFFER_BIT);
        glScissor(1, row, 1, 1);
        glClearColor(1, 0.5F, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
        glDisable(GL_SCISSOR_TEST);
        SwapBuffers(stage.context);
        EXPECT_EQ(stage.context.frame.pixel(1, 4 - row), qRgb(255, 128, 0));
        EXPECT_EQ(stage.context.frame.pixel(0, 4 - row), qRgb(0, 0, 0));
    }
}

TEST(OpenGLStringsTest, ComeFromTheDriver) {
    test::PreviewStage stage;
    const OpenGLStrings strings = QueryOpenGLStrings(stage.context);
    EXPECT_FALSE(strings.renderer.empty());
    EXPECT_FALSE(strings.vendor.empty());
    EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(strings.version.at(0))));
    EXPECT_GT(strings.extensions.size(), 20U);
}

TEST(OpenGLStringsTest, ExtensionsSplitAtEverySpace) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(SplitExtensions(""), Words{});
    EXPECT_EQ(SplitExtensions("GL_A GL_B"), (Words{"GL_A", "GL_B"}));
    EXPECT_EQ(SplitExtensions("GL_A GL_B "), (Words{"GL_A", "GL_B"}));
    EXPECT_EQ(SplitExtensions(" GL_A  GL_B"), (Words{"", "GL_A", "", "GL_B"}));
    EXPECT_EQ(SplitExtensions(" "), Words{""});
}

TEST(OpenGLStringsTest, AreCutAtTheLimitAndReadByteByByte) {
    const auto* text = reinterpret_cast<const unsigned char*>(
        "ab\xE9"
        "cd");
    EXPECT_EQ(TextOfGLString(text, 100),
              "ab\xC3\xA9"
              "cd");
    EXPECT_EQ(TextOfGLString(text, 2), "ab");
    EXPECT_EQ(TextOfGLString(nullptr, 5), "");
}

}  // namespace
}  // namespace korvane
