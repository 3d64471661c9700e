// The pages of the manual that are made from the program's own tables: keys and commands.
#pragma once

#include <QString>
#include <QStringList>
#include <set>

namespace korvane::manual {

/// The foot of a page, HTML: it leads to the neighbours in the order of the contents.
QString Footer(const QString& file);

/// A whole page with head, header and footer around its body (HTML).
QString Page(const QString& file, const QString& title, const QString& body);

/// keys.htm and commands.htm.
QString KeysPage();
QString CommandsPage();

/// The commands that commands.htm has nothing to say about.
QStringList CommandsWithoutText();

/// The way to a command through the menus as the manual shows it, HTML.
QString MenuPath(const char* command);

/// A key of the default keyboard map by its function's text, HTML.
QString KeyOf(const QString& function);

/// All menus and commands by their ways through the menus, as Plain gives each step, joined by an
/// arrow.
std::set<QString> MenuPaths();

/// All pages in the order of the contents, by file name.
const QStringList& PageOrder();

}  // namespace korvane::manual
