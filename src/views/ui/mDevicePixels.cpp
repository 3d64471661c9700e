#include "views/ui/mDevicePixels.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace korvane {

QSize DevicePixels(const QSize& size, double ratio) {
    constexpr double kNoise = 1e-6;  // of a product such as 400 * 1.1
    const auto pixels = [ratio](int logical) {
        return static_cast<int>(std::ceil(std::max(logical, 0) * ratio - kNoise));
    };
    return {pixels(size.width()), pixels(size.height())};
}

void DrawDevicePixels(QPainter& painter, const QPointF& corner, const QImage& image) {
    const QTransform logical = painter.transform();
    const QTransform toDevice = painter.deviceTransform();
    const QPointF at = toDevice.map(corner);
    const QTransform whole = QTransform::fromTranslate(std::round(at.x()), std::round(at.y()));
    // The same pixels without a ratio of their own.
    const QImage pixels(image.constBits(), image.width(), image.height(), image.bytesPerLine(),
                        image.format());
    painter.setTransform(whole * toDevice.inverted() * logical);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, pixels);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setTransform(logical);
}

}  // namespace korvane
