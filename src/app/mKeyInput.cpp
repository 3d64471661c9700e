#include "app/mKeyInput.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <algorithm>

#include "app/mShortcuts.h"
#include "app/ucWorkspace.h"
#include "editor/mKeyBoard.h"
#include "platform/VirtualKeys.h"
#include "views/ui/ucPreview.h"

namespace korvane {
namespace {

constexpr int kTab = 9;
constexpr int kEnter = 13;
constexpr int kEscape = 27;

bool IsTextBox(const QObject* object) {
    return qobject_cast<const QLineEdit*>(object) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(object) != nullptr;
}

}  // namespace

KeyInput::KeyInput(Editor& editor, QWidget& window, ucWorkspace& workspace)
    : editor_(editor), window_(window), workspace_(workspace) {
    tmrKeyBoard_.setObjectName("tmrKeyBoard");
    tmrKeyBoard_.setTimerType(Qt::PreciseTimer);
    tmrKeyBoard_.setInterval(kKeyBoardTick);
    connect(&tmrKeyBoard_, &QTimer::timeout, this, &KeyInput::Tick);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
        if (now == nullptr || IsTextBox(now)) LoseKeys();
    });
    qApp->installEventFilter(this);
}

void KeyInput::Tick() {
    AdvanceKeyBoard(editor_);
    if (!editor_.keyBoard.running) tmrKeyBoard_.stop();
}

void KeyInput::LoseKeys() {
    ReleaseAllKeys(editor_);
    workspace_.Preview().EndLook();
}

bool KeyInput::IsInWindow(QObject* object) const {
    const auto* widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && widget->window() == &window_;
}

/// What other controls leave over arrives at the window.
bool KeyInput::IsForViews(const QObject* watched) const {
    return watched == &workspace_.FocusKeeper() || watched == &window_;
}

bool KeyInput::KeepsFromShortcuts(const QKeyEvent& event) const {
    constexpr auto kCommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (IsTextBox(window_.focusWidget())) return false;
    return TakesShortcut(editor_, KeyId(event), VirtualKeyCode(event),
                         !(event.modifiers() & kCommandKeys), event.timestamp());
}

bool KeyInput::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // Ctrl and Shift change what a press would do; the state is new after the event.
            QMetaObject::invokeMethod(&workspace_, &ucWorkspace::ShowPointers,
                                      Qt::QueuedConnection);
            if (IsForViews(watched)) return HandleKey(*static_cast<QKeyEvent*>(event));
            break;
        case QEvent::ShortcutOverride:
            if (IsForViews(watched) && KeepsFromShortcuts(*static_cast<QKeyEvent*>(event))) {
                event->accept();
                return true;
            }
            break;
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
            if (watched == &window_) LoseKeys();
            break;
        case QEvent::FocusOut:
            // A menu takes the keys without changing the focus.
            if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason &&
                IsInWindow(watched))
                LoseKeys();
            break;
        case QEvent::MouseButtonRelease:
            HandBackAfterMouse(watched);
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

/// Later, because the control has not seen the event yet; unless someone types elsewhere by then.
void KeyInput::HandBackAfterMouse(QObject* used) {
    if (!IsInWindow(used) || IsTextBox(used) || qobject_cast<QMenuBar*>(used) != nullptr) return;
    const QWidget* focus = window_.focusWidget();
    if (focus == &workspace_.FocusKeeper()) return;
    const auto handBack = [this, focus] {
        const QWidget* now = window_.focusWidget();
        if (now == focus || !IsTextBox(now)) editor_.host.FocusViews();
    };
    QMetaObject::invokeMethod(this, handBack, Qt::QueuedConnection);
}

bool KeyInput::HandsBack(const QKeyEvent& event, int code) const {
    const QWidget* focus = window_.focusWidget();
    if (event.type() != QEvent::KeyPress || focus == &workspace_.FocusKeeper()) return false;
    return code == kEscape || (code == kEnter && IsTextBox(focus));
}

bool KeyInput::HandleKey(QKeyEvent& event) {
    const int code = VirtualKeyCode(event);
    const bool press = event.type() == QEvent::KeyPress;
    if (HandsBack(event, code)) {
        editor_.host.FocusViews();
        return true;
    }
    if (IsTextBox(window_.focusWidget())) return false;
    if (code == kTab && !IsBound(editor_.settings.keyMap, kTab)) return false;
    if (event.isAutoRepeat()) return true;
    // The shortcut of a command that can't be used now is not another function of its key.
    if (press && IsShortcut(event) && !KeepsFromShortcuts(event)) return true;
    press ? PressKey(editor_, KeyId(event), code, event.timestamp())
          : ReleaseKey(editor_, KeyId(event), event.timestamp());
    return true;
}

}  // namespace korvane
