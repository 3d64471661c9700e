// The editor's window with a hand inside that edits and saves as fast as it can, until it is
// killed. It tells on standard output what it begins and what is done, and at its start what it
// found. The number of the version stands in the scene: each command makes the next one.
// Usage: korvane_kill_driver FOLDER SEED BRUSHES work|end
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QSurfaceFormat>
#include <QTimer>
#include <random>
#include <string>
#include <utility>

#include "app/frmMain.h"
#include "editor/mFileOpenSave.h"
#include "editor/mRecovery.h"
#include "editor/mRestore.h"
#include "editor/mSettings.h"
#include "editor/mUndo.h"
#include "scene/mBrush.h"
#include "scene/mNormals.h"
#include "support/RecordingHost.h"
#include "support/VersionedScene.h"

namespace korvane::test {
namespace {

/// In one write, so that no line is torn.
void Tell(const std::string& what, int version) {
    const std::string line = what + " " + std::to_string(version) + "\n";
    [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, line.data(), line.size());
}

class Hand {
  public:
    Hand(frmMain& window, unsigned seed)
        : window_(window), editor_(window.Session()), random_(seed) {}

    /// What the user finds: a scene that is restored, the saved one, or none.
    void Start(const std::string& object, int brushes) {
        const bool restored = OfferRecovery(editor_);
        if (!restored && access(object.c_str(), F_OK) == 0) OpenObjectFile(editor_, object);
        const int version = VersionOf(editor_.scene.brushes);
        Tell(restored ? "restored" : "opened", version);
        if (version >= 0) return;
        editor_.CurrentObjectPath = object;
        for (int i = 0; i < brushes; ++i)
            CreateBrush(editor_.scene, {0, 0, 0}, {1, 1, 1}, 4, editor_.Space());
        Save();
    }

    /// Called when the window is on the screen and has nothing else to do.
    void DoSomething() {
        if (!std::exchange(works_, true)) Tell("works", 0);
        const unsigned chance = random_() % 16;
        if (chance < 4) return Save();
        if (chance == 4) return static_cast<void>(SaveSettings(editor_));
        if (chance == 5) return static_cast<void>(StoreRecovery(editor_));
        Edit();
    }

  private:
    void Edit() {
        const int next = VersionOf(editor_.scene.brushes) + 1;
        Tell("edit", next);
        TakeUndoSnapshot(editor_);
        MakeVersion(editor_.scene.brushes, next);
        for (Brush& brush : editor_.scene.brushes) UpdateBrushNormals(brush);
        RefreshAll(editor_);
        Tell("edited", next);
    }

    void Save() {
        const int version = std::max(VersionOf(editor_.scene.brushes), 0);
        if (version == 0) MakeVersion(editor_.scene.brushes, 0);
        Tell("save", version);
        window_.findChild<QAction*>("mnuSave")->trigger();
        Tell(editor_.SceneModified ? "failed" : "saved", version);
    }

    frmMain& window_;
    Editor& editor_;
    std::mt19937 random_;
    bool works_ = false;
};

/// Says Yes to what was left.
struct YesPrompts : ScriptedPrompts {
    Answer ShowMessage(const Message& message) override {
        answers = {Answer::Yes};
        return ScriptedPrompts::ShowMessage(message);
    }
};

int Run(const QStringList& arguments) {
    const std::string folder = arguments[1].toStdString();
    YesPrompts prompts;
    frmMain window(prompts, folder);
    if (!window.StartUp()) return 1;
    window.show();
    Hand hand(window, arguments[2].toUInt());
    hand.Start(folder + "/object.kvobject", arguments[3].toInt());
    if (arguments[4] == "end") {
        window.Session().settings.warnings.fill(false);
        window.close();
        return 0;
    }
    QTimer busy;
    QObject::connect(&busy, &QTimer::timeout, [&hand] { hand.DoSomething(); });
    busy.start(0);
    return QApplication::exec();
}

}  // namespace
}  // namespace korvane::test

int main(int argc, char** argv) {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    return QApplication::arguments().size() == 5 ? korvane::test::Run(QApplication::arguments())
                                                 : 2;
}
