#include "widgets/ucStatusBar.h"

#include <QFrame>
#include <QPainter>

namespace korvane {
namespace {

constexpr int kMargin = 6;  // pixels beside the text
constexpr int kSelectionPanel = 5;
constexpr int kTextShare = 3;  // of the room that the read-outs leave
constexpr int kSelectionShare = 2;
constexpr const char* kWidestReadOut = "HI: -0000.00";

}  // namespace

/// One panel. It elides its text itself, because a label would widen the whole window for it.
class StatusPanel final : public QFrame {
  public:
    StatusPanel(QWidget* parent, int index) : QFrame(parent) {
        setObjectName(QString("StatusBar_%1").arg(index));
        setFrameStyle(QFrame::Panel | QFrame::Sunken);
        setMinimumHeight(fontMetrics().height() + 6);
    }

    void SetText(const QString& text) {
        if (text == text_) return;
        text_ = text;
        setAccessibleName(text);
        update();
    }
    const QString& Text() const { return text_; }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        QPainter painter(this);
        const QRect inside = contentsRect().adjusted(kMargin, 0, -kMargin, 0);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(inside, Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(text_, Qt::ElideRight, inside.width()));
    }

  private:
    QString text_;
};

ucStatusBar::ucStatusBar(QWidget* parent) : QStatusBar(parent) {
    setObjectName("StatusBar");
    const int readOut = fontMetrics().horizontalAdvance(kWidestReadOut) + 4 * kMargin;
    for (int i = 0; i < kPanels; ++i) {
        panels_[i] = new StatusPanel(this, i);
        const int stretch = i == 0 ? kTextShare : i == kSelectionPanel ? kSelectionShare : 0;
        if (stretch == 0) panels_[i]->setFixedWidth(readOut);
        addWidget(panels_[i], stretch);
    }
    SetText(kSelectionPanel, {});
}

void ucStatusBar::SetText(int panel, const QString& text) {
    if (panel < 0 || panel >= kPanels) return;
    panels_[panel]->SetText(text);
    if (panel != kSelectionPanel) return;
    // In full: the panel may be too narrow for it.
    const QString hint = tr("Size and middle of the selected brushes");
    panels_[panel]->setToolTip(text.isEmpty() ? hint : hint + "\n" + text);
}

QString ucStatusBar::Text(int panel) const {
    return panels_.at(panel)->Text();
}

}  // namespace korvane
