// The depth gauge's part of mViewGestures.h.
#include <cmath>
#include <utility>

#include "base/NumberText.h"
#include "base/Rounding.h"
#include "editor/mViewGestures.h"

namespace korvane {
namespace {

bool IsRunning(const GaugeGesture& gesture) {
    return gesture.panning || gesture.level != GaugeLevel::None;
}

float Snapped(const Editor& editor, float depth) {
    return SnapToGrid(depth, editor.settings.SnapStep());
}

GaugeLevel NearerLevel(const DepthRange& range, float depth) {
    const double toLO = std::abs(static_cast<double>(range.LO) - depth);
    const double toHI = std::abs(static_cast<double>(range.HI) - depth);
    return toLO <= toHI ? GaugeLevel::LO : GaugeLevel::HI;
}

void DragLevel(Editor& editor, float depth) {
    GaugeGesture& gesture = editor.gaugeGesture;
    float& level = gesture.level == GaugeLevel::HI ? editor.depthRange.HI : editor.depthRange.LO;
    const double moved = static_cast<double>(depth) - gesture.previous;
    level = Snapped(editor, static_cast<float>(level + moved));
    gesture.previous = depth;
    editor.host.RequestRedraw(RedrawDepthGauge);
}

void PanGauge(Editor& editor, float y) {
    ViewState& gauge = editor.gauge;
    gauge.panY = RoundToInt(gauge.panY - (static_cast<double>(editor.gaugeGesture.lastY) - y));
    editor.gaugeGesture.lastY = y;
    UpdateViewOrigin(gauge);
    editor.host.RequestRedraw(RedrawDepthGauge);
}

void ShowDepths(const Editor& editor, float depth) {
    editor.host.ShowStatus(1, "Depth");
    editor.host.ShowStatus(2, "HI: " + FormatFixed(editor.depthRange.HI, 2, 2));
    editor.host.ShowStatus(3, "LO: " + FormatFixed(editor.depthRange.LO, 2, 2));
    editor.host.ShowStatus(4, "D: " + FormatFixed(depth, 2, 2));
}

}  // namespace

void PressGauge(Editor& editor, const MouseInput& mouse) {
    GaugeGesture& gesture = editor.gaugeGesture;
    if (IsRunning(gesture)) return;
    gesture.lastY = mouse.y;
    gesture.previous = ScreenToDepth(editor.gauge, mouse.y);
    gesture.panning = mouse.button == MouseButton::Right;
    if (mouse.button == MouseButton::Left)
        gesture.level = NearerLevel(editor.depthRange, gesture.previous);
}

void MoveOverGauge(Editor& editor, const MouseInput& mouse) {
    GaugeGesture& gesture = editor.gaugeGesture;
    if (mouse.button == MouseButton::None) CancelGaugeGesture(editor);
    const float depth = Snapped(editor, ScreenToDepth(editor.gauge, mouse.y));
    if (gesture.level != GaugeLevel::None) DragLevel(editor, depth);
    if (gesture.panning) PanGauge(editor, mouse.y);
    ShowDepths(editor, depth);
}

void ReleaseGauge(Editor& editor, const MouseInput& mouse) {
    const GaugeGesture& gesture = editor.gaugeGesture;
    const MouseButton own = gesture.panning ? MouseButton::Right : MouseButton::Left;
    if (mouse.button == own) CancelGaugeGesture(editor);
    editor.host.FocusViews();
}

void CancelGaugeGesture(Editor& editor) {
    GaugeGesture& gesture = editor.gaugeGesture;
    if (!IsRunning(gesture)) return;
    gesture.level = GaugeLevel::None;
    gesture.panning = false;
    DepthRange& range = editor.depthRange;
    if (range.HI < range.LO) std::swap(range.HI, range.LO);
    editor.host.RequestRedraw(RedrawDepthGauge);
}

}  // namespace korvane
