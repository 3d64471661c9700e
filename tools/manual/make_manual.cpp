// Makes what the manual shows of the running program: the pages tutorial, keys and commands, and
// all pictures. Usage: korvane_make_manual [--check] SOURCE Without --check the results go to
// SOURCE/help/Korvane. With it, everything is played, and the exit status is 1 when the pages there
// are not what they would be made now, or do not hang together.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <map>
#include <vector>

#include "files/FileBuffer.h"
#include "tools/manual/Checks.h"
#include "tools/manual/GeneratedPages.h"
#include "tools/manual/Stage.h"
#include "tools/manual/Tour.h"
#include "tools/manual/Tutorial.h"

namespace {

using namespace korvane;
using namespace korvane::manual;

std::map<QString, QByteArray> MakePages() {
    return {{"tutorial.htm", TutorialPage().toUtf8()},
            {"keys.htm", KeysPage().toUtf8()},
            {"commands.htm", CommandsPage().toUtf8()}};
}

bool Store(const QString& path, const QByteArray& text) {
    return SaveFile(path.toStdString(), std::vector<std::uint8_t>(text.begin(), text.end()));
}

bool Holds(const QString& path, const QByteArray& text) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll() == text;
}

/// A program of its own for the tutorial: it begins with the window of a first start.
Shown PlayAll(const QString& examples, const QString& pictures, bool& failed) {
    Shown shown;
    shown.paths = MenuPaths();
    for (const auto play : {PlayTutorial, PlayTour}) {
        Stage stage(examples, pictures);
        play(stage);
        failed = failed || stage.Failed();
        shown.pictures.insert(stage.Pictures().begin(), stage.Pictures().end());
        shown.texts.insert(stage.Texts().begin(), stage.Texts().end());
    }
    return shown;
}

int Run(const QString& source, bool check) {
    const QString help = source + "/help/Korvane";
    const QTemporaryDir scratch;
    bool failed = false;
    const Shown shown = PlayAll(source + "/examples", check ? scratch.path() : help, failed);
    for (const auto& [name, text] : MakePages()) {
        const QString path = help + "/" + name;
        if (check ? Holds(path, text) : Store(path, text)) continue;
        std::fprintf(stderr, "%s: %s\n", qPrintable(name),
                     check ? "is not what the program has now; run tools/make_manual.sh"
                           : "can't be stored");
        failed = true;
    }
    QStringList faults = FaultsOfPages(help, shown);
    for (const QString& name : CommandsWithoutText()) faults << "no text for " + name;
    for (const QString& fault : faults) std::fprintf(stderr, "%s\n", qPrintable(fault));
    failed = failed || !faults.isEmpty();
    return failed ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication::setStyle("fusion");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments().mid(1);
    const bool check = arguments.value(0) == "--check";
    if (arguments.size() != (check ? 2 : 1)) {
        std::fprintf(stderr, "Usage: korvane_make_manual [--check] SOURCE\n");
        return 2;
    }
    return Run(QDir(arguments.last()).absolutePath(), check);
}
