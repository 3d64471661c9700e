// A 2D view of the scene: Top, Left or Front.
#pragma once

#include "views/ui/Backdrop.h"
#include "views/ui/ucSurface.h"

namespace korvane {

/// The picture surface of one view of the session.
class ucView : public ucSurface {
    Q_OBJECT

  public:
    ucView(Editor& editor, int view, QWidget* parent = nullptr);

    /// Gives the pointer over the view the shape of what a press would do; to be called when that
    /// may have changed while the mouse stood still.
    void ShowPointer();

  protected:
    void Compose(PaintSurface& surface) override;
    void ComposeSelection(PaintSurface& surface) override;
    void PaintOverlay(QPainter& painter) override;
    void Press(const MouseInput& mouse) override;
    void Move(const MouseInput& mouse) override;
    void Release(const MouseInput& mouse) override;
    void Cancel() override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void ShowPointer(const MouseInput& mouse);

    int view_;
    Backdrop backdrop_;  ///< of the drag that moves the selection
};

}  // namespace korvane
