// What the three 2D views and the depth gauge have in common as widgets: a picture that is composed
// only when it is out of date, and mouse events handed on as gestures.
#pragma once

#include <QWidget>

#include "editor/mViewGestures.h"
#include "views/ui/PaintSurface.h"

namespace korvane {

/// A picture surface of the session. The session must outlive it.
class ucSurface : public QWidget {
  public:
    ucSurface(Editor& editor, ViewState& state, QWidget* parent);

    /// The picture is out of date: composes it anew in the next turn of the event loop. To redraw
    /// only what lies over it, call update().
    void MarkDirty();

    /// The same where only the selected brushes and the rotation marker are out of date.
    void MarkSelectionDirty();

    /// The picture as last composed.
    const QImage& Picture() const { return surface_.image; }

  protected:
    virtual void Compose(PaintSurface& surface) = 0;
    /// Composes when only MarkSelectionDirty was called since the picture was composed.
    virtual void ComposeSelection(PaintSurface& surface) { Compose(surface); }
    /// Draws what lies over the composed picture.
    virtual void PaintOverlay(QPainter& painter) { Q_UNUSED(painter) }
    virtual void Press(const MouseInput& mouse) = 0;
    virtual void Move(const MouseInput& mouse) = 0;
    virtual void Release(const MouseInput& mouse) = 0;
    virtual void Cancel() = 0;

    Editor& editor() { return editor_; }
    const QFont& font2D() const { return surface_.font; }

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    enum class Stale { Nothing, Selection, Everything };

    void CancelGesture();
    void BringUpToDate();

    Editor& editor_;
    ViewState& state_;
    PaintSurface surface_;
    Stale stale_ = Stale::Everything;  ///< what of the picture is out of date
    bool watching_ = false;  ///< a button is down: Escape anywhere in the program ends the gesture
};

}  // namespace korvane
