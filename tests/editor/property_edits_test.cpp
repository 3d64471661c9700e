// The property panel without its window: what it shows of mixed selections, and what each edit
// writes, recomputes and refreshes.
#include <algorithm>
#include <functional>

#include "editor/mPropertyEdits.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

/// Three boxes of 12 faces, of which the first two are selected.
class PropertyEditsTest : public SessionTest {
  protected:
    PropertyEditsTest() {
        for (const float x : {0.0F, 3.0F, 6.0F}) AddBox({x, 0, 0}, {x + 2, 1, 3});
        Select("110");
    }

    BrushFace& Face(std::size_t brush, std::size_t face) { return Brushes()[brush].faces[face]; }

    /// The boxes in the order of the panel ('-', '*' checked, '?' mixed), levels of checked boxes,
    /// offsets and repeats.
    std::string Shown() {
        const ShownProperties p = PropertiesOf(editor.scene);
        std::string text;
        for (const Check check : {p.invisible, p.smooth, p.transparent, p.localCoords, p.rotated,
                                  p.flipped, p.mirrored}) {
            text += "-*?"[static_cast<int>(check)];
        }
        if (p.transparent == Check::Checked) text += " " + std::to_string(p.transparency) + "%";
        if (p.rotated == Check::Checked) text += " " + std::to_string(p.rotation) + "d";
        for (const auto& pair : {p.offsets, p.repeats}) text += " " + pair[0] + "," + pair[1];
        return text;
    }
    std::string Names() {
        const ShownProperties shown = PropertiesOf(editor.scene);
        return shown.name + "|" + shown.group;
    }

    /// Every face has the coordinates that recomputing all of them plainly gives.
    void ExpectFreshCoordinates(const char* what) {
        std::vector<Brush> plain = Brushes();
        for (std::size_t b = 0; b < plain.size(); ++b) {
            UpdateTextureCoords(plain[b], editor.Space());
            for (std::size_t f = 0; f < plain[b].faces.size(); ++f)
                EXPECT_EQ(Face(b, f).uv, plain[b].faces[f].uv) << what << " " << b << "," << f;
        }
    }
};

TEST_F(PropertyEditsTest, ShowsWhatFacesHaveInCommon) {
    struct Row {
        std::function<void(BrushFace&)> change;
        const char *ofSome, *ofAll;
    };
    const Row rows[] = {
        {[](BrushFace& f) { f.invisible = true; }, "?------ 0,0 1,1", "*------ 0,0 1,1"},
        {[](BrushFace& f) { f.smooth = 1; }, "-?----- 0,0 1,1", "-*----- 0,0 1,1"},
        {[](BrushFace& f) { f.transparency += 40; }, "--?---- 0,0 1,1", "--*---- 40% 0,0 1,1"},
        {[](BrushFace& f) { f.localCoords = true; }, "---?--- 0,0 1,1", "---*--- 0,0 1,1"},
        {[](BrushFace& f) { f.rotation += 90; }, "----?-- 0,0 1,1", "----*-- 90d 0,0 1,1"},
        {[](BrushFace& f) { f.rotation = -90; }, "----?-- 0,0 1,1", "------- 0,0 1,1"},
        {[](BrushFace& f) { f.flipped = true; }, "-----?- 0,0 1,1", "-----*- 0,0 1,1"},
        {[](BrushFace& f) { f.mirrored = true; }, "------? 0,0 1,1", "------* 0,0 1,1"},
        {[](BrushFace& f) { f.offsetX = 0.5F; }, "------- 0,0 1,1", "------- 0.5,0 1,1"},
        {[](BrushFace& f) { f.offsetY = -2; }, "------- 0,0 1,1", "------- 0,-2 1,1"},
        {[](BrushFace& f) { f.repeatX = 3; }, "------- 0,0 1,1", "------- 0,0 3,1"},
        {[](BrushFace& f) { f.repeatY = 1.5F; }, "------- 0,0 1,1", "------- 0,0 1,1.5"},
    };
    const std::vector<Brush> before = Brushes();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.ofAll);
        row.change(Face(2, 0));
        EXPECT_EQ(Shown(), "------- 0,0 1,1") << "that brush is not selected";
        row.change(Face(1, 7));
        EXPECT_EQ(Shown(), row.ofSome);
        Brushes() = before;
        for (const std::size_t b : {0, 1})
            for (BrushFace& face : Brushes()[b].faces) row.change(face);
        EXPECT_EQ(Shown(), row.ofAll);
        Face(0, 0) = before[0].faces[0];
        EXPECT_EQ(Shown(), row.ofSome) << "only the first face differs";
        Brushes() = before;
    }
    for (BrushFace& face : Brushes()[0].faces) face.transparency = 40, face.rotation = 9;
    for (BrushFace& face : Brushes()[1].faces) face.transparency = 30, face.rotation = 8;
    EXPECT_EQ(Shown(), "--?-?-- 0,0 1,1") << "levels above 0, but not the same";
}

TEST_F(PropertyEditsTest, ShowsTheSelectedFacesOfOneBrush) {
    Face(0, 4).selected = true;
    Face(0, 4).smooth = 1;
    EXPECT_EQ(Shown(), "-?----- 0,0 1,1") << "several brushes show all their faces";
    EXPECT_EQ(Names(), "*Multiple Brushes*|");
    Select("100");
    EXPECT_EQ(Shown(), "-*----- 0,0 1,1");
    Brushes()[1].group = "wall";
    Select("010");
    EXPECT_EQ(Shown(), "------- 0,0 1,1") << "the selected face lies in no selected brush";
    EXPECT_EQ(Names(), "Brush-0001|wall");
    Select("111");
    EXPECT_EQ(Names(), "*Multiple Brushes*|*Multiple Groups*");
    Select("000");
    EXPECT_EQ(Shown() + Names(), "------- , ,|");
}

TEST_F(PropertyEditsTest, EachEditWritesOneFieldOfTheTargetFaces) {
    using F = BrushFace;
    struct Row {
        const char* what;
        bool refreshesAll;
        std::function<void()> edit;
        std::function<bool(const F&)> isEdited;
    };
    const Row rows[] = {
        {"invisible", true, [&] { SetInvisible(editor, true); }, [](F f) { return f.invisible; }},
        {"smooth", true, [&] { SetSmooth(editor, true); }, [](F f) { return f.smooth == 1; }},
        {"transparency", true, [&] { SetTransparency(editor, 40); },
         [](F f) { return f.transparency == 40; }},
        {"local", true, [&] { SetLocalCoords(editor, true); }, [](F f) { return f.localCoords; }},
        {"offset X", true, [&] { SetTextureOffset(editor, 0, "0.5"); },
         [](F f) { return f.offsetX == 0.5F && f.offsetY == 0; }},
        {"offset Y", true, [&] { SetTextureOffset(editor, 1, " -.25"); },
         [](F f) { return f.offsetY == -0.25F && f.offsetX == 0; }},
        {"repeat X", true, [&] { SetTextureRepeat(editor, 0, "1e99"); },
         [](F f) { return f.repeatX == 1e9F && f.repeatY == 1; }},
        {"repeat Y", true, [&] { SetTextureRepeat(editor, 1, "none"); },
         [](F f) { return f.repeatY == 0 && f.repeatX == 1; }},
        {"rotation", false, [&] { SetTextureRotation(editor, 33); },
         [](F f) { return f.rotation == 33; }},
        {"flipped", false, [&] { SetTextureFlipped(editor, true); }, [](F f) { return f.flipped; }},
        {"mirrored", false, [&] { SetTextureMirrored(editor, true); },
         [](F f) { return f.mirrored; }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const std::vector<Brush> before = Brushes();
        const auto edited = [&] {
            std::string counts;
            for (const Brush& brush : Brushes())
                counts += std::to_string(
                              std::count_if(brush.faces.begin(), brush.faces.end(), row.isEdited)) +
                          " ";
            return counts;
        };
        host.redraws = 0;
        host.panelRefreshes = host.commandStateRefreshes = 0;
        editor.SceneModified = false;
        Face(1, 2).selected = Face(2, 3).selected = true;
        row.edit();
        EXPECT_EQ(edited(), "0 1 0 ") << "the selected face of a selected brush";
        EXPECT_TRUE(editor.SceneModified);
        EXPECT_EQ(host.redraws, unsigned{row.refreshesAll ? RedrawAll : RedrawPreview});
        EXPECT_EQ(host.panelRefreshes, row.refreshesAll ? 1 : 0);
        EXPECT_EQ(host.commandStateRefreshes, 1) << "the title tells of the change";
        EXPECT_NE(Brushes()[1].revision, before[1].revision);
        ExpectFreshCoordinates(row.what);

        Face(1, 2).selected = false;
        row.edit();
        EXPECT_EQ(edited(), "12 12 0 ") << "all faces of the selected brushes";
        editor.SceneModified = false;
        row.edit();
        EXPECT_FALSE(editor.SceneModified) << "nothing changed";
        Brushes() = before;
    }
    EXPECT_EQ(editor.undo.UndoCount, 0);
}

/// What a step passes over as unchanged it must not pass over once something else is different.
TEST_F(PropertyEditsTest, CoordinatesOfEveryBrushFollowARotation) {
    int degrees = 10;
    const auto turn = [&](const char* what) {
        SetTextureRotation(editor, ++degrees);
        ExpectFreshCoordinates(what);
    };
    turn("first step");
    const std::uint64_t kept = Brushes()[2].revision;
    turn("next step");
    EXPECT_EQ(Brushes()[2].revision, kept) << "nothing of that brush changed";
    Select("001");
    turn("another selection");
    editor.settings.TextureScale = 7;
    turn("another scale");
    Brushes()[0].vertices[0].x -= 1;
    Touch(Brushes()[0]);
    turn("a moved vertex");
    Face(0, 0).texture = 1;  // an entry that the library does not have yet
    Touch(Brushes()[0]);
    turn("a texture that is missing");
    editor.textures.AddTexture("late.bmp", 32, 512);
    turn("a library that has grown");
    Brushes().erase(Brushes().begin());
    turn("a brush fewer");
}

}  // namespace
}  // namespace korvane::test
