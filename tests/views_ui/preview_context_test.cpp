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
    for (const auto& [color, depth] : {std::pair{0, 32}, {32, 0}, {128, 32}})
        EXPECT_EQ(CreateRenderContext(context, std::uint8_t(color), std::uint8_t(depth)), -1);
    EXPECT_FALSE(context.OpenGLReady);
    EXPECT_EQ(context.handle, 0);
    context.handle = 7;
    EXPECT_FALSE(ReleaseRenderContext(context)) << "there is nothing behind it";
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

TEST(RenderContextTest, SizesWithoutAnAreaAreHarmless) {
    test::PreviewStage stage;
    ResizePreviewViewport(stage.context, 50, 0, 100, 45);
    GLdouble projection[16];
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    EXPECT_NEAR(projection[5] / projection[0], 50, 1e-4) << "aspect is width / 1";
    EXPECT_EQ(stage.Render().size(), QSize(50, 1));
    for (const QSize size : {QSize(0, 40), QSize(-5, -5), QSize(40, 30)}) {
        ResizePreviewViewport(stage.context, size.width(), size.height(), 100, 45);
        stage.Render();
    }
    EXPECT_EQ(stage.context.frame.size(), QSize(40, 30));
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

TEST(OpenGLStringsTest, ExtensionsSplitAtEverySpace) {
    using Words = std::vector<std::string>;
    const std::pair<const char*, Words> rows[] = {{"", {}},
                                                  {"GL_A GL_B ", {"GL_A", "GL_B"}},
                                                  {" GL_A  GL_B", {"", "GL_A", "", "GL_B"}},
                                                  {" ", {""}}};
    for (const auto& [text, words] : rows) EXPECT_EQ(SplitExtensions(text), words) << text;
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
