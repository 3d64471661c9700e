#include "views/ui/ucView.h"

#include <cstddef>

#include "views/ui/mRender2D.h"

namespace korvane {

ucView::ucView(Editor& editor, int view, QWidget* parent)
    : ucSurface(editor, editor.views[static_cast<std::size_t>(view)], parent), view_(view) {
}

void ucView::Compose(PaintSurface& surface) {
    backdrop_ = {};
    PaintView(editor(), view_, surface);
}

void ucView::ComposeSelection(PaintSurface& surface) {
    if (IsMovingSelection(editor())) {
        PaintMoveStep(editor(), view_, surface, backdrop_);
    } else {
        Compose(surface);
    }
}

void ucView::PaintOverlay(QPainter& painter) {
    const Color color = editor().settings.colors[ColorItem::View2DSelectedBrushes];
    if (const auto band = CurrentRubberBand(editor(), view_))
        PaintRubberBand(painter, *band, color, font2D());
    if (const auto readOut = CurrentReadOut(editor(), view_))
        PaintReadOut(painter, *readOut, color, font2D());
}

void ucView::Press(const MouseInput& mouse) {
    PressView(editor(), view_, mouse);
}

void ucView::Move(const MouseInput& mouse) {
    MoveOverView(editor(), view_, mouse);
}

void ucView::Release(const MouseInput& mouse) {
    ReleaseView(editor(), view_, mouse);
}

void ucView::Cancel() {
    CancelViewGesture(editor());
}

}  // namespace korvane
