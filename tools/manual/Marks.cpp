#include "tools/manual/Marks.h"

#include <QLineF>
#include <QPainter>

namespace korvane::manual {
namespace {

const QColor kInk(214, 69, 18);
constexpr int kRadius = 12;  // pixels, as are the next ones
constexpr int kHead = 12;
constexpr double kHeadAngle = 25;  // degrees

void DrawDisc(QPainter& painter, const QPoint& at, const QString& text) {
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(kInk);
    painter.drawEllipse(at, kRadius, kRadius);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QRect(at.x() - kRadius, at.y() - kRadius, 2 * kRadius, 2 * kRadius),
                     Qt::AlignCenter, text);
}

void DrawArrow(QPainter& painter, const QPointF& from, const QPointF& to) {
    QLineF shaft(from, to);
    painter.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(shaft);
    for (const double angle : {kHeadAngle, -kHeadAngle}) {
        QLineF side(to, from);
        side.setLength(kHead);
        side.setAngle(side.angle() + angle);
        painter.drawLine(side);
    }
    painter.setBrush(Qt::white);
    painter.drawEllipse(from, 4, 4);
}

}  // namespace

void DrawMarks(QImage& picture, const std::vector<Mark>& marks) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Mark& mark : marks) {
        if (mark.dragFrom) {
            DrawArrow(painter, *mark.dragFrom, mark.at);
        } else {
            DrawDisc(painter, mark.at, mark.text);
        }
    }
}

}  // namespace korvane::manual
