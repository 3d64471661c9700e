// Exports, each operation beside its reference in the same run. Of 120,000 triangles:
//   builder : smooth faces, at most 1/8 of the time that the linear search takes
//   lib3ds  : the whole export to a file, at most half of the time that lib3ds takes to write it
//   assimp  : the same, at most a third of assimp's time
//   text    : the default C++ code of the same scene, beside copying the text
// Of 16,000 boxes, as OBJ and GLB:
//   crowd   : in 8,000 groups of two materials each, or all in one place, beside the same boxes
//             apart and in one group; a few times as long at most
// The references write meshes that are ready in their own memory. The export waits until its file
// is on the disk, which they leave out, so both sides write where that costs nothing: into memory.
// In the runs on a disk the references wait as well; those tell more of the disk than of the work.
#include <assimp/scene.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <lib3ds/file.h>
#include <unistd.h>

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <filesystem>
#include <string>

#include "Compare.h"
#include "export/MeshBuilder.h"
#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "interchange/mInterchange.h"
#include "scene/mBrush.h"
#include "support/PlainMeshBuilder.h"

namespace korvane {
namespace {

using bench::Compare;

constexpr std::size_t kTriangles = 120'000;

/// Spheres on a grid, cut off after 120,000 triangles.
struct Subject {
    TextureLibrary library;
    Scene scene;

    explicit Subject(bool smooth) {
        library.AddTexture("texture.jpg", 256, 256);
        library.SelectTexture(1);
        scene.createShape = Sphere;
        std::size_t left = kTriangles;
        for (int i = 0; left > 0; ++i) {
            const auto x = static_cast<float>(i % 10) * 3;
            const auto z = static_cast<float>(i / 10) * 3;
            CreateBrush(scene, {x, 0, z}, {x + 2.3F, 2.1F, z + 1.7F}, 32, {library});
            auto& faces = scene.brushes.back().faces;
            if (faces.size() > left) faces.resize(left);
            left -= faces.size();
            for (BrushFace& face : faces) face.smooth = smooth ? 1 : 0;
        }
    }
};

const Subject& TheSubject(bool smooth) {
    static const Subject subjects[] = {Subject(false), Subject(true)};
    return subjects[smooth ? 1 : 0];
}

template <typename Builder>
void AddAll(Builder& builder, const Scene& scene) {
    for (const Brush& brush : scene.brushes) {
        const auto corner = [&](std::int32_t i) {
            return brush.vertices[static_cast<std::size_t>(i)].Position();
        };
        for (const BrushFace& face : brush.faces) {
            builder.AddTriangle(corner(face.a), corner(face.b), corner(face.c), face.uv[0],
                                face.uv[1], face.uv[2], face.smooth);
        }
    }
    builder.EndObject();
}

void Builder(benchmark::State& state) {
    const Scene& scene = TheSubject(true).scene;
    Compare(
        state,
        [&] {
            Model3DS model;
            std::int32_t parts = 0;
            MeshBuilder builder(model, parts);
            builder.BeginObject("KVEO", 0, true, true);
            AddAll(builder, scene);
            benchmark::DoNotOptimize(model.objects.data());
        },
        [&] {
            Model3DS model;
            plain::MeshBuilder builder(model);
            AddAll(builder, scene);
            benchmark::DoNotOptimize(model.objects.data());
        });
}

/// Where both sides write: a file system in memory, or the current folder, which is to be a disk.
struct Files {
    bool onDisk;
    std::filesystem::path folder = onDisk ? std::filesystem::current_path() : "/dev/shm";
    std::string own = (folder / "korvane-bench.3ds").string();
    std::string other = (folder / "korvane-bench-reference.3ds").string();

    ~Files() {
        std::filesystem::remove(own);
        std::filesystem::remove(other);
    }

    /// Waits until the file of the reference is on the disk, as the export does for its own.
    bool FlushOther() const {
        if (!onDisk) return true;
        const int file = open(other.c_str(), O_RDONLY | O_CLOEXEC);
        const bool flushed = fsync(file) == 0;
        return close(file) == 0 && flushed;
    }
};

bool Export(const Subject& subject, const std::string& path) {
    std::int32_t parts = 0;
    return Save3DS(path, subject.scene, subject.library, parts);
}

void WholeBesideLib3ds(benchmark::State& state) {
    const Subject& subject = TheSubject(state.range(0) != 0);
    const Files files{state.range(1) != 0};
    bool good = Export(subject, files.own);
    Lib3dsFile* mesh = lib3ds_file_load(files.own.c_str());
    if (mesh == nullptr) return state.SkipWithError("no file to compare with");
    Compare(
        state, [&] { good &= Export(subject, files.own); },
        [&] {
            good &= lib3ds_file_save(mesh, files.other.c_str()) != 0;
            good &= files.FlushOther();
        });
    lib3ds_file_free(mesh);
    if (!good) state.SkipWithError("could not save");
}

void WholeBesideAssimp(benchmark::State& state) {
    const Subject& subject = TheSubject(state.range(0) != 0);
    const Files files{state.range(1) != 0};
    bool good = Export(subject, files.own);
    Assimp::Importer importer;
    Assimp::Exporter exporter;
    const aiScene* mesh = importer.ReadFile(files.own, 0);
    if (mesh == nullptr) return state.SkipWithError("no file to compare with");
    Compare(
        state, [&] { good &= Export(subject, files.own); },
        [&] {
            good &= exporter.Export(mesh, "3ds", files.other) == aiReturn_SUCCESS;
            good &= files.FlushOther();
        });
    if (!good) state.SkipWithError("could not save");
}

void Text(benchmark::State& state) {
    const Subject& subject = TheSubject(false);
    const CodeTemplate code = DefaultCppCode();
    const std::string text = SourceCodeText(code, subject.scene, subject.library);
    Compare(
        state,
        [&] { benchmark::DoNotOptimize(SourceCodeText(code, subject.scene, subject.library)); },
        [&] { benchmark::DoNotOptimize(std::string(text)); });
}

/// Boxes of two materials in turn.
struct Boxes {
    TextureLibrary library;
    Scene scene;

    Boxes(bool grouped, bool inOnePlace) {
        const std::int32_t textures[] = {0, library.AddTexture("texture.jpg", 256, 256)};
        for (int i = 0; i < 16'000; ++i) {
            library.SelectTexture(textures[i % 2]);
            const float x = inOnePlace ? 0 : static_cast<float>(i % 100) * 2;
            const float z = inOnePlace ? 0 : static_cast<float>(i / 100) * 2;
            CreateBrush(scene, {x, 0, z}, {x + 1, 1, z + 1}, 4, {library});
            if (grouped) scene.brushes.back().group = "group " + std::to_string(i / 2);
        }
    }
};

void Crowd(benchmark::State& state) {
    const bool glb = state.range(0) != 0, inOnePlace = state.range(1) != 0;
    const Boxes crowd(!inOnePlace, inOnePlace), plain(false, false);
    const std::filesystem::path folder = "/dev/shm/korvane-bench";
    std::filesystem::create_directories(folder);
    bool good = true;
    const auto save = [&](const Boxes& boxes) {
        const std::string path = (folder / "boxes").string();
        good &= glb ? SaveGLB(path + ".glb", boxes.scene, boxes.library, "", nullptr)
                    : SaveOBJ(path + ".obj", boxes.scene, boxes.library, "");
    };
    Compare(
        state, [&] { save(crowd); }, [&] { save(plain); });
    std::filesystem::remove_all(folder);
    if (!good) state.SkipWithError("could not save");
}

void SmoothAndOnDisk(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"smooth", "disk"})->ArgsProduct({{0, 1}, {0, 1}});
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(Builder)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WholeBesideLib3ds)->Apply(SmoothAndOnDisk);
BENCHMARK(WholeBesideAssimp)->Apply(SmoothAndOnDisk);
BENCHMARK(Crowd)
    ->ArgNames({"glb", "one_place"})
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Text)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
    return korvane::bench::RunWithKeptHeap(argc, argv);
}
