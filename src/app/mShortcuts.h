// The desktop's shortcuts of the standard commands. They live beside the keyboard map, which
// src/app/mKeyInput gives its keys first.
#pragma once

#include <QKeySequence>
#include <QList>
#include <string_view>

class QKeyEvent;

namespace korvane {

/// The shortcuts of the command of that name, the one that menus show first; none for most. Of
/// several that a desktop has for it, only the first: X11 deletes by Ctrl+D as well, which here is
/// to fly slowly.
const QList<QKeySequence>& ShortcutsOf(std::string_view command);

/// Whether the key event is a shortcut of some command.
bool IsShortcut(const QKeyEvent& event);

/// The Qt key of a shortcut that is pressed alone; 0 for one with Ctrl or the like.
int KeyAlone(const QKeySequence& shortcut);

}  // namespace korvane
