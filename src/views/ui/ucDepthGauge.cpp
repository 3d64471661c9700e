#include "views/ui/ucDepthGauge.h"

#include "views/ui/mRender2D.h"

namespace korvane {

ucDepthGauge::ucDepthGauge(Editor& editor, QWidget* parent)
    : ucSurface(editor, editor.gauge, parent) {
}

void ucDepthGauge::Compose(PaintSurface& surface) {
    PaintDepthGauge(editor(), surface);
}

void ucDepthGauge::Press(const MouseInput& mouse) {
    PressGauge(editor(), mouse);
}

void ucDepthGauge::Move(const MouseInput& mouse) {
    MoveOverGauge(editor(), mouse);
}

void ucDepthGauge::Release(const MouseInput& mouse) {
    ReleaseGauge(editor(), mouse);
}

void ucDepthGauge::Cancel() {
    CancelGaugeGesture(editor());
}

}  // namespace korvane
