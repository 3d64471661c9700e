#include "app/mShortcuts.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <iterator>

namespace korvane {
namespace {

struct Row {
    const char* command;
    QKeySequence::StandardKey key;
    const char* otherwise;       ///< where the desktop knows none
    const char* also = nullptr;  ///< a habit from other desktops
};

constexpr Row kRows[] = {
    {"mnuNew", QKeySequence::New, "Ctrl+N"},
    {"mnuOpen", QKeySequence::Open, "Ctrl+O"},
    {"mnuSave", QKeySequence::Save, "Ctrl+S"},
    {"mnuSaveAs", QKeySequence::SaveAs, "Ctrl+Shift+S"},
    {"mnuExit", QKeySequence::Quit, "Ctrl+Q"},
    {"mnuUndo", QKeySequence::Undo, "Ctrl+Z"},
    {"mnuRedo", QKeySequence::Redo, "Ctrl+Shift+Z", "Ctrl+Y"},
    {"mnuCopy", QKeySequence::Copy, "Ctrl+C"},
    {"mnuPaste", QKeySequence::Paste, "Ctrl+V"},
    {"mnuSelect", QKeySequence::Find, "Ctrl+F"},
    {"mnuUnSelect", QKeySequence::Deselect, "Ctrl+Shift+A"},
    {"mnuDelete", QKeySequence::Delete, "Del"},
    {"mnuPreferences", QKeySequence::Preferences, "Ctrl+,"},
    {"mnuHelpContents", QKeySequence::HelpContents, "F1"},
};

using Shortcuts = std::array<QList<QKeySequence>, std::size(kRows)>;

/// Row by row.
const Shortcuts& AllShortcuts() {
    static const Shortcuts all = [] {
        Shortcuts shortcuts;
        std::ranges::transform(kRows, shortcuts.begin(), [](const Row& row) {
            const QKeySequence known(row.key);
            QList<QKeySequence> keys{known.isEmpty() ? QKeySequence(row.otherwise) : known};
            if (row.also != nullptr && keys[0] != QKeySequence(row.also))
                keys.append(QKeySequence(row.also));
            return keys;
        });
        return shortcuts;
    }();
    return all;
}

}  // namespace

const QList<QKeySequence>& ShortcutsOf(std::string_view command) {
    static const QList<QKeySequence> none;
    const auto row = std::ranges::find(kRows, command, &Row::command);
    if (row == std::end(kRows)) return none;
    return AllShortcuts()[static_cast<std::size_t>(row - std::begin(kRows))];
}

bool IsShortcut(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const QKeySequence pressed(QKeyCombination(modifiers, static_cast<Qt::Key>(event.key())));
    return std::ranges::any_of(AllShortcuts(),
                               [&](const auto& keys) { return keys.contains(pressed); });
}

int KeyAlone(const QKeySequence& shortcut) {
    const QKeyCombination first = shortcut[0];
    return first.keyboardModifiers() == Qt::NoModifier ? first.key() : 0;
}

}  // namespace korvane
