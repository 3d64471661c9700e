// The cursor during mouse-look: hidden, held by the pane, and put back into its middle after every
// move. Where a program may not move the cursor (Wayland), the camera follows it as it goes, and
// turns on by itself while the cursor rests at an edge of the window.
#pragma once

#include <QPointF>
#include <QTimer>

#include "editor/Editor.h"

class QWidget;

namespace korvane {

class LookPointer {
  public:
    /// For the mouse-look of the session over the pane; both must outlive it.
    LookPointer(Editor& editor, QWidget& pane);

    /// Takes the cursor or gives it back, as mouse-look has been switched on or off.
    void Follow();

    /// The cursor is at a position of the pane.
    void MovedTo(const QPointF& position);

    /// Whether the cursor may be moved; as a rule the window system decides.
    void SetRecentring(bool mayMove) { mayMove_ = mayMove; }

  private:
    void Take();
    void GiveBack();
    bool HasArrived(const QPointF& position) const;
    void Recentre();
    void TurnOn();
    void Look(const QPointF& position);

    Editor& editor_;
    QWidget& pane_;
    bool taken_ = false;
    bool mayMove_;            ///< the window system lets the cursor be moved
    bool recentres_ = false;  ///< and does it: a move may be refused
    QPointF last_;            ///< position before this one
    QPointF centre_;          ///< where the cursor was put
    QPointF drift_;           ///< how far the camera has turned beyond the cursor, pixels
    QTimer edge_;
};

}  // namespace korvane
