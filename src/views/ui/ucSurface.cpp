#include "views/ui/ucSurface.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "views/ui/MouseEvents.h"
#include "views/ui/mDevicePixels.h"

namespace korvane {
ucSurface::ucSurface(Editor& editor, ViewState& state, QWidget* parent)
    : QWidget(parent), editor_(editor), state_(state) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
}

void ucSurface::MarkDirty() {
    stale_ = Stale::Everything;
    update();
}

void ucSurface::MarkSelectionDirty() {
    if (stale_ == Stale::Nothing) stale_ = Stale::Selection;
    update();
}

bool ucSurface::event(QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::ApplicationFontChange) {
        surface_.RefreshFont();
        MarkDirty();
    }
    if (type == QEvent::UngrabMouse || type == QEvent::WindowDeactivate) CancelGesture();
    return QWidget::event(event);
}

/// Watches the whole program while a button is down: the keyboard focus lies elsewhere.
bool ucSurface::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool key = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return QWidget::eventFilter(watched, event);
    event->accept();  // an accepted override keeps the key from becoming a shortcut
    if (type == QEvent::KeyPress) CancelGesture();
    return true;
}

void ucSurface::BringUpToDate() {
    const double ratio = devicePixelRatioF();
    if (ratio != surface_.ratio) stale_ = Stale::Everything;
    surface_.ratio = ratio;
    if (stale_ == Stale::Everything) Compose(surface_);
    if (stale_ == Stale::Selection) ComposeSelection(surface_);
    stale_ = Stale::Nothing;
}

void ucSurface::paintEvent(QPaintEvent*) {
    BringUpToDate();
    QPainter painter(this);
    DrawDevicePixels(painter, {0, 0}, surface_.image);
    PaintOverlay(painter);
}

void ucSurface::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    state_.width = width();
    state_.height = height();
    UpdateViewOrigin(state_);
    MarkDirty();
}

void ucSurface::hideEvent(QHideEvent* event) {
    CancelGesture();
    QWidget::hideEvent(event);
}

void ucSurface::mousePressEvent(QMouseEvent* event) {
    if (!watching_) qApp->installEventFilter(this);
    watching_ = true;
    Press(ToMouseInput(*event, event->button()));
}

/// The second press of a double click is a press like any other.
void ucSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void ucSurface::mouseMoveEvent(QMouseEvent* event) {
    Move(ToMouseInput(*event, event->buttons()));
}

void ucSurface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton && watching_) {
        qApp->removeEventFilter(this);
        watching_ = false;
    }
    Release(ToMouseInput(*event, event->button()));
}

void ucSurface::CancelGesture() {
    if (!watching_) return;
    qApp->removeEventFilter(this);
    watching_ = false;
    Cancel();
}

}  // namespace korvane
