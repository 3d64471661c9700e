// What stands behind a render context: how its OpenGL context is made current, the functions beyond
// OpenGL 1.1, and the framebuffer. For the files that make contexts only.
#pragma once

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "views/ui/mOGL3D.h"

namespace korvane {

/// Why there is no context, see CreateRenderContext.
inline constexpr std::int32_t kNoFormat = -1;
inline constexpr std::int32_t kNoSurface = -2;
inline constexpr std::int32_t kNoContext = -3;

/// The functions beyond OpenGL 1.1, under their own names. They belong to one context.
struct GLFunctions {
    PFNGLGENBUFFERSPROC glGenBuffers = nullptr;
    PFNGLBINDBUFFERPROC glBindBuffer = nullptr;
    PFNGLBUFFERDATAPROC glBufferData = nullptr;
    PFNGLBUFFERSUBDATAPROC glBufferSubData = nullptr;
    PFNGLGENFRAMEBUFFERSPROC glGenFramebuffers = nullptr;
    PFNGLBINDFRAMEBUFFERPROC glBindFramebuffer = nullptr;
    PFNGLCHECKFRAMEBUFFERSTATUSPROC glCheckFramebufferStatus = nullptr;
    PFNGLFRAMEBUFFERRENDERBUFFERPROC glFramebufferRenderbuffer = nullptr;
    PFNGLGENRENDERBUFFERSPROC glGenRenderbuffers = nullptr;
    PFNGLBINDRENDERBUFFERPROC glBindRenderbuffer = nullptr;
    PFNGLRENDERBUFFERSTORAGEPROC glRenderbufferStorage = nullptr;
};

struct RenderContext::Platform {
    using Function = void (*)();

    virtual ~Platform() = default;

    virtual bool MakeCurrent() = 0;
    virtual void DoneCurrent() = 0;
    /// The function of that name, or null. Needs the context to be current.
    virtual Function FindFunction(const char* name) = 0;

    GLFunctions functions;
    GLuint framebuffer = 0;
    GLuint color = 0;
    GLuint depth = 0;
    GLenum depthFormat = GL_DEPTH_COMPONENT24;
    int width = 0;  // of the framebuffer
    int height = 0;
    std::vector<std::uint32_t> pixels;  // as they were read, kept for its memory
};

/// Whether a framebuffer of that many bits can be asked for at all.
bool IsFormatUsable(std::uint8_t colorBits, std::uint8_t depthBits);

/// Gives the released context what stands behind it: makes it current, finds its functions, makes
/// its framebuffer and sets OpenGLReady. Returns what CreateRenderContext returns.
std::int32_t AdoptPlatform(RenderContext& context, std::unique_ptr<RenderContext::Platform> made,
                           std::uint8_t depthBits);

}  // namespace korvane
