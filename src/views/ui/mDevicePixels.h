// Pictures whose pixels are those of the screen, for widgets that count in logical pixels.
#pragma once

#include <QSize>

class QImage;
class QPainter;
class QPointF;

namespace korvane {

/// Device pixels that cover a widget of that many logical pixels, `ratio` to one.
QSize DevicePixels(const QSize& size, double ratio);

/// Draws the picture with its corner at the device pixel nearest to a logical place, pixel for
/// pixel and in place of what was there. A plain copy: told of a ratio of 1.25, Qt would scale the
/// picture by one, which takes three times as long.
void DrawDevicePixels(QPainter& painter, const QPointF& corner, const QImage& image);

}  // namespace korvane
