// What an editing session asks of its outside. The window implements it; tests record it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/Settings.h"

namespace korvane {

/// Screens to be redrawn, as a set of bits.
enum RedrawSet : unsigned {
    RedrawTop = 1,
    RedrawLeft = 2,
    RedrawFront = 4,
    RedrawDepthGauge = 8,
    RedrawPreview = 16,
    RedrawAll = 31,
    /// Bits from here on ask only for what lies over a composed view, see RedrawOverlay.
    RedrawOverlayTop = 32,
    /// Bits from here on ask only for the selected brushes and the marker, see RedrawSelection.
    RedrawSelectionTop = 256,
    /// A step of a drag that moves the selection.
    RedrawMoveStep = 7 * RedrawSelectionTop | RedrawPreview
};

/// The bit of one 2D view.
constexpr unsigned RedrawView(int view) {
    return 1U << view;
}

/// The bit of what a gesture shows over one 2D view: the composed picture below it is still good.
constexpr unsigned RedrawOverlay(int view) {
    return RedrawOverlayTop << view;
}

/// The bit of the selected brushes and the rotation marker in one 2D view: background, grid and the
/// unselected brushes are as they were when the view was composed.
constexpr unsigned RedrawSelection(int view) {
    return RedrawSelectionTop << view;
}

/// Windows that a command opens.
enum class Form {
    ArbitrarySize,
    Select,
    FreeRotate,
    Multiply,
    ExportSourceCode,
    Statistics,
    Preferences,
    Optimize
};

/// The session's outside. Every call is a request: nothing is painted from inside it.
class EditorHost {
  public:
    virtual ~EditorHost() = default;

    /// Marks screens dirty; they are painted once in the next turn of the event loop, in the order
    /// Top, Left, Front, depth gauge, preview.
    virtual void RequestRedraw(unsigned redrawSet) = 0;

    /// Brings title, enabling and checks of all commands in line with the session.
    virtual void ShowCommandStates() = 0;

    /// Fills the property panel from the selection.
    virtual void RefreshPropertyPanel() = 0;

    /// Places the panes anew for the current view layout and split, then redraws all.
    virtual void LayoutPanes() = 0;

    /// Repaints everything that has colours of the scheme.
    virtual void ApplyColorScheme() = 0;

    /// Where the main window stands now.
    virtual WindowPlace PlaceOfWindow() const = 0;

    /// Shows the text in status bar panel 0..4.
    virtual void ShowStatus(int panel, const std::string& text) = 0;

    /// Opens a window, or brings it to the front if it is open already; a modal one returns when it
    /// is closed.
    virtual void OpenForm(Form form) = 0;

    /// Closes the windows that work on the selection: the object was replaced by another one.
    virtual void CloseForms() = 0;

    /// Opens a document with the program the system has for it.
    virtual void OpenDocument(const std::string& path) = 0;

    /// Gives the keyboard focus back to the views.
    virtual void FocusViews() = 0;

    /// Runs the work in a later turn of the event loop, once the user's input has been served;
    /// never when the program ends before.
    virtual void WhenIdle(std::function<void()> work) = 0;

    /// A key is held: calls AdvanceKeyBoard every 10 ms from now on, until it leaves
    /// `keyBoard.running` false.
    virtual void RunKeyBoardTimer() = 0;

    /// A picture file (UTF-8 path) as the bytes of a PNG file; nothing where it is none.
    virtual std::optional<std::vector<std::uint8_t>> PngOf(const std::string& path) = 0;

    /// Asks the main window to close.
    virtual void CloseWindow() = 0;
};

}  // namespace korvane
