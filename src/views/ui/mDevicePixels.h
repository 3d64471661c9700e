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
/// pixel and in place of what was there: at a scale of 1.25 most places lie between two pixels, and
/// a picture resampled there would lose the sharpness of its lines.
void DrawDevicePixels(QPainter& painter, const QPointF& corner, const QImage& image);

}  // namespace korvane
