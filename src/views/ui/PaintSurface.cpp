#include "views/ui/PaintSurface.h"

#include <QGuiApplication>
#include <algorithm>

#include "views/ui/mDevicePixels.h"

namespace korvane {

QFont ViewFont() {
    constexpr int kFontPixels = 11;
    QFont font = QGuiApplication::font();
    font.setPixelSize(kFontPixels);
    font.setBold(false);
    return font;
}

void PaintSurface::RefreshFont() {
    font = ViewFont();
    captionFont = CaptionFont(font);
    labels = LabelCache(font);
}

void PaintSurface::Resize(int width, int height) {
    const QSize size = DevicePixels({std::max(width, 1), std::max(height, 1)}, ratio);
    if (image.size() != size) image = QImage(size, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
}

Raster2D PaintSurface::Raster() {
    return {reinterpret_cast<std::uint32_t*>(image.bits()),
            static_cast<std::int32_t>(image.bytesPerLine() / 4), image.width(), image.height()};
}

}  // namespace korvane
