#include "widgets/MenuStyle.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace korvane {
namespace {

/// The icon's shape in one colour.
QIcon InColor(const QIcon& icon, int size, qreal pixelRatio, const QColor& color) {
    QPixmap shape = icon.pixmap(QSize(size, size), pixelRatio);
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), shape.deviceIndependentSize().toSize()), color);
    return shape;
}

}  // namespace

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    constexpr State kHighlighted = State_Selected | State_Enabled;
    if (element != CE_MenuItem || item == nullptr || item->icon.isNull() ||
        (item->state & kHighlighted) != kHighlighted) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionMenuItem shown(*item);
    shown.icon = InColor(item->icon, proxy()->pixelMetric(PM_SmallIconSize, option, widget),
                         painter->device()->devicePixelRatioF(),
                         item->palette.color(QPalette::HighlightedText));
    QProxyStyle::drawControl(element, &shown, painter, widget);
}

}  // namespace korvane
