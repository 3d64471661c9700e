// The grip over the crossing of the four panes: dragging it moves both splits at once.
#pragma once

#include <QWidget>

namespace korvane {

/// Only the handle and the gaps between the panes belong to the grip; the rest of its rectangle is
/// left to the panes below, so that it hides no caption.
class ucSplitGrip final : public QWidget {
    Q_OBJECT

  public:
    /// `handle` is the side of the visible handle and `gap` the distance between panes, in pixels.
    /// The handle lies in the corner of the upper left pane.
    ucSplitGrip(int handle, int gap, QWidget* parent = nullptr);

  signals:
    /// The pointer was dragged to a point of the parent widget.
    void Dragged(const QPoint& position);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    int handle_;
    bool dragging_ = false;
};

}  // namespace korvane
