// A titled frame: a caption strip above a surface for other controls.
#pragma once

#include <QFrame>

class QLabel;
class QScrollArea;

namespace korvane {

class ucContainer final : public QFrame {
    Q_OBJECT

  public:
    ucContainer(const QString& name, const QString& title, QWidget* parent = nullptr);

    /// Puts the widget below the caption; it scrolls when the frame is too low for it.
    void SetContent(QWidget* content);

    /// Pixels that the frame needs for its content not to be cut, with a scroll bar beside it.
    int LeastWidth() const;

  private:
    QLabel* caption_;
    QScrollArea* scroller_;
};

}  // namespace korvane
