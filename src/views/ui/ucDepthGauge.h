// The depth gauge: the scale with the two levels that give a new brush its depth.
#pragma once

#include "views/ui/ucSurface.h"

namespace korvane {

/// The picture surface of the session's depth range.
class ucDepthGauge : public ucSurface {
    Q_OBJECT

  public:
    explicit ucDepthGauge(Editor& editor, QWidget* parent = nullptr);

  protected:
    void Compose(PaintSurface& surface) override;
    void Press(const MouseInput& mouse) override;
    void Move(const MouseInput& mouse) override;
    void Release(const MouseInput& mouse) override;
    void Cancel() override;
};

}  // namespace korvane
