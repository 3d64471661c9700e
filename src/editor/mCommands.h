// The command table: one row for everything a menu item or tool button does. Menus, both tool bars
// and the enabling rules are read from it; adding a command is adding a row.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "editor/Editor.h"

namespace korvane {

/// When a command can be used.
enum class EnabledWhen {
    Always,
    Selection,      ///< at least one brush is selected
    Clipboard,      ///< at least one brush was copied
    TwoBrushes,     ///< the object has at least two brushes
    UndoAvailable,  ///< there is a snapshot to go back to
    RedoAvailable   ///< there is one to go forth to
};

/// Checked state that a command shows in its menu item and tool button.
enum class CheckKind { None, Toggle, Radio };

enum class Bar { None, ToolBar, EditBar };

/// A button of a bar that runs the command.
struct ToolButton {
    Bar bar = Bar::None;
    int index = 0;             ///< number in the bar and, without `after`, its place there
    const char* tooltip = "";  ///< UTF-8
    const char* statusText =
        "";  ///< shown in status bar panel 0 while the mouse is over the button
    bool separatorAfter = false;
    int after = -1;  ///< index of the button it stands behind instead
};

/// One command. Texts are UTF-8; captions carry no mnemonic unless they show "&".
struct Command {
    const char* name;  ///< "mnuSave": object name of the action, and of its icon file
    const char* menu;  ///< object name of the menu it stands in
    const char* caption;
    EnabledWhen enabled;
    CheckKind check;
    bool (*checked)(const Editor&);  ///< null without a check
    void (*run)(Editor&);
    ToolButton button;
    bool separatorBefore = false;  ///< a separator stands before the menu item
};

/// A menu or sub-menu.
struct Menu {
    const char* name;
    const char* caption;
    const char* parent;            ///< object name of the menu it stands in; null in the menu bar
    const char* before;            ///< the command it stands before in its parent; null: at the end
    bool separatorBefore = false;  ///< a separator stands before the sub-menu
};

/// All menus and all commands, in menu order.
std::span<const Menu> Menus();
std::span<const Command> Commands();

/// The command of that name, or null.
const Command* FindCommand(std::string_view name);

/// Whether the command can be used now.
bool IsEnabled(const Command& command, const Editor& editor);

/// Runs the command if it can be used now. Undo steps that it takes carry its title.
void RunCommand(Editor& editor, const Command& command);

/// What the command is called where it stands alone: "Rotate X-Axis 90°", "Paste".
std::string CommandTitle(const Command& command);

/// What the status bar tells of the command's menu item: the text of its button, or for undo and
/// redo what they would change ("Undo: Paste").
std::string StatusText(const Command& command, const Editor& editor);

}  // namespace korvane
