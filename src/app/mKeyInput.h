// The keyboard of the main window: keys that nobody else wants become those of the keyboard map,
// and the focus goes back to the views after a control was used.
#pragma once

#include <QObject>
#include <QTimer>

class QKeyEvent;
class QWidget;

namespace korvane {

struct Editor;
class ucWorkspace;

/// Watches the whole program for what concerns the main window.
///
/// Text boxes keep their keys. All other controls pass on the keys that they do not use. A control
/// that was used with the mouse, and a menu, hands the focus back to `pbFocusKeeper`; one that was
/// reached with Tab keeps it until Escape, so that the keyboard gets at everything. Escape and
/// Enter leave a text box. A key goes to the keyboard map or is a shortcut of the desktop, never
/// both.
class KeyInput final : public QObject {
    Q_OBJECT

  public:
    /// All three must outlive it.
    KeyInput(Editor& editor, QWidget& window, ucWorkspace& workspace);

    /// Ticks until no key is held.
    void RunTimer() { tmrKeyBoard_.start(); }

    /// The keyboard is gone, and the releases with it: nothing stays held, mouse-look ends.
    void LoseKeys();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool IsInWindow(QObject* object) const;
    bool IsForViews(const QObject* watched) const;
    bool KeepsFromShortcuts(const QKeyEvent& event) const;
    bool HandleKey(QKeyEvent& event);
    bool HandsBack(const QKeyEvent& event, int code) const;
    void HandBackAfterMouse(QObject* used);
    void Tick();

    Editor& editor_;
    QWidget& window_;
    ucWorkspace& workspace_;
    QTimer tmrKeyBoard_;
};

}  // namespace korvane
