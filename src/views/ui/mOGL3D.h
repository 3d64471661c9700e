// The OpenGL context of the 3D preview: an off-screen framebuffer that is read back into a picture.
//
// No window of the program is composed through OpenGL; the pane of the preview is an ordinary
// widget that paints the picture. That keeps the repaint of the 2D views cheap and works on every
// platform that can give an off-screen context.
#pragma once

#include <QImage>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct GLFunctions;

/// OpenGL texture names by texture index; index 0 is the placeholder.
using TextureObjects = std::vector<unsigned>;

/// The context and what belongs to it. Everything that draws takes it by reference.
struct RenderContext {
    RenderContext();
    ~RenderContext();
    RenderContext(const RenderContext&) = delete;
    RenderContext& operator=(const RenderContext&) = delete;

    bool OpenGLReady = false;  ///< drawing does nothing while false
    std::int32_t handle = 0;   ///< above 0 while the context exists
    int width = 0;             ///< viewport, device pixels
    int height = 0;            ///< at least 1 once it has been sized
    QImage frame;              ///< the frame shown last, top row first, Format_RGB32

    struct Platform;  ///< surface, context and framebuffer
    std::unique_ptr<Platform> platform;
};

/// Makes the off-screen context with a framebuffer of the given colour and depth bits (1 to 32),
/// makes it current and sets OpenGLReady. Returns its handle, above 0; -1: no such format, -2: the
/// surface could not be made, -3: no context, or it cannot be made current or lacks a framebuffer.
std::int32_t CreateRenderContext(RenderContext& context, std::uint8_t colorBits,
                                 std::uint8_t depthBits);

/// The same with a context that belongs to no window system and needs no display and no application
/// object, for programs that only make pictures.
std::int32_t CreateSurfacelessContext(RenderContext& context, std::uint8_t colorBits,
                                      std::uint8_t depthBits);

/// Gives the context back, textures and buffers with it; true without one. False: there was nothing
/// behind the handle.
bool ReleaseRenderContext(RenderContext& context);

/// Makes the context current; to be called before any OpenGL function. False without a context.
bool MakeCurrent(RenderContext& context);

/// The functions of the current context beyond OpenGL 1.1, see mOGLPlatform.h. Needs a ready
/// context.
const GLFunctions& Functions(RenderContext& context);

/// The state that never changes: depth test, culling, smooth shading, texturing, blend and alpha
/// functions (never enabled).
void ApplyGLDefaults(RenderContext& context);

/// Lets the colour set the ambient and diffuse material of front faces.
void ApplyColorMaterial(RenderContext& context);

/// Switches lighting by the one directional light on or off.
void ApplyLights(RenderContext& context, bool enabled);

/// Loads the light's position under the current modelview matrix, which fixes it in the world.
/// Needs the context to be current.
void PlaceLight();

/// Sizes framebuffer, viewport and projection. Width and height are device pixels (a height of 0 is
/// taken as 1), `farPlane` world units, `fieldOfView` degrees.
void ResizePreviewViewport(RenderContext& context, int width, int height, double farPlane,
                           double fieldOfView);

/// Shows the frame that was drawn: reads it back into context.frame.
void SwapBuffers(RenderContext& context);

/// What the driver says about itself.
struct OpenGLStrings {
    std::string renderer;
    std::string vendor;
    std::string version;
    std::vector<std::string> extensions;  ///< in the driver's order
};

/// Asks the driver.
OpenGLStrings QueryOpenGLStrings(RenderContext& context);

/// The text up to its terminating zero, at most `limit` bytes, each byte one character; empty for
/// null.
std::string TextOfGLString(const unsigned char* bytes, std::size_t limit);

/// The words of an extension string: each space ends one, an empty one included; a last word needs
/// no space.
std::vector<std::string> SplitExtensions(std::string_view text);

}  // namespace korvane
