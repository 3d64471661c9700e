#include "app/mObjectPicture.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "files/FileBuffer.h"
#include "files/mObjectFile.h"
#include "views/core/mFraming.h"

namespace korvane {
namespace {

constexpr std::uintmax_t kLargestFile = 32U << 20;  // bytes; about 30,000 boxes

bool IsWorthWaitingFor(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(std::u8string(path.begin(), path.end()), error);
    return !error && size <= kLargestFile;
}

}  // namespace

QImage ObjectPainter::Paint(const std::string& path, const QSize& pixels) {
    if (!context_.OpenGLReady || !IsWorthWaitingFor(path)) return {};
    const auto bytes = LoadFile(path);
    auto brushes = bytes ? DecodeObject(*bytes, editor_.textures, false) : std::nullopt;
    if (!brushes || brushes->empty()) return {};
    Scene scene;
    scene.brushes = std::move(*brushes);
    return Render(scene, pixels);
}

/// The context belongs to the preview: size and frame are put back.
QImage ObjectPainter::Render(const Scene& scene, const QSize& pixels) {
    const QSize size(context_.width, context_.height);
    const QImage frame = context_.frame;
    const Framing framing =
        FrameObject(scene, pixels.width(), pixels.height(), kPreviewFieldOfView);
    constexpr double kBehind = 1.01;  // the farthest vertex must not lie on the far plane itself
    ResizePreviewViewport(context_, pixels.width(), pixels.height(),
                          std::max(kPreviewFar, framing.farthest * kBehind), kPreviewFieldOfView);
    RenderPreview(context_, renderer_, {scene, editor_.settings, framing.camera, textures_});
    const QImage picture = context_.frame.copy();
    ResizePreviewViewport(context_, size.width(), size.height(), kPreviewFar, kPreviewFieldOfView);
    context_.frame = frame;
    return picture;
}

}  // namespace korvane
