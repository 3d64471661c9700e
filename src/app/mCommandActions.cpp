#include "app/mCommandActions.h"

#include <QActionGroup>
#include <QFile>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <vector>

#include "app/mShortcuts.h"
#include "base/PathText.h"
#include "editor/mFileOpenSave.h"
#include "editor/mKeyBoard.h"
#include "platform/VirtualKeys.h"
#include "widgets/MenuStyle.h"
#include "widgets/ucToolBar.h"

namespace korvane {
namespace {

QIcon CommandIcon(const QString& name) {
    const QString path = QString(":/icons/%1.svg").arg(name);
    return QFile::exists(path) ? QIcon(path) : QIcon();
}

/// The separator that stands before the item, or else the item itself.
QAction* GroupStart(const QMenu* menu, QAction* item) {
    const auto place = menu->actions().indexOf(item);
    QAction* previous = place > 0 ? menu->actions().at(place - 1) : nullptr;
    return previous != nullptr && previous->isSeparator() ? previous : item;
}

/// Neighbouring radio commands of one menu form a group, which menus show as such.
void GroupRadios(QMenu* menu) {
    QActionGroup* group = nullptr;
    for (QAction* action : menu->actions()) {
        const Command* command = FindCommand(action->objectName().toStdString());
        if (command == nullptr || command->check != CheckKind::Radio) {
            if (!action->isSeparator()) group = nullptr;
            continue;
        }
        if (group == nullptr) group = new QActionGroup(menu);
        group->addAction(action);
    }
}

}  // namespace

CommandActions::CommandActions(Editor& editor, QObject* parent) : QObject(parent), editor_(editor) {
    for (const Command& command : Commands()) actions_[command.name] = MakeAction(command);
    for (int i = 0; i < kRecentItems; ++i) recent_[i] = MakeRecentItem(i);
}

QAction* CommandActions::MakeRecentItem(int index) {
    auto* item = new QAction(this);
    item->setObjectName(QString("mnuRecentFile_%1").arg(index));
    item->setMenuRole(QAction::NoRole);
    connect(item, &QAction::triggered, this, [this, index] {
        OpenRecentFile(editor_, static_cast<std::size_t>(index));
        Refresh();
    });
    return item;
}

void CommandActions::ShowRecentItems() {
    const std::vector<std::string>& paths = editor_.settings.recentFiles;
    for (std::size_t i = 0; i < recent_.size(); ++i) {
        const std::string path = i < paths.size() ? paths[i] : std::string();
        recent_[i]->setVisible(!path.empty());
        recent_[i]->setText(QString::fromStdString(FileName(path)).replace("&", "&&"));
        recent_[i]->setToolTip(QString::fromStdString(path));
    }
}

void CommandActions::AddRecentItems(QMenu* menu) {
    menu->setToolTipsVisible(true);
    QAction* before = GroupStart(menu, Of("mnuClearRecentFiles"));
    for (QAction* item : recent_) menu->insertAction(before, item);
}

QAction* CommandActions::MakeAction(const Command& command) {
    auto* action = new QAction(QString::fromUtf8(command.caption), this);
    action->setObjectName(command.name);
    action->setIcon(CommandIcon(command.name));
    action->setToolTip(QString::fromUtf8(command.button.tooltip));
    // A repeated key press would be another press: Ctrl going down on a held S must not save.
    action->setAutoRepeat(false);
    action->setMenuRole(QAction::NoRole);
    if (command.check != CheckKind::None) {
        action->setCheckable(true);
        action->setIconVisibleInMenu(false);  // the check mark stands in its place
    }
    connect(action, &QAction::triggered, this, [this, &command] {
        RunCommand(editor_, command);
        Refresh();
    });
    return action;
}

/// Without one that the keyboard map has taken for something else.
void CommandActions::ShowShortcut(const Command& command, QAction& action) const {
    const KeyMap& map = editor_.settings.keyMap;
    QList<QKeySequence> shortcuts = ShortcutsOf(command.name);
    if (shortcuts.isEmpty()) return;
    const int code = VirtualKeyCode(KeyAlone(shortcuts[0]), 0, false);
    if (IsBound(map, code) && CommandOfKey(map, code) != command.name) shortcuts.removeFirst();
    action.setShortcuts(shortcuts);
    QString tip = QString::fromUtf8(command.button.tooltip);
    if (!shortcuts.isEmpty() && !tip.isEmpty())
        tip += QString(" (%1)").arg(shortcuts[0].toString(QKeySequence::NativeText));
    action.setToolTip(tip);
}

void CommandActions::Refresh() {
    for (const Command& command : Commands()) {
        QAction* action = Of(command.name);
        action->setEnabled(IsEnabled(command, editor_));
        if (command.checked != nullptr) action->setChecked(command.checked(editor_));
        ShowShortcut(command, *action);
    }
    ShowRecentItems();
}

void CommandActions::FillMenuBar(QMenuBar* menuBar) {
    std::map<std::string_view, QMenu*> menus;
    auto* style = new MenuStyle;
    style->setParent(menuBar);
    for (const Menu& row : Menus()) {
        menus[row.name] = new QMenu(QString::fromUtf8(row.caption), menuBar);
        menus[row.name]->setObjectName(row.name);
        menus[row.name]->setStyle(style);
    }
    for (const Command& command : Commands()) {
        QMenu* menu = menus.at(command.menu);
        if (command.separatorBefore) menu->addSeparator();
        menu->addAction(Of(command.name));
    }
    AddRecentItems(menus.at("mnuRecent"));
    for (const Menu& row : Menus()) {
        if (row.parent == nullptr) {
            menuBar->addMenu(menus[row.name]);
            continue;
        }
        QMenu* parent = menus.at(row.parent);
        QAction* before = row.before == nullptr ? nullptr : GroupStart(parent, Of(row.before));
        if (row.separatorBefore) parent->insertSeparator(before);
        parent->insertMenu(before, menus[row.name]);
    }
    for (const auto& [name, menu] : menus) GroupRadios(menu);
}

void CommandActions::FillToolBar(Bar bar, ucToolBar* toolBar) const {
    std::vector<const Command*> row;
    for (const Command& command : Commands()) {
        if (command.button.bar == bar) row.push_back(&command);
    }
    const auto place = [](const Command* command) {
        const ToolButton& button = command->button;
        return button.after < 0 ? button.index : button.after + 0.5;
    };
    std::ranges::sort(row, {}, place);
    for (const Command* command : row) {
        toolBar->AddButton(command->button.index, Of(command->name),
                           QString::fromUtf8(command->button.statusText));
        if (command->button.separatorAfter) toolBar->addSeparator();
    }
}

}  // namespace korvane
