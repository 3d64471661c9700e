// Pictures of object files, drawn beside the session by its own context.
#pragma once

#include <QImage>
#include <memory>
#include <string>

#include "editor/Editor.h"
#include "views/ui/mRender.h"

namespace korvane {

/// Draws objects with the textures and the colours of the session. The preview shows what it showed
/// before.
class ObjectPainter {
  public:
    /// All three must outlive it.
    ObjectPainter(Editor& editor, RenderContext& context, const TextureObjects& textures)
        : editor_(editor), context_(context), textures_(textures) {}

    /// The object of the file (UTF-8 path), framed in a picture of that size in pixels. Null for
    /// what is no object, holds no brush or is larger than a picture is worth waiting for.
    QImage Paint(const std::string& path, const QSize& pixels);

  private:
    QImage Render(const Scene& scene, const QSize& pixels);

    Editor& editor_;
    RenderContext& context_;
    const TextureObjects& textures_;
    PreviewRenderer renderer_;
};

}  // namespace korvane
