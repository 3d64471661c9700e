#include "views/ui/mOGL3D.h"

#include <GL/glu.h>

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QSurfaceFormat>
#include <algorithm>
#include <cstring>

#include "base/SingleByteText.h"
#include "views/ui/mOGLPlatform.h"

namespace korvane {

namespace {

constexpr std::size_t kMaxInfo = 1024;
constexpr std::size_t kMaxExtensions = 8192;

constexpr GLfloat kLightAmbient[] = {0.25F, 0.25F, 0.25F, 1.0F};
constexpr GLfloat kLightDiffuse[] = {0.8F, 0.8F, 0.8F, 1.0F};
constexpr GLfloat kLightSpecular[] = {1.0F, 1.0F, 1.0F, 1.0F};
/// w = 0: a direction, not a place.
constexpr GLfloat kLightPosition[] = {0.75F, 1.0F, 0.5F, 0.0F};

QSurfaceFormat DesktopFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    return format;
}

}  // namespace

namespace {

/// A context of the window system's plug-in, on a surface that is never shown.
struct QtPlatform final : RenderContext::Platform {
    QtPlatform() { surface.setFormat(DesktopFormat()); }

    bool Create() {
        context.setFormat(DesktopFormat());
        return context.create() && !context.isOpenGLES();
    }

    bool MakeCurrent() override {
        return QOpenGLContext::currentContext() == &context || context.makeCurrent(&surface);
    }
    void DoneCurrent() override { context.doneCurrent(); }
    Function FindFunction(const char* name) override { return context.getProcAddress(name); }

    QOffscreenSurface surface;
    QOpenGLContext context;  // destroyed before its surface
};

}  // namespace

RenderContext::RenderContext() = default;
RenderContext::~RenderContext() {
    ReleaseRenderContext(*this);
}

namespace {

using Platform = RenderContext::Platform;

template <class FunctionPointer>
bool Find(Platform& platform, const char* name, FunctionPointer& found) {
    found = reinterpret_cast<FunctionPointer>(platform.FindFunction(name));
    return found != nullptr;
}

bool FindFunctions(Platform& platform) {
    GLFunctions& gl = platform.functions;
    return Find(platform, "glGenBuffers", gl.glGenBuffers) &&
           Find(platform, "glBindBuffer", gl.glBindBuffer) &&
           Find(platform, "glBufferData", gl.glBufferData) &&
           Find(platform, "glBufferSubData", gl.glBufferSubData) &&
           Find(platform, "glGenFramebuffers", gl.glGenFramebuffers) &&
           Find(platform, "glBindFramebuffer", gl.glBindFramebuffer) &&
           Find(platform, "glCheckFramebufferStatus", gl.glCheckFramebufferStatus) &&
           Find(platform, "glFramebufferRenderbuffer", gl.glFramebufferRenderbuffer) &&
           Find(platform, "glGenRenderbuffers", gl.glGenRenderbuffers) &&
           Find(platform, "glBindRenderbuffer", gl.glBindRenderbuffer) &&
           Find(platform, "glRenderbufferStorage", gl.glRenderbufferStorage);
}

void AllocateStorage(Platform& platform, int width, int height) {
    const GLFunctions& gl = platform.functions;
    gl.glBindRenderbuffer(GL_RENDERBUFFER, platform.color);
    gl.glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    gl.glBindRenderbuffer(GL_RENDERBUFFER, platform.depth);
    gl.glRenderbufferStorage(GL_RENDERBUFFER, platform.depthFormat, width, height);
    platform.width = width;
    platform.height = height;
}

bool IsComplete(const Platform& platform) {
    return platform.functions.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

/// Makes the framebuffer and leaves it bound for good.
bool MakeFramebuffer(Platform& platform, std::uint8_t depthBits) {
    const GLFunctions& gl = platform.functions;
    gl.glGenFramebuffers(1, &platform.framebuffer);
    gl.glGenRenderbuffers(1, &platform.color);
    gl.glGenRenderbuffers(1, &platform.depth);
    platform.depthFormat = depthBits > 24 ? GL_DEPTH_COMPONENT32 : GL_DEPTH_COMPONENT24;
    AllocateStorage(platform, 1, 1);  // a renderbuffer that was never bound cannot be attached
    gl.glBindFramebuffer(GL_FRAMEBUFFER, platform.framebuffer);
    gl.glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                 platform.color);
    gl.glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER,
                                 platform.depth);
    if (IsComplete(platform)) return true;
    platform.depthFormat = GL_DEPTH_COMPONENT24;  // 32 bits are not to be had everywhere
    AllocateStorage(platform, 1, 1);
    return IsComplete(platform);
}

}  // namespace

bool IsFormatUsable(std::uint8_t colorBits, std::uint8_t depthBits) {
    return colorBits >= 1 && colorBits <= 32 && depthBits >= 1 && depthBits <= 32;
}

std::int32_t AdoptPlatform(RenderContext& context, std::unique_ptr<Platform> made,
                           std::uint8_t depthBits) {
    if (!made->MakeCurrent() || !FindFunctions(*made) || !MakeFramebuffer(*made, depthBits)) {
        return kNoContext;
    }
    context.platform = std::move(made);
    context.handle = 1;
    context.OpenGLReady = true;
    return context.handle;
}

std::int32_t CreateRenderContext(RenderContext& context, std::uint8_t colorBits,
                                 std::uint8_t depthBits) {
    ReleaseRenderContext(context);
    if (!IsFormatUsable(colorBits, depthBits)) return kNoFormat;
    auto platform = std::make_unique<QtPlatform>();
    platform->surface.create();
    if (!platform->surface.isValid()) return kNoSurface;
    if (!platform->Create()) return kNoContext;
    return AdoptPlatform(context, std::move(platform), depthBits);
}

bool ReleaseRenderContext(RenderContext& context) {
    if (context.handle == 0) return true;
    const bool existed = context.platform != nullptr;
    if (existed) context.platform->DoneCurrent();
    context.platform.reset();
    context.handle = 0;
    context.OpenGLReady = false;
    return existed;
}

bool MakeCurrent(RenderContext& context) {
    return context.OpenGLReady && context.platform && context.platform->MakeCurrent();
}

const GLFunctions& Functions(RenderContext& context) {
    return context.platform->functions;
}

void ApplyGLDefaults(RenderContext& context) {
    if (!MakeCurrent(context)) return;
    glClearColor(0, 0, 0, 0);
    glClearDepth(1.0);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DEPTH_TEST);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glAlphaFunc(GL_GREATER, 0.5F);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_CULL_FACE);
}

void ApplyColorMaterial(RenderContext& context) {
    if (!MakeCurrent(context)) return;
    glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
}

void ApplyLights(RenderContext& context, bool enabled) {
    if (!MakeCurrent(context)) return;
    if (!enabled) {
        glDisable(GL_LIGHT0);
        glDisable(GL_LIGHTING);
        return;
    }
    glLightfv(GL_LIGHT0, GL_AMBIENT, kLightAmbient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kLightDiffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, kLightSpecular);
    PlaceLight();
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
}

void PlaceLight() {
    glLightfv(GL_LIGHT0, GL_POSITION, kLightPosition);
}

void ResizePreviewViewport(RenderContext& context, int width, int height, double farPlane,
                           double fieldOfView) {
    if (!MakeCurrent(context)) return;
    GLint largest = 1;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &largest);
    context.width = std::clamp(width, 0, int{largest});
    context.height = std::clamp(height, 1, int{largest});
    Platform& platform = *context.platform;
    const int storedWidth = std::max(context.width, 1);
    if (platform.width != storedWidth || platform.height != context.height) {
        AllocateStorage(platform, storedWidth, context.height);
    }
    glViewport(0, 0, context.width, context.height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    gluPerspective(fieldOfView, double(context.width) / context.height, 0.1, farPlane);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

namespace {

/// A pixel as OpenGL delivers it, red lowest, as an opaque QRgb. The frame's alpha is that of the
/// clear colour.
constexpr QRgb ToRgb32(std::uint32_t pixel) {
    constexpr std::uint32_t kRedAndBlue = 0x00FF00FFU;
    const std::uint32_t redAndBlue = pixel & kRedAndBlue;
    return 0xFF000000U | (pixel & 0x0000FF00U) | redAndBlue << 16 | redAndBlue >> 16;
}

/// Rows read at once: as many as stay in the processor's cache until they are turned.
constexpr int kStripRows = 32;

/// Puts rows of the framebuffer, delivered from the bottom up, where they belong in the picture.
void TurnUpright(const std::uint32_t* pixels, int bottom, int rows, QImage& image) {
    const int width = image.width();
    for (int y = 0; y < rows; ++y, pixels += width) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(image.height() - 1 - bottom - y));
        for (int x = 0; x < width; ++x) row[x] = ToRgb32(pixels[x]);
    }
}

}  // namespace

void SwapBuffers(RenderContext& context) {
    if (!MakeCurrent(context)) return;
    const QSize size(context.width, context.height);
    if (context.frame.size() != size) context.frame = QImage(size, QImage::Format_RGB32);
    if (context.frame.isNull()) return;
    std::vector<std::uint32_t>& pixels = context.platform->pixels;
    pixels.resize(std::size_t(size.width()) * kStripRows);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    for (int bottom = 0; bottom < size.height(); bottom += kStripRows) {
        const int rows = std::min(kStripRows, size.height() - bottom);
        // The order of the framebuffer itself: any other one costs the driver a pass.
        glReadPixels(0, bottom, size.width(), rows, GL_RGBA, GL_UNSIGNED_INT_8_8_8_8_REV,
                     pixels.data());
        TurnUpright(pixels.data(), bottom, rows, context.frame);
    }
}

std::string TextOfGLString(const unsigned char* bytes, std::size_t limit) {
    if (bytes == nullptr) return {};
    const char* text = reinterpret_cast<const char*>(bytes);
    return FromSingleByte({text, strnlen(text, limit)});
}

std::vector<std::string> SplitExtensions(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t space = text.find(' ');
        words.emplace_back(text.substr(0, space));
        if (space == std::string_view::npos) break;
        text.remove_prefix(space + 1);
    }
    return words;
}

OpenGLStrings QueryOpenGLStrings(RenderContext& context) {
    if (!MakeCurrent(context)) return {};
    return {TextOfGLString(glGetString(GL_RENDERER), kMaxInfo),
            TextOfGLString(glGetString(GL_VENDOR), kMaxInfo),
            TextOfGLString(glGetString(GL_VERSION), kMaxInfo),
            SplitExtensions(TextOfGLString(glGetString(GL_EXTENSIONS), kMaxExtensions))};
}

}  // namespace korvane
