// The command table as QActions: one action per command serves its menu item and its tool button,
// so the two can never disagree.
#pragma once

#include <QAction>
#include <QObject>
#include <array>
#include <map>
#include <string_view>

#include "editor/mCommands.h"
#include "editor/mRecentFiles.h"

class QMenu;
class QMenuBar;

namespace korvane {

class ucToolBar;

class CommandActions final : public QObject {
    Q_OBJECT

  public:
    /// Makes the actions; triggering one runs its command on the session.
    CommandActions(Editor& editor, QObject* parent);

    /// The action of the command of that name, which must exist.
    QAction* Of(std::string_view name) const { return actions_.at(name); }

    /// Brings enabling and checks in line with the session.
    void Refresh();

    /// Fills the menu bar from the table of menus.
    void FillMenuBar(QMenuBar* menuBar);

    /// Appends the buttons of a bar in the order of their places.
    void FillToolBar(Bar bar, ucToolBar* toolBar) const;

  private:
    QAction* MakeAction(const Command& command);
    QAction* MakeRecentItem(int index);
    void ShowShortcut(const Command& command, QAction& action) const;
    void ShowRecentItems();
    void AddRecentItems(QMenu* menu);

    Editor& editor_;
    std::map<std::string_view, QAction*> actions_;
    std::array<QAction*, kRecentItems> recent_;
};

}  // namespace korvane
