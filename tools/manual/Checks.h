// Whether the manual's pages hang together: links, pictures, and the program's texts that they
// quote.
#pragma once

#include <QString>
#include <QStringList>
#include <set>

namespace korvane::manual {

/// What the program has shown.
struct Shown {
    std::set<QString> pictures;  ///< file names
    std::set<QString> texts;     ///< of controls
    std::set<QString> paths;     ///< of menus and commands
};

/// What is wrong with the pages of the folder, a line each: a link or a picture that leads nowhere,
/// a page that nothing leads to, a picture that no page shows or that the program does not make, a
/// quoted text that the program does not show.
QStringList FaultsOfPages(const QString& folder, const Shown& shown);

}  // namespace korvane::manual
