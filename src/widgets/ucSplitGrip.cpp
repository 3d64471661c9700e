#include "widgets/ucSplitGrip.h"

#include <QMouseEvent>
#include <QPainter>

namespace korvane {

ucSplitGrip::ucSplitGrip(int handle, int gap, QWidget* parent) : QWidget(parent), handle_(handle) {
    const int side = 2 * handle + gap;
    setObjectName("SplitGrip");
    setFixedSize(side, side);
    setCursor(Qt::SizeAllCursor);
    setToolTip("Drag to divide the views anew");
    const QPolygon corner({QPoint(0, handle), QPoint(handle, 0), QPoint(handle, handle)});
    setMask(QRegion(corner) | QRegion(handle, 0, gap, side) | QRegion(0, handle, side, gap));
}

void ucSplitGrip::mousePressEvent(QMouseEvent* event) {
    dragging_ = event->button() == Qt::LeftButton;
}

void ucSplitGrip::mouseMoveEvent(QMouseEvent* event) {
    // From the screen: the grip itself moves under the pointer.
    const QPoint position = parentWidget()->mapFromGlobal(event->globalPosition().toPoint());
    if (dragging_) emit Dragged(position);
}

void ucSplitGrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) dragging_ = false;
}

void ucSplitGrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    // Between text and background, so that it stands out from light and dark panes alike.
    painter.setPen(palette().color(QPalette::PlaceholderText));
    for (int inset = 4; inset < handle_; inset += 4) {
        painter.drawLine(inset, handle_ - 1, handle_ - 1, inset);
    }
}

}  // namespace korvane
