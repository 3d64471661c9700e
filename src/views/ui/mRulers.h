// Rulers and captions along the edges of the 2D views and the depth gauge.
#pragma once

#include <QFont>
#include <QStaticText>
#include <unordered_map>

#include "views/core/mGrid.h"

class QPainter;

namespace korvane {

/// A ruler strip down the left edge of a surface of `height` logical pixels.
struct VerticalRuler {
    GridRange range;
    int originY = 0;
    int zoom = 80;
    bool negated = false;  ///< labels show -u instead of u: world values grow downwards

    /// The value that the label of u shows.
    double Value(double u) const { return negated ? -u : u; }

    /// Width of the strip: the longer of its two end labels, plus 1.
    int Width(const QFont& font) const;
};

/// A ruler strip along the top edge.
struct HorizontalRuler {
    GridRange range;
    int originX = 0;
    int zoom = 80;

    /// Height of the strip: one line of text, plus 1.
    static int Height(const QFont& font);
};

/// Labels laid out once for one font: shaping text is most of a ruler's cost.
class LabelCache {
  public:
    explicit LabelCache(const QFont& font) : font_(font) {}

    /// The label of a multiple of 0.5.
    const QStaticText& Label(double value);

  private:
    QFont font_;
    std::unordered_map<double, QStaticText> labels_;
};

/// Prints the labels with the painter's pen and font, which is that of the cache; the strip is
/// already filled.
void DrawLabels(QPainter& painter, const VerticalRuler& ruler, LabelCache& cache);
void DrawLabels(QPainter& painter, const HorizontalRuler& ruler, LabelCache& cache);

/// The logical pixels of the caption's box, both last ones included.
inline constexpr int kCaptionRight = 45;
inline constexpr int kCaptionBottom = 14;

/// The bold variant of the font, small enough for every caption to fit its box.
QFont CaptionFont(const QFont& font);

}  // namespace korvane
