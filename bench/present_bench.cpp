// What it costs the 2D views to stand in one window with the 3D preview: their repaint up to the
// screen, with the preview in the fourth place and with an empty pane there.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGridLayout>
#include <memory>

#include "support/PreviewStage.h"
#include "views/ui/ucPreview.h"
#include "views/ui/ucView.h"

namespace {

using namespace korvane;

class Window {
  public:
    explicit Window(bool withPreview) : stage_(600, 450) {
        for (int i = 0; i < 200; ++i) {
            const float x = float(i % 20) - 10;
            const float z = float(i / 20) - 5;
            stage_.Add({x, 0, z}, {x + 0.7F, 1, z + 0.7F}, i % 4);
        }
        auto* grid = new QGridLayout(&window_);
        for (int view = 0; view < kViewCount; ++view) {
            views_[view] = new ucView(stage_.editor, view, &window_);
            grid->addWidget(views_[view], view / 2, view % 2);
        }
        fourth_ = withPreview
                      ? preview_ = new ucPreview(stage_.editor, stage_.context, stage_.textures)
                      : new QWidget;
        grid->addWidget(fourth_, 1, 1);
        window_.resize(1200, 900);
        window_.show();
        for (int i = 0; i < 20; ++i) QApplication::processEvents();
        for (int view = 0; view < kViewCount; ++view) Adopt(view);
    }

    void RepaintViews() {
        for (ucView* view : views_) view->MarkDirty();
        Present();
    }
    void RepaintPreview() {
        preview_->MarkDirty();
        Present();
    }
    void RepaintAll() {
        for (ucView* view : views_) view->MarkDirty();
        RepaintPreview();
    }

  private:
    /// The view's state as the main window would set it.
    void Adopt(int view) {
        ViewState& state = stage_.editor.views[std::size_t(view)];
        state.width = views_[view]->width();
        state.height = views_[view]->height();
        UpdateViewOrigin(state);
    }
    /// Lets the requests become one paint and waits until the screen has it.
    static void Present() {
        QApplication::processEvents();
        QGuiApplication::sync();
    }

    test::PreviewStage stage_;
    QWidget window_;
    std::array<ucView*, kViewCount> views_{};
    ucPreview* preview_ = nullptr;
    QWidget* fourth_;
};

void BM_RepaintViewsAlone(benchmark::State& state) {
    Window window(false);
    for (auto _ : state) window.RepaintViews();
}

void BM_RepaintViewsBesidePreview(benchmark::State& state) {
    Window window(true);
    for (auto _ : state) window.RepaintViews();
}

void BM_RepaintPreview(benchmark::State& state) {
    Window window(true);
    for (auto _ : state) window.RepaintPreview();
}

void BM_RepaintAllFour(benchmark::State& state) {
    Window window(true);
    for (auto _ : state) window.RepaintAll();
}

BENCHMARK(BM_RepaintViewsAlone)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RepaintViewsBesidePreview)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RepaintPreview)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RepaintAllFour)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
