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

  protected:
    void Compose(PaintSurface& surface) override;
    void ComposeSelection(PaintSurface& surface) override;
    void PaintOverlay(QPainter& painter) override;
    void Press(const MouseInput& mouse) override;
    void Move(const MouseInput& mouse) override;
    void Release(const MouseInput& mouse) override;
    void Cancel() override;

  private:
    int view_;
    Backdrop backdrop_;  ///< of the drag that moves the selection
};

}  // namespace korvane
