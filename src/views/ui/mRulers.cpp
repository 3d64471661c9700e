#include "views/ui/mRulers.h"

#include <QFontMetrics>
#include <QPainter>
#include <QString>
#include <algorithm>

#include "base/NumberText.h"

namespace korvane {
namespace {

QString Label(double value) {
    return QString::fromLatin1(FormatFixed(value, 1, 1).c_str());
}

template <class Print>
void ForEachLabel(const GridRange& range, int zoom, Print print) {
    WalkGrid(range, [&](double u, GridLine) {
        if (RulerLabels(u, zoom)) print(u);
    });
}

}  // namespace

int VerticalRuler::Width(const QFont& font) const {
    const QFontMetrics metrics(font);
    return std::max(metrics.horizontalAdvance(Label(Value(range.first))),
                    metrics.horizontalAdvance(Label(Value(range.last)))) +
           1;
}

int HorizontalRuler::Height(const QFont& font) {
    return QFontMetrics(font).height() + 1;
}

void DrawLabels(QPainter& painter, const VerticalRuler& ruler) {
    const QFontMetrics metrics(painter.font());
    const double toBaseline = metrics.ascent() - metrics.height() * 0.5;
    ForEachLabel(ruler.range, ruler.zoom, [&](double u) {
        const double y = ruler.originY - ruler.zoom * u;
        painter.drawText(QPointF(0, y + toBaseline), Label(ruler.Value(u)));
    });
}

void DrawLabels(QPainter& painter, const HorizontalRuler& ruler) {
    const QFontMetrics metrics(painter.font());
    ForEachLabel(ruler.range, ruler.zoom, [&](double u) {
        const QString text = Label(-u);
        const double x = ruler.originX - ruler.zoom * u - metrics.horizontalAdvance(text) * 0.5;
        painter.drawText(QPointF(x, metrics.ascent()), text);
    });
}

QFont CaptionFont(const QFont& font) {
    constexpr int kSmallest = 6;  // pixels
    QFont bold = font;
    bold.setBold(true);
    const auto fits = [&bold] {
        const QFontMetrics metrics(bold);
        return metrics.horizontalAdvance("FRONT") < kCaptionRight &&
               metrics.height() <= kCaptionBottom;
    };
    while (bold.pixelSize() > kSmallest && !fits()) bold.setPixelSize(bold.pixelSize() - 1);
    return bold;
}

}  // namespace korvane
