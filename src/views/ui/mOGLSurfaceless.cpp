// A render context through EGL without any surface: everything is drawn into the framebuffer, so
// neither a display nor a window system is needed.
#include <EGL/egl.h>
#include <EGL/eglext.h>

#include "views/ui/mOGLPlatform.h"

namespace korvane {
namespace {

struct EglPlatform final : RenderContext::Platform {
    /// The display stays initialized: it is one for the whole process.
    ~EglPlatform() override {
        if (context != EGL_NO_CONTEXT) eglDestroyContext(display, context);
    }

    bool OpenDisplay() {
        display =
            eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE;
    }

    /// Desktop OpenGL; without a version asked for it comes with the fixed functions.
    bool Create() {
        constexpr EGLint kAttributes[] = {EGL_SURFACE_TYPE, 0, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                          EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        if (!eglBindAPI(EGL_OPENGL_API) ||
            !eglChooseConfig(display, kAttributes, &config, 1, &count) || count == 0) {
            return false;
        }
        context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
        return context != EGL_NO_CONTEXT;
    }

    bool MakeCurrent() override {
        return eglGetCurrentContext() == context ||
               eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context);
    }
    void DoneCurrent() override {
        eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    Function FindFunction(const char* name) override { return eglGetProcAddress(name); }

    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
};

}  // namespace

std::int32_t CreateSurfacelessContext(RenderContext& context, std::uint8_t colorBits,
                                      std::uint8_t depthBits) {
    ReleaseRenderContext(context);
    if (!IsFormatUsable(colorBits, depthBits)) return kNoFormat;
    auto platform = std::make_unique<EglPlatform>();
    if (!platform->OpenDisplay()) return kNoSurface;
    if (!platform->Create()) return kNoContext;
    return AdoptPlatform(context, std::move(platform), depthBits);
}

}  // namespace korvane
