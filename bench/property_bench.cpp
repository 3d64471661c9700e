// The property panel: a step of the rotation slider against recomputing and refreshing everything,
// without a window (what the edit itself costs) and in the real window up to the screen; and a
// refresh of the panel against the refresh of the whole window that it is part of.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QSlider>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <cstdlib>
#include <memory>

#include "Compare.h"
#include "app/frmMain.h"
#include "editor/mPropertyEdits.h"
#include "scene/mBrush.h"
#include "support/RecordingHost.h"

namespace {

using namespace korvane;

/// Boxes in rows before the camera, of which the first ones are selected.
void FillScene(Editor& editor, int boxes, int selected) {
    for (int i = 0; i < boxes; ++i) {
        const float x = float(i % 100) - 50, z = -float(i / 100);
        CreateBrush(editor.scene, {x, 0, z}, {x + 0.7F, 0.7F, z + 0.7F}, 4, editor.Space());
        editor.scene.brushes.back().selected = i < selected;
    }
}

/// A step as it is defined: the fields, every brush, everything shown.
void PlainStep(Editor& editor, int degrees) {
    for (Brush& brush : editor.scene.brushes) {
        if (!brush.selected) continue;
        for (BrushFace& face : brush.faces) face.rotation = degrees;
    }
    for (Brush& brush : editor.scene.brushes) UpdateTextureCoords(brush, editor.Space());
    RefreshAll(editor);
}

void ExpectEqual(const Scene& a, const Scene& b) {
    for (std::size_t i = 0; i < a.brushes.size(); ++i) {
        for (std::size_t f = 0; f < a.brushes[i].faces.size(); ++f) {
            if (a.brushes[i].faces[f].uv != b.brushes[i].faces[f].uv) std::abort();
        }
    }
}

struct Session {
    test::RecordingHost host;
    test::ScriptedPrompts prompts;
    Editor editor{host, prompts};
};

struct Window {
    Window() : form(prompts, folder.path().toStdString()) {
        if (!form.StartUp()) std::abort();
        form.show();
        for (int i = 0; i < 20; ++i) QApplication::processEvents();
    }
    void Fill(int boxes, int selected) {
        FillScene(form.Session(), boxes, selected);
        RefreshAll(form.Session());
        Present();
    }
    /// Lets the requests become one paint and waits until the screen has it.
    static void Present() {
        QApplication::processEvents();
        QGuiApplication::sync();
    }

    QTemporaryDir folder;
    test::ScriptedPrompts prompts;
    frmMain form;
};

int Next(int degrees) {
    return degrees % kMostRotation + 1;
}

void BM_RotationStepAlone(benchmark::State& state) {
    Session own, plain;
    for (Editor* editor : {&own.editor, &plain.editor})
        FillScene(*editor, int(state.range(0)), int(state.range(1)));
    int degrees = 1, plainDegrees = 1;
    bench::Compare(
        state, [&] { SetTextureRotation(own.editor, degrees = Next(degrees)); },
        [&] { PlainStep(plain.editor, plainDegrees = Next(plainDegrees)); });
    ExpectEqual(own.editor.scene, plain.editor.scene);
}

void BM_RotationStepOnScreen(benchmark::State& state) {
    Window own, plain;
    for (Window* window : {&own, &plain}) window->Fill(int(state.range(0)), int(state.range(1)));
    auto* slider = own.form.findChild<QSlider*>("hsRotate");
    int degrees = 1;
    bench::Compare(
        state,
        [&] {
            slider->setValue(Next(slider->value()));
            Window::Present();
        },
        [&] {
            PlainStep(plain.form.Session(), degrees = Next(degrees));
            Window::Present();
        });
    PlainStep(plain.form.Session(), slider->value());
    ExpectEqual(own.form.Session().scene, plain.form.Session().scene);
}

/// With one box in ten having settings of its own, so that some of the panel shows as mixed.
void BM_PanelRefresh(benchmark::State& state) {
    Window window;
    window.Fill(int(state.range(0)), int(state.range(0)));
    Editor& editor = window.form.Session();
    for (std::size_t i = 5; i < editor.scene.brushes.size(); i += 10)
        editor.scene.brushes[i].faces[3].rotation = 45;
    bench::Compare(
        state,
        [&] {
            window.form.RefreshPropertyPanel();
            Window::Present();
        },
        [&] {
            RefreshAll(editor);
            Window::Present();
        });
}

// 10,008 selected faces; one selected box beside 5,000 others.
BENCHMARK(BM_RotationStepAlone)
    ->Args({834, 834})
    ->Args({5001, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RotationStepOnScreen)
    ->Args({834, 834})
    ->Args({5001, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelRefresh)->Arg(1000)->Arg(20000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return bench::RunWithKeptHeap(argc, argv);
}
