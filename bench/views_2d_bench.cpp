// Repaint of one 2D view of 600 x 450 pixels, beside the same picture drawn by QPainter line by
// line and point by point; and a step of a drag beside the full repaint and a copy of the picture.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPainter>
#include <cstring>
#include <random>

#include "base/Rounding.h"
#include "editor/mViews.h"
#include "scene/mBrush.h"
#include "support/RecordingHost.h"
#include "views/core/mBrushEdges.h"
#include "views/core/mGrid.h"
#include "views/ui/mRender2D.h"

namespace korvane {
namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 450;
constexpr int kZoom = 20;

struct Session {
    test::RecordingHost host;
    test::ScriptedPrompts prompts;
    Editor editor{host, prompts};
    PaintSurface surface;

    Session() {
        for (ViewState& view : editor.views)
            view.width = kWidth, view.height = kHeight, view.zoom = kZoom;
        UpdateViewOrigins(editor);
        editor.settings.showRulers = false;  // the same text either way
    }
};

/// Boxes of half a unit to two units a side, strewn over the whole view.
void AddBoxes(Scene& scene, int count, bool rotated) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> size(0.5F, 2), turn(0, 6.28F);
    std::uniform_real_distribution<float> across(-kWidth / 2 / kZoom, kWidth / 2 / kZoom - 2);
    std::uniform_real_distribution<float> down(-kHeight / 2 / kZoom, kHeight / 2 / kZoom - 2);
    const TextureLibrary library;
    for (int i = 0; i < count; ++i) {
        const Vec3 low{across(random), across(random), down(random)};
        const Vec3 high{low.x + size(random), low.y + size(random), low.z + size(random)};
        const auto index = CreateBrush(scene, low, high, 4, {library, 4.0F});
        if (!rotated) continue;
        const Matrix4 matrix =
            MatrixMultiply(MatrixRotateX(turn(random)), MatrixRotateZ(turn(random)));
        const Vec3 centre = Midpoint(low, high);
        for (Vertex& v : scene.brushes[static_cast<std::size_t>(index)].vertices) {
            const Vec3 p = TransformPoint(matrix, Difference(centre, v.Position()));
            v.MoveTo({p.x + centre.x, p.y + centre.y, p.z + centre.z});
        }
    }
}

QColor Ink(const Editor& editor, ColorItem item) {
    return QColor::fromRgb(PixelOf(editor.settings.colors[item]));
}

void ReferenceGrid(const Editor& editor, QPainter& painter) {
    static constexpr ColorItem items[] = {ColorItem::GridNormal, ColorItem::GridMinor,
                                          ColorItem::GridMajor, ColorItem::GridCenter};
    const ViewState& view = editor.views[TopView];
    WalkGrid(GridRangeOf(view.originX, kWidth, kZoom), [&](double u, GridLine line) {
        painter.setPen(Ink(editor, items[static_cast<int>(line)]));
        const int x = RoundToInt(view.originX - kZoom * u);
        painter.drawLine(x, 0, x, kHeight);
    });
    WalkGrid(GridRangeOf(view.originY, kHeight, kZoom), [&](double u, GridLine line) {
        painter.setPen(Ink(editor, items[static_cast<int>(line)]));
        const int y = RoundToInt(view.originY - kZoom * u);
        painter.drawLine(0, y, kWidth, y);
    });
}

QPoint Screen(const Editor& editor, const Vertex& vertex) {
    const ScreenPoint p = WorldToScreen(editor.views[TopView], TopView, vertex.Position());
    return {RoundToInt(p.x), RoundToInt(p.y)};
}

void ReferenceView(const Editor& editor, QImage& image) {
    image.fill(Ink(editor, ColorItem::View2DBackground));
    QPainter painter(&image);
    ReferenceGrid(editor, painter);
    for (const Brush& brush : editor.scene.brushes)
        ForEachEdge(brush, [&](std::int32_t a, std::int32_t b) {
            painter.setPen(Ink(editor, ColorItem::View2DBrushLines));
            painter.drawLine(Screen(editor, brush.vertices[static_cast<std::size_t>(a)]),
                             Screen(editor, brush.vertices[static_cast<std::size_t>(b)]));
        });
}

/// One selected brush of vertices alone: a repaint draws its nodes and no edge.
void AddNodes(Scene& scene, int count) {
    std::mt19937 random(2);
    std::uniform_real_distribution<float> x(-14, 14), z(-10, 10);
    const auto index = static_cast<std::size_t>(AddBrush(scene, "", ""));
    Brush& brush = scene.brushes[index];
    brush.selected = true;
    brush.shape = Sphere;
    for (int i = 0; i < count; ++i) {
        AddVertex(brush, {x(random), 0, z(random)}, false);
        brush.vertices.back().selected = i % 2 == 0;
    }
    scene.editMode = VertexMove;
}

void PaintBoxes(benchmark::State& state) {
    Session s;
    AddBoxes(s.editor.scene, 5000, state.range(0) != 0);
    for (auto _ : state) PaintView(s.editor, TopView, s.surface);
}
BENCHMARK(PaintBoxes)->ArgName("rotated")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void PaintBoxesByQPainter(benchmark::State& state) {
    Session s;
    AddBoxes(s.editor.scene, 5000, state.range(0) != 0);
    s.surface.Resize(kWidth, kHeight);
    for (auto _ : state) ReferenceView(s.editor, s.surface.image);
}
BENCHMARK(PaintBoxesByQPainter)->ArgName("rotated")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// As PaintBoxes, with the rulers and their text.
void PaintBoxesWithRulers(benchmark::State& state) {
    Session s;
    s.editor.settings.showRulers = true;
    AddBoxes(s.editor.scene, 5000, false);
    for (auto _ : state) PaintView(s.editor, TopView, s.surface);
}
BENCHMARK(PaintBoxesWithRulers)->Unit(benchmark::kMillisecond);

/// What every repaint pays: background, grid, rulers.
void PaintEmptyView(benchmark::State& state) {
    Session s;
    s.editor.settings.showRulers = state.range(0) != 0;
    for (auto _ : state) PaintView(s.editor, TopView, s.surface);
}
BENCHMARK(PaintEmptyView)->ArgName("rulers")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void PaintNodes(benchmark::State& state) {
    Session s;
    AddNodes(s.editor.scene, 40'000);
    for (auto _ : state) PaintView(s.editor, TopView, s.surface);
}
BENCHMARK(PaintNodes)->Unit(benchmark::kMillisecond);

void PaintNodesByQPainter(benchmark::State& state) {
    Session s;
    AddNodes(s.editor.scene, 40'000);
    s.surface.Resize(kWidth, kHeight);
    const QPen plain(Ink(s.editor, ColorItem::View2DVertexNodes), 5, Qt::SolidLine, Qt::RoundCap);
    const QPen selected(Ink(s.editor, ColorItem::View2DSelectedNodes), 5, Qt::SolidLine,
                        Qt::RoundCap);
    for (auto _ : state) {
        s.surface.image.fill(Ink(s.editor, ColorItem::View2DBackground));
        QPainter painter(&s.surface.image);
        ReferenceGrid(s.editor, painter);
        for (const Vertex& vertex : s.editor.scene.brushes[0].vertices) {
            painter.setPen(vertex.selected ? selected : plain);
            painter.drawPoint(Screen(s.editor, vertex));
        }
    }
}
BENCHMARK(PaintNodesByQPainter)->Unit(benchmark::kMillisecond);

/// A session in the middle of a drag: every fiftieth of 20,000 boxes is selected.
struct DragSession : Session {
    Backdrop backdrop;

    DragSession(bool rotated, bool rulers) {
        editor.settings.showRulers = rulers;
        AddBoxes(editor.scene, 20'000, rotated);
        for (std::size_t i = 0; i < editor.scene.brushes.size(); i += 50)
            editor.scene.brushes[i].selected = true;
        PaintMoveStep(editor, TopView, surface, backdrop);
    }
    /// The selection moves back and forth, as the step before would have done it.
    void Move(float by) {
        for (const std::int32_t index : backdrop.selected)
            for (Vertex& v : editor.scene.brushes[static_cast<std::size_t>(index)].vertices)
                v.x += by;
    }
};

void DragArguments(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"rotated", "rulers"})->ArgsProduct({{0, 1}, {0, 1}});
    bench->Unit(benchmark::kMicrosecond);
}

void DragStep(benchmark::State& state) {
    DragSession s(state.range(0) != 0, state.range(1) != 0);
    float by = 0.1F;
    for (auto _ : state) {
        s.Move(by);
        by = -by;
        PaintMoveStep(s.editor, TopView, s.surface, s.backdrop);
    }
}
BENCHMARK(DragStep)->Apply(DragArguments);

void DragStepInFull(benchmark::State& state) {
    DragSession s(state.range(0) != 0, state.range(1) != 0);
    float by = 0.1F;
    for (auto _ : state) {
        s.Move(by);
        by = -by;
        PaintView(s.editor, TopView, s.surface);
    }
}
BENCHMARK(DragStepInFull)->Apply(DragArguments);

/// The least that a step can cost: its picture copied.
void CopyOfThePicture(benchmark::State& state) {
    Session s;
    PaintView(s.editor, TopView, s.surface);
    const QImage from = s.surface.image.copy();
    uchar* const to = s.surface.image.bits();
    for (auto _ : state) {
        std::memcpy(to, from.constBits(), static_cast<std::size_t>(from.sizeInBytes()));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyOfThePicture)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
}
