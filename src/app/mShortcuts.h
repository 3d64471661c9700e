// The desktop's shortcuts of the standard commands. They live beside the keyboard map, which
// src/app/mKeyInput gives its keys first.
#pragma once

#include <QKeySequence>
#include <string_view>

class QKeyEvent;

namespace korvane {

/// The shortcut of the command of that name; empty for most. Of several that a desktop has for it,
/// only the one that menus show: X11 deletes by Ctrl+D as well, which here is to fly slowly.
QKeySequence ShortcutOf(std::string_view command);

/// Whether the key event is a shortcut of some command.
bool IsShortcut(const QKeyEvent& event);

/// The Qt key of a shortcut that is pressed alone; 0 for one with Ctrl or the like.
int KeyAlone(const QKeySequence& shortcut);

}  // namespace korvane
