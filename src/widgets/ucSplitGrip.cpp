#include "widgets/ucSplitGrip.h"

#include <QMouseEvent>
#include <QPainter>

namespace korvane {
namespace {

// How much of the text's colour is mixed in: the grip stands out from light and dark panes alike.
constexpr qreal kFillShare = 0.3;
constexpr qreal kLineShare = 0.8;

QColor Between(const QPalette& palette, qreal share) {
    const QColor back = palette.color(QPalette::Window), text = palette.color(QPalette::WindowText);
    const auto mix = [share](qreal from, qreal to) { return from + (to - from) * share; };
    return QColor::fromRgbF(static_cast<float>(mix(back.redF(), text.redF())),
                            static_cast<float>(mix(back.greenF(), text.greenF())),
                            static_cast<float>(mix(back.blueF(), text.blueF())));
}

}  // namespace

ucSplitGrip::ucSplitGrip(int handle, int gap, QWidget* parent) : QWidget(parent), handle_(handle) {
    const int side = 2 * handle + gap;
    setObjectName("SplitGrip");
    setFixedSize(side, side);
    setCursor(Qt::SizeAllCursor);
    setToolTip("Drag to divide the views anew");
    setAccessibleName("Divider of the views");
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
    painter.fillRect(rect(), Between(palette(), kFillShare));
    painter.setPen(Between(palette(), kLineShare));
    for (int inset = 4; inset < handle_; inset += 4) {
        painter.drawLine(inset, handle_ - 1, handle_ - 1, inset);
    }
}

}  // namespace korvane
