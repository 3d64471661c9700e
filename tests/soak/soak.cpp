// Lets a user without a plan work in the real window for a while, and checks after every action
// that the session is sound, and in the end that everything was done which a user can do.
//
// korvane_soak SECONDS [SEED]: the seed is printed, and the same seed repeats the actions. What
// hangs on the clock (held keys, how far the optimizer comes) may still differ.
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <set>

#include "RandomUser.h"
#include "Traces.h"
#include "editor/mCommands.h"
#include "editor/mRestore.h"
#include "editor/mUndo.h"
#include "files/mObjectFile.h"
#include "scene/mBrush.h"
#include "support/SceneInvariants.h"
#include "support/TempFolder.h"

/// There in programs that a sanitizer was built into.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace korvane::soak {
namespace {

using Clock = std::chrono::steady_clock;

/// No single action takes that long, sanitizers and a busy machine included.
constexpr unsigned kHangSeconds = 120;
/// A run that did not come to everything in its time gets that much more of it.
constexpr std::chrono::minutes kPatience{4};
constexpr std::int32_t kMostBrushes = 40;
constexpr std::size_t kMostFaces = 20'000;
constexpr std::chrono::minutes kLongRun{5};
constexpr int kMostIdle = 1000;
constexpr unsigned kWholeCheck = 200;  ///< actions between two looks at every brush

/// What is told when the program dies: written ahead, because then it is too late.
struct LastWords {
    unsigned seed = 0;
    std::deque<std::string> actions;

    void Add(std::string action) {
        constexpr std::size_t kTold = 25;
        actions.push_back(std::move(action));
        if (actions.size() > kTold) actions.pop_front();
    }
    void Print(const char* why) const {
        for (const std::string& action : actions) std::fprintf(stderr, "  %s\n", action.c_str());
        std::fprintf(stderr, "soak: %s; seed %u, the last actions are above\n", why, seed);
    }
} lastWords;

[[noreturn]] void Fail(const std::string& why) {
    std::fflush(stdout);
    lastWords.Print(why.c_str());
    std::_Exit(1);
}

void OnSignal(int number) {
    lastWords.Print(number == SIGALRM ? "no end" : "crash");
    std::signal(number, SIG_DFL);
    std::raise(number == SIGALRM ? SIGABRT : number);
}

/// A sanitizer reports a crash better than a handler of ours could, and calls back then.
void WatchForDeath() {
    std::signal(SIGALRM, OnSignal);
    if (__sanitizer_set_death_callback != nullptr)
        return __sanitizer_set_death_callback([] { lastWords.Print("death"); });
    for (const int number : {SIGABRT, SIGSEGV, SIGFPE}) std::signal(number, OnSignal);
}

/// Qt's complaints about how it is used are findings. A drag may leave the window, though.
void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    if (text.contains("occurs outside target window")) return;
    Fail("Qt says: " + text.toStdString());
}

class Soak {
  public:
    explicit Soak(unsigned seed) : seed_(seed) {
        lastWords.seed = seed;
        alarm(kHangSeconds);
        dice_.Start(seed, 0);
        std::filesystem::create_directory(Path("ObjTextures"));
        constexpr int kTextures = 20;  // they fill the browser
        for (int i = 0; i < kTextures; ++i) {
            QImage image(64, 64, QImage::Format_RGB888);
            image.fill(QColor::fromHsv(i * 18, 255, 200));
            image.save(folder_.filePath("ObjTextures/color%1.bmp").arg(i));
        }
        MakeFiles();
        Open();
    }

    void Run(std::chrono::seconds duration) {
        end_ = Clock::now() + duration;
        latest_ = end_ + kPatience;
        longRun_ = duration >= kLongRun;
        ScheduleStep();
        QApplication::exec();
        PrintTally();
        std::printf("soak: seed %u: %u actions, no findings\n", seed_, actions_);
    }

  private:
    std::string Path(const char* name) const { return folder_.filePath(name).toStdString(); }

    void PrintTally() const {
        for (const auto& [kind, times] : Summary(tally_))
            std::printf("%8u %s\n", times, kind.c_str());
    }

    /// Files to open: an object of every shape, and damaged ones of every kind.
    void MakeFiles() {
        Scene scene;
        TextureLibrary library;
        for (const BrushShape shape : {Box, Cone, Sphere}) {
            scene.createShape = shape;
            const float x = 3.0F * static_cast<float>(shape);
            CreateBrush(scene, {x, 0, 0}, {x + 2, 2, 2}, 5 + shape, {library, 4.0F});
        }
        test::Bytes bytes = EncodeObject(scene, library, false);
        test::WriteFileBytes(Path("good.kvobject"), bytes);
        bytes.resize(bytes.size() / 2);
        for (const char* damaged : {"cut.kvobject", "cut.kvcs", "cut.kvkm", "cut.kvcode"})
            test::WriteFileBytes(Path(damaged), bytes);
    }

    void Open() {
        window_ = std::make_unique<frmMain>(prompts_, folder_.path().toStdString());
        if (!window_->StartUp()) Fail("the window does not start");
        window_->show();
        if (!QTest::qWaitForWindowExposed(window_.get(), 60'000)) Fail("the window does not show");
        if (OfferRecovery(window_->Session())) ++tally_["start restored"];
        ++tally_["start"];
        seen_.clear();  // what is new in a new session was done by no hand
    }

    /// The next step comes in the event loop of whatever this one opens.
    void ScheduleStep() {
        QTimer::singleShot(0, qApp, [this] { Step(); });
    }

    void Step() {
        if (levels_.empty() && IsOver()) {
            window_->Session().SceneModified = false;  // no question: nobody would answer
            window_->close();
            if (FilesInCache("") != 0) Fail("files were left behind in the cache");
            window_.reset();
            return QApplication::quit();
        }
        if (!IsMyTurn()) {
            QTimer::singleShot(5, qApp, [this] { Step(); });
            return;
        }
        ScheduleStep();
        levels_.push_back(QThread::currentThread()->loopLevel());
        if (QWidget* dialog = QApplication::activeModalWidget()) EndLongDialog(*dialog);
        Act();
        CheckScene();
        if (levels_.size() == 1) CheckWindow(), Restart();
        levels_.pop_back();
    }

    bool IsOver() {
        if (Clock::now() < end_) return false;
        CountFiles(tally_, folder_.path().toStdString());
        const std::string missing = NeverDone(tally_, longRun_);
        if (missing.empty()) return true;
        if (Clock::now() < latest_) return false;
        PrintTally();
        Fail("never happened: " + missing);
    }

    /// Input is also served in the middle of a step. The next one may begin there only if the step
    /// waits for it: in the event loop of a dialog, or while the optimizer runs.
    bool IsMyTurn() const {
        constexpr std::size_t kDeepest = 6;
        if (levels_.empty() || QThread::currentThread()->loopLevel() > levels_.back()) return true;
        const QWidget* dialog = QApplication::activeModalWidget();
        if (levels_.size() >= kDeepest || !dialog || dialog->objectName() != "frmOptimize")
            return false;
        return dialog->findChild<QPushButton*>("btnStart")->text() != "Start";
    }

    void Act() {
        dice_.Start(seed_, ++actions_);
        kind_ = "nothing";
        alarm(kHangSeconds);
        user_.Act(*window_);
        idle_ = kind_ == "nothing" ? idle_ + 1 : 0;
        if (idle_ > kMostIdle) Fail("there is nothing to do");
        CountTraces(tally_, kind_, window_->Session(), seen_);
    }

    void Announce(const std::string& what) {
        ++tally_[what];
        kind_ = what.substr(0, what.find(' '));
        lastWords.Add(std::to_string(actions_) + ": " + what);
    }

    /// A dialog that random clicks do not close is closed in the end.
    void EndLongDialog(QWidget& dialog) {
        constexpr int kMostActions = 60;
        if (std::exchange(inDialog_, &dialog) != &dialog) {
            dialogActions_ = 0;
            ++tally_["form " + NameOf(dialog)];
        }
        if (++dialogActions_ % kMostActions == 0 || Clock::now() >= latest_) dialog.close();
    }

    /// The window was closed, or now and then its session breaks off: the next one starts there.
    void Restart() {
        inDialog_ = nullptr;
        const bool breaksOff = dice_.Pick(1, 300) == 1;
        if (breaksOff) ++tally_["start after a break"];
        if (breaksOff || !window_->isVisible()) {
            window_.reset();
            if (!breaksOff && FilesInCache("") != 0) Fail("files were left behind in the cache");
            Open();
        }
        KeepSmall();
    }

    /// A scene that has grown large is deleted, as a user would do it.
    void KeepSmall() {
        Scene& scene = window_->Session().scene;
        std::size_t faces = 0;
        for (const Brush& brush : scene.brushes) faces += brush.faces.size();
        if (scene.brushCount() <= kMostBrushes && faces <= kMostFaces) return;
        for (Brush& brush : scene.brushes) brush.selected = true;
        RefreshAll(window_->Session());
        window_->findChild<QAction*>("mnuDelete")->trigger();
        seen_.clear();
    }

    std::ptrdiff_t FilesInCache(const std::string& ending) const {
        const auto files = std::filesystem::directory_iterator(Path("ObjCache"));
        return std::count_if(begin(files), end(files), [&](const auto& file) {
            return file.path().string().ends_with(ending);
        });
    }

    /// What is in line with the session between two actions.
    void CheckWindow() {
        if (!window_->isVisible()) return;  // closed: it is not kept up to date any more
        const Editor& editor = window_->Session();
        for (const Command& command : Commands()) {
            if (window_->findChild<QAction*>(command.name)->isEnabled() !=
                IsEnabled(command, editor)) {
                Fail(std::string(command.name) + " is enabled where it has no use, or the reverse");
            }
        }
        if (window_->windowTitle().toStdString() != WindowTitle(editor))
            Fail("the title is not up to date");
        const UndoCache& undo = editor.undo;
        if (undo.UndoCount > kUndoSteps) Fail("too many undo steps");
        const std::size_t kept =
            static_cast<std::size_t>(undo.UndoCount) + undo.redo.size() + undo.dropped.size();
        if (FilesInCache("$.$kvuscache$") != static_cast<std::ptrdiff_t>(kept))
            Fail("snapshots without an undo step");
    }

    /// Looks into the brushes that changed since the last time, and now and then into all.
    void CheckScene() {
        const Editor& editor = window_->Session();
        if (std::ranges::find(scales_, editor.settings.TextureScale) == scales_.end())
            scales_.push_back(editor.settings.TextureScale);
        if (actions_ % kWholeCheck == 0) checked_.clear();
        const std::string problem = test::SceneProblem(editor, scales_, [this](const Brush& brush) {
            return checked_.insert(brush.revision).second;
        });
        if (!problem.empty()) Fail(problem);
        if (actions_ % 10 != 0) return;
        const test::Bytes bytes = EncodeObject(editor.scene, editor.textures, true);
        const auto decoded = DecodeObject(bytes, editor.textures, true);
        if (!decoded) Fail("the scene cannot be read");
        Scene again;
        again.brushes = *decoded;
        if (EncodeObject(again, editor.textures, true) != bytes) Fail("the scene cannot be stored");
    }

    Clock::time_point end_, latest_;
    bool longRun_ = false;
    unsigned seed_;
    Dice dice_;
    Tally tally_;
    Traces seen_;
    QTemporaryDir folder_;
    RandomPrompts prompts_{dice_, tally_, folder_.path().toStdString()};
    RandomUser user_{dice_, tally_, folder_.path().toStdString(),
                     [this](const std::string& what) { Announce(what); }};
    std::unique_ptr<frmMain> window_;
    std::vector<int> levels_;  ///< of the event loops in which the steps still running began
    unsigned actions_ = 0;
    std::string kind_;  ///< of the last action
    int idle_ = 0;      ///< actions in a row that did nothing
    QWidget* inDialog_ = nullptr;
    int dialogActions_ = 0;
    std::vector<float> scales_;
    std::set<std::uint64_t> checked_;  ///< revisions of brushes that were sound
};

int Main(int argc, char** argv) {
    const char* const usage = "usage: korvane_soak SECONDS [SEED]";
    const long seconds = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 0;
    if (seconds <= 0 || argc > 3) return std::fprintf(stderr, "%s\n", usage), 2;
    const auto seed = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10))
                               : std::random_device()() % 1'000'000;
    std::printf("soak: seed %u, %ld s\n", seed, seconds);
    std::fflush(stdout);
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication::setStyle("fusion");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(OnQtMessage);
    WatchForDeath();
    Soak(seed).Run(std::chrono::seconds(seconds));
    return 0;
}

}  // namespace
}  // namespace korvane::soak

int main(int argc, char** argv) {
    return korvane::soak::Main(argc, argv);
}
