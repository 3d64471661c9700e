#include "views/ui/ucPreview.h"

#include <QMouseEvent>
#include <QPainter>

#include "base/Rounding.h"
#include "editor/mMouseLook.h"
#include "editor/mPreviewClick.h"
#include "views/ui/MouseEvents.h"
#include "views/ui/mDevicePixels.h"
#include "views/ui/mPick.h"

namespace korvane {

ucPreview::ucPreview(Editor& editor, RenderContext& context, const TextureObjects& textures,
                     QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      context_(context),
      textures_(textures),
      pointer_(editor, *this) {
    setAttribute(Qt::WA_OpaquePaintEvent);  // every pixel is painted, so nothing is erased before
    setMouseTracking(true);
    setAccessibleName(tr("3D preview"));
}

void ucPreview::MarkDirty() {
    dirty_ = true;
    update();
}

QSize ucPreview::DeviceSize() const {
    return DevicePixels(size(), devicePixelRatioF());
}

void ucPreview::ResizeViewport() {
    const QSize size = DeviceSize();
    ResizePreviewViewport(context_, size.width(), size.height(), kPreviewFar, kPreviewFieldOfView);
    MarkDirty();
}

PreviewScene ucPreview::Shown() const {
    return {editor_.scene, editor_.settings, editor_.camera, textures_};
}

/// A window moved to a screen of another density is not resized in its own pixels.
void ucPreview::FitViewport() {
    const QSize size = DeviceSize();
    if (QSize(context_.width, context_.height) == size) return;
    ResizePreviewViewport(context_, size.width(), size.height(), kPreviewFar, kPreviewFieldOfView);
}

void ucPreview::RenderNow() {
    FitViewport();
    RenderPreview(context_, renderer_, Shown());
    dirty_ = false;
}

void ucPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!context_.OpenGLReady) {
        const Color color = editor_.settings.colors[ColorItem::View3DBackground];
        painter.fillRect(rect(), QColor(int(Red(color)), int(Green(color)), int(Blue(color))));
        return;
    }
    if (dirty_) RenderNow();
    DrawDevicePixels(painter, {0, 0}, context_.frame);
}

void ucPreview::resizeEvent(QResizeEvent*) {
    ResizeViewport();
}

bool ucPreview::event(QEvent* event) {
    if (event->type() == QEvent::UngrabMouse) EndLook();
    return QWidget::event(event);
}

void ucPreview::hideEvent(QHideEvent* event) {
    EndLook();
    QWidget::hideEvent(event);
}

void ucPreview::EndLook() {
    if (editor_.mouseLook.state == LookOff) return;
    EndMouseLook(editor_);
    pointer_.Follow();
}

void ucPreview::mousePressEvent(QMouseEvent* event) {
    constexpr auto kModifiers = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    const bool ctrlOnly = (event->modifiers() & kModifiers) == Qt::ControlModifier;
    const bool picks = event->button() == Qt::LeftButton && ctrlOnly;
    if (picks && editor_.mouseLook.state == LookOff) PickAt(event->position());
    PressPreview(editor_, ToMouseInput(*event, event->button()));
    pointer_.Follow();
}

/// The second press of a double click is a press like any other.
void ucPreview::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void ucPreview::mouseMoveEvent(QMouseEvent* event) {
    ShowPreviewStatus(editor_);
    pointer_.MovedTo(event->position());
}

void ucPreview::mouseReleaseEvent(QMouseEvent* event) {
    ReleasePreview(editor_, ToMouseInput(*event, event->button()));
}

/// The position counts in the widget's own pixels.
void ucPreview::PickAt(const QPointF& position) {
    FitViewport();
    const QPointF pixel = position * devicePixelRatioF();
    ClickPreview(editor_, [&] {
        return PickPreview(context_, renderer_, Shown(), RoundToInt(pixel.x()),
                           RoundToInt(pixel.y()));
    });
}

}  // namespace korvane
