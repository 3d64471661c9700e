// What is drawn over a picture of the program to guide the reader's eye.
#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <optional>
#include <vector>

namespace korvane::manual {

/// A text in a disc, as the legend below the picture names it, or the way of a drag to its end.
/// Places are pixels of the picture.
struct Mark {
    QPoint at;
    QString text = {};
    std::optional<QPoint> dragFrom = {};
};

void DrawMarks(QImage& picture, const std::vector<Mark>& marks);

}  // namespace korvane::manual
