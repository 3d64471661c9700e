// The bounds of the world: objects that are valid files and still hold what no user draws. Each is
// written by the real encoder, opened in the real window, and goes through everything that reads a
// scene. Nothing may hang (the test program has a time limit), crash, or write what is no number
// into an export.
#include <assimp/scene.h>

#include <QDialog>
#include <QTimer>
#include <assimp/Importer.hpp>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>

#include "editor/mExport.h"
#include "editor/mFileOpenSave.h"
#include "editor/mMultiply.h"
#include "editor/mPreviewClick.h"
#include "editor/mPropertyEdits.h"
#include "export/mSourceCode.h"
#include "files/FileBuffer.h"
#include "files/LittleEndian.h"
#include "files/mObjectFile.h"
#include "gui/GuiFixture.h"
#include "optimizer/ExactEngine.h"
#include "optimizer/FastEngine.h"
#include "optimizer/mOptimize.h"
#include "scene/mBrush.h"
#include "scene/mStatistics.h"
#include "support/TempFolder.h"
#include "views/core/mFraming.h"
#include "views/ui/Backdrop.h"
#include "views/ui/mPick.h"
#include "views/ui/mRender.h"
#include "views/ui/mRender2D.h"
#include "views/ui/mSelectionEngine.h"

namespace korvane::test {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kMost = std::numeric_limits<float>::max();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

/// Gives the i-th brush of its kind what is wrong with it.
using Spoil = void (*)(Brush& brush, int i);

template <class Action>
void ForVertices(Brush& brush, Action action) {
    int v = 0;
    for (Vertex& vertex : brush.vertices) action(vertex, v++);
}

void Scale(Brush& brush, float factor) {
    ForVertices(brush, [&](Vertex& p, int) { p.x *= factor, p.y *= factor, p.z *= factor; });
}

void Stretch(Brush& brush, float repeat, float offset) {
    for (BrushFace& face : brush.faces) {
        face.localCoords = true;
        face.repeatX = face.repeatY = repeat;
        face.offsetX = face.offsetY = offset;
    }
}

struct Kind {
    const char* name;
    Spoil spoil;
    friend void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }
};

// clang-format off
const Kind kKinds[] = {
    {"just outside the working range", [](Brush& b, int) { Scale(b, 1e4F); }},
    {"far outside", [](Brush& b, int i) { Scale(b, i % 2 ? 1e30F : 3e37F); }},
    {"the largest coordinates", [](Brush& b, int) {
        ForVertices(b, [](Vertex& p, int v) { p.MoveTo({v & 1 ? kMost : -kMost, v & 2 ? kMost : -kMost, v & 4 ? kMost : -kMost}); }); }},
    {"a vertex that is no number", [](Brush& b, int i) { b.vertices[std::size_t(i % 8)].x = kNaN; }},
    {"no vertex is a number", [](Brush& b, int) {
        ForVertices(b, [](Vertex& p, int) { p.MoveTo({kNaN, kNaN, kNaN}); }); }},
    {"without end to one side", [](Brush& b, int i) { b.vertices[std::size_t(i % 8)].y = i % 2 ? kInf : -kInf; }},
    {"without end", [](Brush& b, int i) {
        ForVertices(b, [i](Vertex& p, int v) { (i % 3 == 0 ? p.x : i % 3 == 1 ? p.y : p.z) = v % 2 ? kInf : -kInf; }); }},
    {"all of these", [](Brush& b, int i) {
        constexpr float kValues[] = {kNaN, kInf, -kInf, kMost, -0.0F, 1e-45F, 999, -999.5F};
        ForVertices(b, [&](Vertex& p, int v) { p.MoveTo({kValues[(v + i) % 8], kValues[(v * i) % 8], kValues[(i + 3 * v) % 8]}); }); }},
    {"texture coordinates that are no numbers", [](Brush& b, int i) {
        for (BrushFace& face : b.faces) face.uv = {{{kNaN, kInf}, {-kInf, float(i)}, {kMost, -kMost}}}; }},
    {"texture settings that are no numbers", [](Brush& b, int i) {
        Stretch(b, i % 2 ? kNaN : kMost, i % 3 ? kInf : -kMost); }},
    {"no faces", [](Brush& b, int) { b.faces.clear(); }},
    {"nothing at all", [](Brush& b, int) { b.faces.clear(), b.vertices.clear(); }},
    {"a vertex repeated in its face", [](Brush& b, int i) {
        for (BrushFace& face : b.faces) (i % 2 ? face.b : face.c) = face.a; }},
    {"faces of one vertex", [](Brush& b, int) {
        for (BrushFace& face : b.faces) face.b = face.c = face.a; }},
    {"of a size of zero", [](Brush& b, int) {
        ForVertices(b, [](Vertex& p, int) { p.MoveTo({1, 2, 3}); }); Stretch(b, 3, 0.5F); }},
    {"flat", [](Brush& b, int i) {
        ForVertices(b, [i](Vertex& p, int) { (i % 2 ? p.x : p.y) = 2; }); Stretch(b, -2, 0); }},
    {"whole numbers at their bounds", [](Brush& b, int i) {
        for (BrushFace& face : b.faces) {
            face.rotation = i % 2 ? kLargest : kSmallest;
            face.transparency = i % 3 ? kLargest : kSmallest;
            face.polygonId = i % 4 ? kLargest : kSmallest;
            face.smooth = 255;
        } }},
    {"a shape that there is not", [](Brush& b, int i) { b.shape = std::int16_t(i % 2 ? 32767 : -32768); }},
    {"a box of three rings", [](Brush& b, int) { b.vertices.resize(15); }},
    {"a group of a megabyte", [](Brush& b, int i) { if (i < 3) b.group.assign(1 << 20, char('A' + i)); }},
    {"vertices without end under one triangle", [](Brush& b, int i) {
        if (i >= 3) return;
        b.faces.resize(1);
        b.faces[0].a = 0, b.faces[0].b = 1, b.faces[0].c = 2;
        for (int v = 0; v < 50'000; ++v) AddVertex(b, {float(v % 7), -float(v) / 1000, float(v % 5)}, false); }},
};
// clang-format on

class BoundsTest : public GuiTest {
  protected:
    void SetUp() override {
        GuiTest::SetUp();
        Session().settings.warnings.fill(false);
    }

    /// Rows of boxes, every second one spoiled, or all: what sorts and searches must deal with
    /// both.
    Scene MixedScene(Spoil spoil, bool all = false) {
        constexpr int kBrushes = 40;
        Scene scene;
        for (int i = 0; i < kBrushes; ++i) {
            const auto x = static_cast<float>(i % 8), z = static_cast<float>(i / 8);
            CreateBrush(scene, {x, 0, z}, {x + 1, 1.5F, z + 0.75F}, 4, Session().Space());
            if (all || i % 2 == 1) spoil(scene.brushes.back(), i / 2);
        }
        return scene;
    }

    /// Opens the scene from a file made of it.
    Bytes OpenFileOf(const Scene& scene) {
        const Bytes bytes = EncodeObject(scene, Session().textures, false);
        WriteFileBytes(PathOf("bad.kvobject"), bytes);
        OpenObjectFile(Session(), PathOf("bad.kvobject"));
        EXPECT_EQ(Session().scene.brushCount(), scene.brushCount());
        return bytes;
    }

    Bytes SceneBytes() { return EncodeObject(Session().scene, Session().textures, true); }

    void SelectAll(bool selected) {
        for (Brush& brush : Session().scene.brushes) brush.selected = selected;
        RefreshAll(Session());
    }

    /// A quarter of them: what is selected and what is not then both hold bad ones.
    void SelectSome() {
        SelectAll(false);
        for (std::size_t i = 0; i < Session().scene.brushes.size(); i += 4)
            for (const std::size_t k : {i, i + 1})
                if (k < Session().scene.brushes.size()) Session().scene.brushes[k].selected = true;
        RefreshAll(Session());
    }

    void Saves(const Bytes& opened) {
        ASSERT_TRUE(SaveObject(Session(), PathOf("again.kvobject")));
        EXPECT_TRUE(FileBytes(PathOf("again.kvobject")) == opened) << "what loads must save";
    }

    void Paints() {
        PaintSurface surface;
        for (const int zoom : {kMinZoom, 80, kMaxZoom}) {
            for (int view = 0; view < kViewCount; ++view) {
                Session().views[std::size_t(view)].zoom = zoom;
                PaintView(Session(), view, surface);
                Backdrop backdrop;
                PaintMoveStep(Session(), view, surface, backdrop);
                FrameBounds(Session().views[std::size_t(view)], view, SceneBounds(Session().scene));
                PaintView(Session(), view, surface);
            }
            PaintDepthGauge(Session(), surface);
        }
        window->grab();
    }

    void RendersAndPicks() {
        PreviewRenderer renderer;
        const PreviewScene shown{Session().scene, Session().settings, Session().camera,
                                 window->Textures()};
        const Framing framing = FrameObject(Session().scene, 400, 300, kPreviewFieldOfView);
        const Camera cameras[] = {{4, 3, 12, 0, 0, 0}, {2, 1, 2, -80, 45, 0}, framing.camera};
        for (const Camera& camera : cameras) {
            Session().camera = camera;
            RenderPreview(window->Context(), renderer, shown);
            for (const int at : {0, 100, 200}) {
                ClickPreview(Session(), [&] {
                    return PickPreview(window->Context(), renderer, shown, at, at);
                });
            }
        }
        Session().camera = {};
    }

    void Gestures() {
        for (const char* mode : {"mnuModeVertex", "mnuModeEdge", "mnuModeFace", "mnuModeBrush"}) {
            Choose(mode);
            for (int view = 0; view < kViewCount; ++view) {
                QWidget* pane = Find(QString("pbView%1").arg(view));
                for (const QPoint at : {QPoint(40, 50), QPoint(200, 150), QPoint(280, 100)}) {
                    QTest::mouseClick(pane, Qt::LeftButton, Qt::ControlModifier, at);
                    Drag(pane, at, at + QPoint(23, -17));
                }
            }
        }
    }

    /// Commands on the selection, taken back to the byte.
    void EditsAndUndoes() {
        for (const char* command :
             {"mnuRotX", "mnuRotYc", "mnuFlipZ", "mnuInvert", "mnuPaste", "mnuDelete"}) {
            SelectSome();
            if (command == std::string("mnuPaste")) Choose("mnuCopy");
            const Bytes before = SceneBytes();
            const std::int32_t brushes = Session().scene.brushCount();
            Choose(command);
            const bool counts =
                command == std::string("mnuPaste") || command == std::string("mnuDelete");
            EXPECT_EQ(Session().scene.brushCount() != brushes, counts) << command;
            window->grab();
            Choose("mnuUndo");
            EXPECT_TRUE(SceneBytes() == before) << command;
        }
        SelectSome();
        SetTextureRotation(Session(), 45);
        SetLocalCoords(Session(), true);
        MultiplyBoxes boxes = OpenMultiply(Session());
        boxes.count = "1";
        boxes.rotate.texts[0] = "30";
        RunMultiply(Session(), boxes);
        CloseMultiply(Session());
        Choose("mnuUndo");
    }

    /// Each engine, ended after so many looks.
    void Optimizes(int looks) {
        OptimizeOptions options;
        options.angleStep = kDetailSteps.back();
        const auto run = [&](std::unique_ptr<OptimizeEngine> engine, int left) {
            OptimizeScene(Session().scene, *engine,
                          [&left](const OptimizeProgress&) { return --left > 0; });
        };
        run(MakeFastEngine(Session().scene, options), looks);
        run(MakeExactEngine(Session().scene), looks);
        MakeCurrent(window->Context());
        run(MakeSelectionEngine(window->Context(), Session().scene, options), std::min(looks, 20));
    }

    static void Forms(QWidget* window, const char* action, const char* form) {
        QTimer::singleShot(0, window, [=] {
            auto* dialog = window->findChild<QDialog*>(form);
            EXPECT_NE(dialog, nullptr) << form;
            if (dialog != nullptr) dialog->grab();
            QApplication::activeModalWidget()->close();
        });
        window->findChild<QAction*>(action)->trigger();
    }

    void Tells() {
        const Statistics counts = CountStatistics(Session().scene, Session().textures);
        EXPECT_EQ(counts[BrushTotal], Session().scene.brushCount());
        for (const double bar : BarsOf(counts)) EXPECT_TRUE(bar >= 0 && bar <= 1);
        Forms(window.get(), "mnuStatistics", "frmStats");
        Forms(window.get(), "mnuSelect", "frmSelect");
    }

    /// All numbers of a face and nothing else.
    static CodeTemplate NumbersOnly() {
        CodeTemplate code;
        for (const CodeTagGroup& group : CodeTagGroups()) {
            for (const std::string tag : group.tags)
                if (tag != "%TextureName%" && tag != "%FACEINFO%") code.body += tag + " ";
        }
        return code;
    }

    void Exports() {
        prompts.paths.clear();
        for (const char* file : {"bad.txt", "bad.3ds", "bad.obj", "bad.glb"}) {
            QFile::remove(QString::fromStdString(PathOf(file)));
            prompts.paths.push_back(PathOf(file));
        }
        ExportSourceCode(Session(), NumbersOnly());
        Export3DS(Session());
        ExportOBJ(Session());
        ExportGLB(Session());
        const Bytes text = FileBytes(PathOf("bad.txt"));
        EXPECT_EQ(std::string(text.begin(), text.end()).find_first_not_of("0123456789.- \r\n"),
                  std::string::npos);
        EXPECT_FALSE(text.empty() && HasFaces());
        const Bytes mesh = FileBytes(PathOf("bad.obj"));
        ASSERT_FALSE(mesh.empty());
        for (const std::string_view word : {"nan", "inf"})
            EXPECT_TRUE(std::ranges::search(mesh, word).empty());
        ExpectFiniteMeshes(PathOf("bad.glb"));
        const Bytes model = FileBytes(PathOf("bad.3ds"));
        ASSERT_FALSE(model.empty());
        ExpectFinite(FileReader(model));
    }

    bool HasFaces() {
        return std::ranges::any_of(Session().scene.brushes, [](const Brush& brush) {
            return std::ranges::any_of(brush.faces, [](const auto& f) { return !f.invisible; });
        });
    }

    static void ExpectFiniteMeshes(const std::string& path) {
        Assimp::Importer importer;
        const aiScene* scene = importer.ReadFile(path, 0);
        ASSERT_NE(scene, nullptr) << importer.GetErrorString();
        for (const aiMesh* mesh : std::span(scene->mMeshes, scene->mNumMeshes)) {
            for (const aiVector3D* list :
                 {mesh->mVertices, mesh->mNormals, mesh->mTextureCoords[0]}) {
                for (const aiVector3D& v : std::span(list, mesh->mNumVertices))
                    ASSERT_TRUE(std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z));
            }
        }
    }

    /// Positions and texture coordinates in the chunks of a 3DS file.
    static void ExpectFinite(FileReader file) {
        while (!file.AtEnd() && file.Good()) {
            const int low = file.ReadByte();
            const int id = low | file.ReadByte() << 8;
            const auto size = static_cast<std::size_t>(file.ReadLong() - 6);
            const std::uint8_t* at = file.Take(size);
            ASSERT_NE(at, nullptr);
            const std::size_t name =
                id == 0x4000 ? std::strlen(reinterpret_cast<const char*>(at)) + 1 : 0;
            if (id == 0x4D4D || id == 0x3D3D || id == 0x4000 || id == 0x4100)
                ExpectFinite(FileReader({at + name, size - name}));
            if (id != 0x4110 && id != 0x4140) continue;
            for (std::size_t i = 2; i < size; i += 4)
                ASSERT_TRUE(std::isfinite(FetchSingle(at + i)));
        }
    }
};

class BadObjectTest : public BoundsTest, public testing::WithParamInterface<Kind> {};

TEST_P(BadObjectTest, GoesThroughEverything) {
    const Bytes opened = OpenFileOf(MixedScene(GetParam().spoil));
    Saves(opened);
    Exports();
    Tells();
    for (const bool selected : {false, true}) {
        SelectAll(selected);
        Paints();
        RendersAndPicks();
    }
    EditsAndUndoes();
    Choose("mnuResetAllViews");
    Gestures();
    Exports();
    Optimizes(2000);
    EXPECT_TRUE(prompts.messages.empty()) << prompts.messages[0].text;
}

TEST_P(BadObjectTest, AloneGoesThroughWhatReads) {
    Saves(OpenFileOf(MixedScene(GetParam().spoil, true)));
    Exports();
    Tells();
    SelectAll(true);
    Paints();
    RendersAndPicks();
    Optimizes(200);
    EXPECT_TRUE(prompts.messages.empty()) << prompts.messages[0].text;
}

INSTANTIATE_TEST_SUITE_P(Bounds, BadObjectTest, testing::ValuesIn(kKinds),
                         [](const auto& test) { return "Kind" + std::to_string(test.index); });

TEST_F(BoundsTest, BrushesWithoutSizeGetFiniteLocalCoordinates) {
    for (const char* name : {"of a size of zero", "flat", "whole numbers at their bounds"}) {
        const auto* kind = std::ranges::find(kKinds, std::string(name), &Kind::name);
        OpenFileOf(MixedScene(kind->spoil));
        SelectAll(true);
        SetLocalCoords(Session(), true);
        for (const Brush& brush : Session().scene.brushes) {
            for (const BrushFace& face : brush.faces) {
                for (const TexCoord& uv : face.uv)
                    ASSERT_TRUE(std::isfinite(uv.u) && std::isfinite(uv.v)) << name;
            }
        }
    }
}

TEST_F(BoundsTest, NamesOfAMegabyteAreNotKept) {
    TextureLibrary library;
    const std::int32_t texture = library.AddTexture(std::string(1 << 20, 't'), 64, 64);
    Scene scene = MixedScene([](Brush&, int) {});
    for (Brush& brush : scene.brushes)
        for (BrushFace& face : brush.faces) face.texture = texture;
    scene.brushes[0].name.assign(1 << 20, 'B');
    const Bytes bytes = EncodeObject(scene, library, false);
    ASSERT_GT(bytes.size(), std::size_t{2} << 20);
    WriteFileBytes(PathOf("bad.kvobject"), bytes);
    OpenObjectFile(Session(), PathOf("bad.kvobject"));
    ASSERT_EQ(Session().scene.brushCount(), scene.brushCount());
    EXPECT_EQ(Session().scene.brushes[0].faces[0].texture, 0);
    EXPECT_EQ(Session().scene.brushes[0].name, DefaultBrushName(0));
}

TEST_F(BoundsTest, EnterInTheGroupBoxCutsNoGroup) {
    Scene scene = MixedScene([](Brush&, int) {});
    scene.brushes[0].group.assign(1 << 20, 'A');
    OpenFileOf(scene);
    Session().scene.brushes[0].selected = true;
    RefreshAll(Session());
    QTest::mouseClick(Find("txtBrushGroup"), Qt::LeftButton);
    QTest::keyClick(Find("txtBrushGroup"), Qt::Key_Return);
    EXPECT_EQ(Session().scene.brushes[0].group.size(), std::size_t{1} << 20);
}

/// Half of them in one place: the worst for everything that looks for neighbours.
TEST_F(BoundsTest, AHundredThousandBrushes) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int kBrushes = 10'000;  // all are a matter of many minutes there
#else
    constexpr int kBrushes = 100'000;
#endif
    Scene scene;
    CreateBrush(scene, {0, 0, 0}, {0.5F, 0.5F, 0.5F}, 4, Session().Space());
    scene.brushes.resize(kBrushes, scene.brushes[0]);
    RenumberBrushNames(scene);
    for (int i = 0; i < kBrushes; i += 2) {
        for (Vertex& p : scene.brushes[std::size_t(i)].vertices) {
            p.MoveTo({p.x + float(i / 2 % 50), p.y + float(i / 100 % 20), p.z + float(i / 2000)});
        }
    }
    const Bytes opened = OpenFileOf(scene);
    Saves(opened);
    Exports();
    Tells();
    Paints();
    RendersAndPicks();
    Optimizes(20);
    SelectAll(true);
    Paints();
    const Bytes before = SceneBytes();
    Choose("mnuDelete");
    EXPECT_EQ(Session().scene.brushCount(), 0);
    Choose("mnuUndo");
    EXPECT_TRUE(SceneBytes() == before);
}

}  // namespace
}  // namespace korvane::test
