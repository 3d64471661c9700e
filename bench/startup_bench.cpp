// Start-up to the first painted frame with twelve textures, split by step. The first start in a
// process also loads the OpenGL driver; the later ones show what is our own.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QRandomGenerator>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <map>
#include <string>
#include <utility>

#include "app/frmMain.h"
#include "app/frmStartUp.h"
#include "app/ucWorkspace.h"
#include "support/RecordingHost.h"
#include "views/ui/ucPreview.h"

namespace korvane {
namespace {

constexpr int kTextures = 12;
constexpr int kTextureSide = 256;
constexpr int kRuns = 15;

using Times = std::map<std::string, double>;  // seconds by step

/// Passes the log on to its window and notes how long each step takes.
class TimedLog final : public StartUpLog {
  public:
    TimedLog(StartUpLog& next, Times& times) : next_(next), times_(times) { clock_.start(); }

    void AddText(const std::string& text) override {
        times_[step_] += Lap();
        if (!text.starts_with("            ") && !text.starts_with("        LOAD_"))
            step_ = Name(text);
        next_.AddText(text);
    }
    void AppendText(const std::string& text) override { next_.AppendText(text); }

    /// Notes the time since the last lap under a step of its own.
    void Note(const std::string& step) { times_[step] += Lap(); }

  private:
    double Lap() {
        const double now = static_cast<double>(clock_.nsecsElapsed()) * 1e-9;
        return now - std::exchange(last_, now);
    }

    static std::string Name(const std::string& text) {
        const std::size_t first = text.find("IN");
        if (first == std::string::npos) return "log";
        return text.substr(first, text.find_first_of(": {", first) - first);
    }

    StartUpLog& next_;
    Times& times_;
    QElapsedTimer clock_;
    double last_ = 0;
    std::string step_ = "log";
};

/// Tells when its widget has been painted.
struct PaintWatch : QObject {
    bool painted = false;
    bool eventFilter(QObject*, QEvent* event) override {
        painted |= event->type() == QEvent::Paint;
        return false;
    }
};

void WriteTextures(const QDir& folder) {
    folder.mkdir("ObjTextures");
    QRandomGenerator random(1);
    for (int i = 0; i < kTextures; ++i) {
        QImage image(kTextureSide, kTextureSide, QImage::Format_RGB32);
        for (int y = 0; y < kTextureSide; ++y) {
            for (int x = 0; x < kTextureSide; ++x) {
                image.setPixel(x, y, qRgb(x, y, random.bounded(64)));
            }
        }
        image.save(folder.filePath(QString("ObjTextures/texture%1.jpg").arg(i)));
    }
}

/// One start; the sum of its steps in seconds.
double Start(const std::string& folder, Times& times) {
    QElapsedTimer whole;
    whole.start();
    test::ScriptedPrompts prompts;
    frmMain window(prompts, folder);
    times["window"] += static_cast<double>(whole.nsecsElapsed()) * 1e-9;
    frmStartUp log(folder + "/Korvane.log", &window);
    TimedLog timed(log, times);
    log.show();
    if (!RunStartUp(window, timed, CreateRenderContext)) std::abort();
    log.close();
    timed.Note("log");
    PaintWatch watch;
    window.Workspace().Preview().installEventFilter(&watch);
    RefreshAll(window.Session());
    window.show();
    while (!watch.painted) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
    timed.Note("first_frame");
    return static_cast<double>(whole.nsecsElapsed()) * 1e-9;
}

void StartUp(benchmark::State& state) {
    QTemporaryDir folder;
    WriteTextures(QDir(folder.path()));
    for (auto _ : state) {
        Times times;
        state.SetIterationTime(Start(folder.path().toStdString(), times));
        for (const auto& [step, seconds] : times) state.counters[step + "_ms"] = seconds * 1e3;
    }
}

BENCHMARK(StartUp)
    ->Name("StartUp/first")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StartUp)
    ->Name("StartUp/again")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kRuns)
    ->ReportAggregatesOnly()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
