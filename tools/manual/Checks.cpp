#include "tools/manual/Checks.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>

#include "tools/manual/GeneratedPages.h"
#include "tools/manual/Stage.h"

namespace korvane::manual {
namespace {

using Pages = QMap<QString, QString>;  ///< file name to text

QString ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList AllOf(const QString& pattern, const QString& text) {
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    QStringList all;
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        all << matches.next().captured(1);
    return all;
}

QString WithoutMarkup(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

bool HasAnchor(const QString& page, const QString& anchor) {
    return page.contains("id=\"" + anchor + "\"");
}

/// Whether the target of a link in a page of the folder is there.
bool Leads(const QString& link, const QString& page, const QDir& folder, const Pages& pages) {
    const QString file = link.section('#', 0, 0), anchor = link.section('#', 1);
    const QString target = file.isEmpty() ? page : file;
    if (!folder.exists(target)) return false;
    return anchor.isEmpty() || HasAnchor(pages.value(target), anchor);
}

/// Whether the program shows the text: a way through the menus, or a control's.
bool IsShown(const QString& quoted, const Shown& shown) {
    const QString arrow = QString::fromUtf8(" \xE2\x86\x92 ");
    QStringList steps;
    for (const QString& step : WithoutMarkup(quoted).split(arrow)) steps << Plain(step);
    if (shown.paths.contains(steps.join(arrow))) return true;
    return steps.size() == 1 && shown.texts.contains(steps[0]);
}

QStringList FaultsOfPage(const QString& name, const QDir& folder, const Pages& pages,
                         const Shown& shown) {
    const QString& text = pages[name];
    QStringList faults;
    for (const QString& link : AllOf("(?:href|src)=\"([^\"]*)\"", text))
        if (!Leads(link, name, folder, pages)) faults << name + " leads nowhere: " + link;
    for (const QString& quoted : AllOf("<b class=\"ui\">(.*?)</b>", text))
        if (!IsShown(quoted, shown)) faults << name + " quotes what is not shown: " + quoted;
    if (!text.contains(Footer(name))) faults << name + " should end with " + Footer(name);
    if (text.contains("http:") || text.contains("https:")) faults << name + " needs a network";
    return faults;
}

}  // namespace

QStringList FaultsOfPages(const QString& folder, const Shown& shown) {
    const QDir dir(folder);
    Pages pages;
    for (const QString& name : dir.entryList({"*.htm"})) pages[name] = ReadFile(dir.filePath(name));
    QStringList faults;
    QSet<QString> used{"index.htm"};
    for (const QString& name : pages.keys()) {
        faults << FaultsOfPage(name, dir, pages, shown);
        for (const QString& link : AllOf("(?:href|src)=\"([^\"#]*)", pages[name])) used << link;
    }
    for (const QString& file : dir.entryList(QDir::Files)) {
        if (!used.contains(file)) faults << "nothing leads to " + file;
        if (file.endsWith(".png") && !shown.pictures.contains(file))
            faults << "not made any more: " + file;
    }
    for (const QString& page : PageOrder())
        if (page != "index.htm" && !pages["index.htm"].contains(page))
            faults << "the contents lack " + page;
    return faults;
}

}  // namespace korvane::manual
