#include "views/ui/ucView.h"

#include <QCursor>
#include <QGuiApplication>
#include <QWheelEvent>
#include <cstddef>

#include "editor/mViewPointer.h"
#include "editor/mViews.h"
#include "views/ui/MouseEvents.h"
#include "views/ui/mRender2D.h"

namespace korvane {
namespace {

constexpr double kNotch = 120;  // eighths of a degree

Qt::CursorShape ShapeOf(PressEffect effect) {
    switch (effect) {
        case PressEffect::Create:
            return Qt::CrossCursor;
        case PressEffect::Move:
            return Qt::SizeAllCursor;
        case PressEffect::Pick:
            return Qt::PointingHandCursor;
        case PressEffect::Pan:
            return Qt::ClosedHandCursor;
        case PressEffect::Nothing:
            break;
    }
    return Qt::ArrowCursor;
}

}  // namespace

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
    ShowPointer(mouse);
}

void ucView::Move(const MouseInput& mouse) {
    MoveOverView(editor(), view_, mouse);
    ShowPointer(mouse);
}

void ucView::Release(const MouseInput& mouse) {
    ReleaseView(editor(), view_, mouse);
    ShowPointer(mouse);
}

void ucView::Cancel() {
    CancelViewGesture(editor());
}

/// Ctrl and Shift mean nothing to the wheel.
void ucView::wheelEvent(QWheelEvent* event) {
    TurnWheel(editor(), view_, ToMouseInput(event->position(), event->modifiers()),
              event->angleDelta().y() / kNotch);
    event->accept();
}

void ucView::ShowPointer() {
    if (!underMouse()) return;
    ShowPointer(ToMouseInput(mapFromGlobal(QPointF(QCursor::pos())),
                             QGuiApplication::queryKeyboardModifiers()));
}

void ucView::ShowPointer(const MouseInput& mouse) {
    const Qt::CursorShape shape = ShapeOf(EffectOfPress(editor(), view_, mouse));
    if (cursor().shape() != shape) setCursor(shape);
}

}  // namespace korvane
