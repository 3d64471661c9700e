// The off-screen picture in which a 2D view or the depth gauge is composed.
#pragma once

#include <QFont>
#include <QImage>

#include "files/Settings.h"
#include "views/ui/Raster2D.h"
#include "views/ui/mBrushLines.h"
#include "views/ui/mRulers.h"

namespace korvane {

/// A pixel 0xFFRRGGBB of the scheme's colour.
constexpr std::uint32_t PixelOf(Color color) {
    return 0xFF000000U | (Red(color) << 16) | (Green(color) << 8) | Blue(color);
}

/// The small font of rulers, captions and read-outs.
QFont ViewFont();

/// A picture with what is needed to compose it. Its pixels are device pixels: `ratio` to one
/// logical pixel.
struct PaintSurface {
    QImage image;
    double ratio = 1;
    QFont font = ViewFont();
    QFont captionFont = CaptionFont(font);
    LabelCache labels{font};
    BrushPainter brushes;

    /// Takes the application's font anew.
    void RefreshFont();

    /// Makes the picture that many logical pixels large; its contents are undefined afterwards.
    void Resize(int width, int height);

    /// The picture's pixels. Not to be kept: a painter on the image may move them.
    Raster2D Raster();
};

}  // namespace korvane
