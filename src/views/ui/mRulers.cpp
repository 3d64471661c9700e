#include "views/ui/mRulers.h"

#include <QFontMetrics>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/NumberText.h"

namespace korvane {
namespace {

QString LabelText(double value) {
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
    return std::max(metrics.horizontalAdvance(LabelText(Value(range.first))),
                    metrics.horizontalAdvance(LabelText(Value(range.last)))) +
           1;
}

int HorizontalRuler::Height(const QFont& font) {
    return QFontMetrics(font).height() + 1;
}

const QStaticText& LabelCache::Label(double value) {
    constexpr std::size_t kMostLabels = 1000;  // a pan across a large world goes through many
    if (const auto known = labels_.find(value); known != labels_.end()) return known->second;
    if (labels_.size() >= kMostLabels) labels_.clear();
    QStaticText text(LabelText(value));
    text.setTextFormat(Qt::PlainText);
    text.prepare({}, font_);
    return labels_.emplace(value, std::move(text)).first->second;
}

void DrawLabels(QPainter& painter, const VerticalRuler& ruler, LabelCache& cache) {
    const double halfHeight = painter.fontMetrics().height() * 0.5;
    ForEachLabel(ruler.range, ruler.zoom, [&](double u) {
        const double y = ruler.originY - ruler.zoom * u - halfHeight;
        painter.drawStaticText(QPointF(0, y), cache.Label(ruler.Value(u)));
    });
}

void DrawLabels(QPainter& painter, const HorizontalRuler& ruler, LabelCache& cache) {
    ForEachLabel(ruler.range, ruler.zoom, [&](double u) {
        const QStaticText& text = cache.Label(-u);
        const double x = ruler.originX - ruler.zoom * u - text.size().width() * 0.5;
        painter.drawStaticText(QPointF(x, 0), text);
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
