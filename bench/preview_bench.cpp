// A frame of the preview at 800 x 600 beside the same frame in plain immediate mode, and the
// loading of textures split into decoding and upload.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Compare.h"
#include "support/ImmediatePreview.h"
#include "support/PreviewStage.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/mOGLTextures.h"
#include "views/ui/mPick.h"

namespace {

using namespace korvane;
using korvane::test::PreviewStage;

constexpr int kTextures = 8;

/// Boxes in a cube-shaped lattice about the origin, the texture changing from box to box.
void FillWithBoxes(PreviewStage& stage, int count) {
    const int side = int(std::ceil(std::cbrt(count)));
    for (int i = 0; i < count; ++i) {
        const float x = float(i % side - side / 2) * 1.5F;
        const float y = float(i / side % side - side / 2) * 1.5F;
        const float z = float(i / side / side - side / 2) * 1.5F;
        stage.Add({x, y, z}, {x + 1, y + 1, z + 1}, i % kTextures);
    }
}

enum Place { Outside = 0, Inside = 1 };

void LookFrom(PreviewStage& stage, Place place, int count) {
    const float reach = float(std::cbrt(count)) * 1.5F;
    if (place == Outside) {
        stage.LookFrom(reach * 0.9F, reach * 0.8F, reach * 1.1F, -30, 40);
    } else {
        stage.LookFrom(0.2F, -0.2F, 0.3F, -10, 30);
    }
}

/// One stage per number of boxes, made when first asked for; to be emptied while the application
/// still exists.
std::map<int, std::unique_ptr<PreviewStage>>& Stages() {
    static std::map<int, std::unique_ptr<PreviewStage>> stages;
    return stages;
}

PreviewStage& StageOf(int count) {
    auto& stage = Stages()[count];
    if (!stage) {
        stage = std::make_unique<PreviewStage>(800, 600, kTextures);
        FillWithBoxes(*stage, count);
    }
    return *stage;
}

/// Pixels in which two pictures of one size differ.
int DifferentPixels(const QImage& a, const QImage& b) {
    int different = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) different += a.pixel(x, y) != b.pixel(x, y);
    }
    return different;
}

/// Pixels in which the frame differs from the one in immediate mode.
int DifferenceOfView(PreviewStage& stage) {
    const QImage ours = stage.Render().copy();
    korvane::test::RenderImmediate(stage.context, stage.Shown());
    return DifferentPixels(ours, stage.context.frame);
}

/// A frame beside the same one in immediate mode.
void BM_RenderPreview(benchmark::State& state) {
    PreviewStage& stage = StageOf(int(state.range(0)));
    LookFrom(stage, Place(state.range(1)), int(state.range(0)));
    state.counters["different_pixels"] = DifferenceOfView(stage);
    korvane::bench::Compare(
        state, [&] { stage.Render(); },
        [&] { korvane::test::RenderImmediate(stage.context, stage.Shown()); });
}

/// Milliseconds of a frame and of the same one in immediate mode: medians of a few.
std::pair<double, double> TimesOfView(PreviewStage& stage) {
    std::vector<double> ours, plain;
    for (int i = 0; i < 3; ++i) {
        plain.push_back(korvane::bench::Milliseconds(
            [&] { korvane::test::RenderImmediate(stage.context, stage.Shown()); }));
        ours.push_back(korvane::bench::Milliseconds([&] { stage.Render(); }));
    }
    return {korvane::bench::Median(ours), korvane::bench::Median(plain)};
}

/// Places between the boxes of the lattice: beside one wall, at an edge, and where three gaps
/// cross, each with the headings of someone who turns about and looks up and down.
std::vector<Camera> ViewsInside() {
    constexpr float kPlaces[][3] = {
        {0.2F, -0.2F, 0.3F}, {7.25F, 3.5F, -4}, {-7.75F, 0.5F, -7.75F}, {2.75F, 8.75F, -4.75F}};
    std::vector<Camera> views;
    for (const auto& [x, y, z] : kPlaces) {
        for (const float pitch : {-10.0F, 25.0F, -50.0F}) {
            for (const float yaw : {30.0F, 75.0F, 165.0F, 250.0F}) {
                views.push_back({x, y, z, pitch, yaw, 0});
            }
        }
    }
    return views;
}

/// All views inside the scene, each beside immediate mode: "ratio" is of the whole time, "least"
/// and "most" are those of single views. Times are of one frame.
void BM_RenderPreviewAround(benchmark::State& state) {
    PreviewStage& stage = StageOf(int(state.range(0)));
    double own = 0, reference = 0, least = 1e9, most = 0;
    const std::vector<Camera> views = ViewsInside();
    int different = 0;
    for (const Camera& view : views) {
        stage.editor.camera = view;
        different += DifferenceOfView(stage);
    }
    state.counters["different_pixels"] = different;
    for (auto _ : state) {
        double round = 0;
        for (const Camera& view : views) {
            stage.editor.camera = view;
            const auto [ours, plain] = TimesOfView(stage);
            round += ours;
            reference += plain;
            least = std::min(least, ours / plain);
            most = std::max(most, ours / plain);
        }
        own += round;
        state.SetIterationTime(round / 1000 / double(views.size()));
    }
    state.counters["ratio"] = own / reference;
    state.counters["least"] = least;
    state.counters["most"] = most;
}

/// A frame in which `moved` brushes changed beside one in which none did.
void BM_RenderPreviewWhileMoving(benchmark::State& state) {
    PreviewStage& stage = StageOf(int(state.range(0)));
    LookFrom(stage, Outside, int(state.range(0)));
    auto& brushes = stage.editor.scene.brushes;
    const std::size_t step = brushes.size() / std::size_t(state.range(1));
    stage.Render();
    korvane::bench::Compare(
        state,
        [&] {
            for (std::size_t i = 0; i < brushes.size(); i += step) Touch(brushes[i]);
            stage.Render();
        },
        [&] { stage.Render(); });
}

/// A pick beside one that sends the whole scene, at places all over the view.
void BM_Pick(benchmark::State& state) {
    PreviewStage& stage = StageOf(5000);
    LookFrom(stage, Place(state.range(0)), 5000);
    stage.Render();
    int different = 0;
    int place = 0;
    std::int32_t expected = 0;
    const auto pick = [&](auto picker) { return picker(place * 37 % 800, place * 101 % 600); };
    const auto ours = [&](int x, int y) {
        return PickPreview(stage.context, stage.renderer, stage.Shown(), x, y);
    };
    const auto whole = [&](int x, int y) {
        return korvane::test::PickImmediate(stage.context, stage.Shown(), x, y);
    };
    korvane::bench::Compare(
        state,
        [&] {
            different += pick(ours) != expected;
            ++place;
        },
        [&] { expected = pick(whole); });
    state.counters["different"] = different;
}

/// Nothing to draw: what clearing, reading back and turning the picture cost.
void BM_EmptyFrame(benchmark::State& state) {
    PreviewStage& stage = StageOf(0);
    stage.editor.settings.show3DGrid = false;
    for (auto _ : state) stage.Render();
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    for (const int count : {1000, 5000, 20000}) {
        for (const int place : {Outside, Inside}) benchmark->Args({count, place});
    }
    benchmark->ArgNames({"boxes", "inside"})->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_RenderPreview)->Apply(Sizes);
BENCHMARK(BM_RenderPreviewAround)
    ->Arg(5000)
    ->Arg(20000)
    ->ArgName("boxes")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_RenderPreviewWhileMoving)
    ->Args({5000, 1})
    ->Args({5000, 100})
    ->ArgNames({"boxes", "moved"})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
// So few, because Mesa keeps the vertices that immediate mode sends in selection mode: 6 MB a pick.
BENCHMARK(BM_Pick)
    ->Arg(Outside)
    ->Arg(Inside)
    ->ArgName("inside")
    ->Iterations(200)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EmptyFrame)->Unit(benchmark::kMillisecond);

/// Twelve pictures of 64 to 512 pixels in the formats of a texture folder.
class TextureFolder {
  public:
    TextureFolder() {
        for (int i = 0; i < 12; ++i) {
            const int side = 64 << (i % 4);
            const char* format = i % 2 == 0 ? "jpg" : "bmp";
            const QString path = folder_.filePath(QString("%1.%2").arg(i).arg(format));
            Noise(side).save(path, format, 90);
            paths_.push_back(path.toStdString());
        }
    }
    const std::vector<std::string>& Paths() const { return paths_; }

  private:
    static QImage Noise(int side) {
        QImage picture(side, side, QImage::Format_RGB32);
        unsigned seed = 1;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                seed = seed * 1664525U + 1013904223U;
                picture.setPixel(x, y, qRgb(x * 255 / side, y * 255 / side, int(seed >> 26) + 90));
            }
        }
        return picture;
    }

    QTemporaryDir folder_;
    std::vector<std::string> paths_;
};

const TextureFolder& Folder() {
    static const TextureFolder folder;
    return folder;
}

void BM_DecodeTwelveTextures(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::string& path : Folder().Paths()) {
            cDIBSection image;
            if (LoadImageFile(path, image) != ImageLoaded) state.SkipWithError("unreadable");
            benchmark::DoNotOptimize(image.pixels.data());
        }
    }
}

void BM_UploadTwelveTextures(benchmark::State& state) {
    PreviewStage& stage = StageOf(0);
    std::vector<cDIBSection> images(Folder().Paths().size());
    for (std::size_t i = 0; i < images.size(); ++i) LoadImageFile(Folder().Paths()[i], images[i]);
    for (auto _ : state) {
        TextureObjects objects;
        for (const cDIBSection& image : images) UploadTexture(stage.context, objects, image);
        glFinish();
        state.PauseTiming();
        glDeleteTextures(GLsizei(objects.size()), objects.data());
        state.ResumeTiming();
    }
}

BENCHMARK(BM_DecodeTwelveTextures)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UploadTwelveTextures)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int result = korvane::bench::RunWithKeptHeap(argc, argv);
    Stages().clear();
    return result;
}
