#include "views/ui/LookPointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QWidget>

#include "editor/mKeyBoard.h"
#include "editor/mMouseLook.h"

namespace korvane {
namespace {

constexpr int kEdge = 32;    // pixels at the border of the window in which the camera turns on
constexpr int kDrift = 4;    // pixels a tick that it turns on by
constexpr int kNowhere = 2;  // pixels within which the cursor counts as being where it was put

double Between(const QPointF& a, const QPointF& b) {
    return (a - b).manhattanLength();
}

/// -1 at the lower end of a length, 1 at the upper end, 0 between.
int EndOf(double position, int length) {
    if (position < kEdge) return -1;
    return position >= length - kEdge ? 1 : 0;
}

bool MayMoveCursor() {
    return !QGuiApplication::platformName().startsWith("wayland");
}

}  // namespace

LookPointer::LookPointer(Editor& editor, QWidget& pane)
    : editor_(editor), pane_(pane), mayMove_(MayMoveCursor()) {
    edge_.setInterval(kKeyBoardTick);
    edge_.callOnTimeout([this] { TurnOn(); });
}

void LookPointer::Follow() {
    const bool looking = editor_.mouseLook.state != LookOff;
    if (looking == taken_) return;
    taken_ = looking;
    looking ? Take() : GiveBack();
}

/// Held, because a slow frame lets the cursor run out of the pane: a click must not land elsewhere.
void LookPointer::Take() {
    last_ = QPointF(editor_.mouseLook.lastX, editor_.mouseLook.lastY);
    drift_ = {};
    recentres_ = mayMove_;
    pane_.setCursor(Qt::BlankCursor);
    pane_.grabMouse(Qt::BlankCursor);
    if (!recentres_) edge_.start();
}

void LookPointer::GiveBack() {
    edge_.stop();
    pane_.releaseMouse();
    pane_.unsetCursor();
}

/// Whether the position is one after the cursor was put into the middle. Moves that were on their
/// way before still come in then, and lie near the one before.
bool LookPointer::HasArrived(const QPointF& position) const {
    return Between(position, centre_) < Between(position, last_);
}

void LookPointer::MovedTo(const QPointF& position) {
    if (!taken_) return;
    if (editor_.mouseLook.state == LookRecentred) {
        const QPointF from = HasArrived(position) ? centre_ : last_;
        Look(from);
        if (from == centre_ && Between(position, centre_) < 1) {
            last_ = position;
            return;  // the jump itself
        }
    }
    last_ = position;
    Look(position);
}

void LookPointer::Look(const QPointF& position) {
    const QPointF at = position + drift_;
    if (LookTo(editor_, static_cast<float>(at.x()), static_cast<float>(at.y()), recentres_))
        Recentre();
}

void LookPointer::Recentre() {
    const QPoint before = QCursor::pos();
    const QPoint middle = pane_.mapToGlobal(pane_.rect().center());
    centre_ = pane_.rect().center();
    QCursor::setPos(middle);
    // A remote desktop may leave the cursor where the other end has it.
    const bool stays = QCursor::pos() == before && (before - middle).manhattanLength() > kNowhere;
    if (!stays) return;
    recentres_ = false;
    Look(last_);
    edge_.start();
}

void LookPointer::TurnOn() {
    const QWidget& window = *pane_.window();
    const QPointF at = pane_.mapTo(&window, last_);
    const QPoint edge(EndOf(at.x(), window.width()), EndOf(at.y(), window.height()));
    if (edge.isNull()) return;
    drift_ += QPointF(edge * kDrift);
    Look(last_);
}

}  // namespace korvane
