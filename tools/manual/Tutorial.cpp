#include "tools/manual/Tutorial.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <cmath>

#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "tools/manual/GeneratedPages.h"
#include "tools/manual/Stage.h"

namespace korvane::manual {
namespace {

/// In a text, {mnuSave} stands for the way to that command, {key: Move: Forward} for its key.
struct Step {
    const char* title;
    const char* text;  ///< HTML
    const char* picture;
    const char* caption;
    void (*play)(Stage&);
};

bool Spans(const Bounds& bounds, const Vec3& min, const Vec3& max) {
    constexpr float kNear = 0.001F;
    const auto near = [](float a, float b) { return std::abs(a - b) < kNear; };
    return near(bounds.min.x, min.x) && near(bounds.min.y, min.y) && near(bounds.min.z, min.z) &&
           near(bounds.max.x, max.x) && near(bounds.max.y, max.y) && near(bounds.max.z, max.z);
}

/// The newest brush is selected alone and fills that room.
void ExpectNewest(Stage& stage, const Vec3& min, const Vec3& max) {
    const Scene& scene = stage.Session().scene;
    const bool made = !scene.brushes.empty() && Spans(BrushBounds(scene.brushes.back()), min, max);
    stage.Expect(made, "the new brush has the size that the text tells");
    stage.Expect(CountSelectedBrushes(scene) == 1 && scene.brushes.back().selected,
                 "the new brush is selected alone");
}

void SeeTheWindow(Stage& stage) {
    stage.Expect(stage.Session().scene.brushes.empty(), "the object is empty");
    stage.Expect(stage.Window().windowTitle() == "Korvane - New_Object", "it has no name");
    stage.Picture("tutorial-window", {{stage.Middle("pbOpenGL"), "1"},
                                      {stage.Middle("pbView0"), "2"},
                                      {stage.Middle("pbView1"), "3"},
                                      {stage.Middle("pbView2"), "4"},
                                      {stage.Middle("pbDepth"), "5"},
                                      {stage.Middle("conProps"), "6"},
                                      {stage.Middle("ucTextureList"), "7"},
                                      {stage.Middle("StatusBar"), "8"}});
}

void MakeRoom(Stage& stage) {
    stage.TurnWheel(stage.InView(TopView, {}), -4);
    for (const ViewState& view : stage.Session().views)
        stage.Expect(view.zoom < kDefaultZoom, "all flat views zoom out");
    const float before = stage.Session().camera.z;
    stage.HoldKey(Qt::Key_S, 6);
    stage.Expect(stage.Session().camera.z > before, "the camera flies backward");
}

void ChooseBricks(Stage& stage) {
    stage.Click(stage.OnTexture("Brick.jpg"));
    const TextureLibrary& library = stage.Session().textures;
    stage.Expect(library.TextureName(library.Selected()) == "Brick", "the bricks are chosen");
    stage.Picture("tutorial-bricks", *stage.Find("ucTextureList"),
                  {{stage.OnTexture("Brick.jpg"), "1"}});
}

void DrawWalls(Stage& stage) {
    const Scene& scene = stage.Session().scene;
    stage.Expect(scene.createShape == Box && scene.sideCount == 4, "a start draws boxes");
    const Place from = stage.InView(TopView, {-1, 0, -1}), to = stage.InView(TopView, {1, 0, 1});
    stage.Drag(from, to, [&] {
        stage.Picture("tutorial-drag", *stage.Find("pbView0"), {{to, {}, from}});
    });
    ExpectNewest(stage, {-1, 0, -1}, {1, 2, 1});
    stage.Expect(stage.Window().windowTitle() == "Korvane - New_Object*", "it has changes");
}

void SeeWalls(Stage& stage) {
    stage.Picture("tutorial-walls");
    stage.Click(stage.InView(TopView, {2.4F, 0, 2}), Qt::RightButton);
    stage.Expect(CountSelectedBrushes(stage.Session().scene) == 0, "nothing is selected");
}

void SetDepth(Stage& stage) {
    const Place high = stage.OnGauge(2), low = stage.OnGauge(0);
    const Place newHigh = stage.OnGauge(3), newLow = stage.OnGauge(2);
    stage.Drag(high, newHigh);
    stage.Drag(low, newLow);
    const DepthRange& depth = stage.Session().depthRange;
    stage.Expect(depth.HI == 3 && depth.LO == 2, "the marks stand at 3 and 2");
    const QPoint beside(12, 0);
    stage.Picture(
        "tutorial-depth", *stage.Find("pbDepth"),
        {{newHigh, {}, high},
         {{newLow.control, newLow.at + beside}, {}, Place{low.control, low.at + beside}}});
}

void DrawRoof(Stage& stage) {
    stage.Choose("mnuCreateCone");
    auto* filter = stage.Find<QLineEdit>("txtTextureFilter");
    stage.Type(filter, "roof");
    stage.Click(stage.OnTexture("Roof_Tiles.gif"));
    stage.Drag(stage.InView(TopView, {-1.3F, 0, -1.3F}), stage.InView(TopView, {1.3F, 0, 1.3F}));
    ExpectNewest(stage, {-1.3F, 2, -1.3F}, {1.3F, 3, 1.3F});
    stage.Picture("tutorial-roof");
}

void DrawDoor(Stage& stage) {
    stage.Click(stage.InView(TopView, {2.4F, 0, 2}), Qt::RightButton);
    stage.Drag(stage.OnGauge(2), stage.OnGauge(1));
    stage.Drag(stage.OnGauge(3), stage.OnGauge(1.1F));
    stage.Choose("mnuCreateBox");
    stage.Type(stage.Find("txtTextureFilter"), "door");
    stage.Click(stage.OnTexture("Door.tga"));
    stage.Type(stage.Find("txtTextureFilter"), "");
    stage.Drag(stage.InView(FrontView, {-0.4F, 0, 0}), stage.InView(FrontView, {0.4F, 1.4F, 0}));
    ExpectNewest(stage, {-0.4F, 0, 1}, {0.4F, 1.4F, 1.1F});
    QWidget* local = stage.Find("chkTexLocal");
    stage.Click({local, {8, local->height() / 2}});
    for (const BrushFace& face : stage.Session().scene.brushes.back().faces)
        stage.Expect(bool{face.localCoords}, "the picture is fitted to the door");
    stage.Picture("tutorial-door", {{{local, {local->width() - 12, local->height() / 2}}, "1"}});
}

void FlyAround(Stage& stage) {
    stage.Click(stage.InView(TopView, {2.4F, 0, 2}), Qt::RightButton);
    const Camera before = stage.Session().camera;
    stage.Choose("mnuView3D");
    stage.HoldKey(Qt::Key_D, 12);
    stage.HoldKey(Qt::Key_Left, 22);
    stage.HoldKey(Qt::Key_S, 5);
    const Camera& now = stage.Session().camera;
    stage.Expect(now.x > before.x && now.z > before.z && now.yaw != before.yaw, "the camera flies");
    stage.Picture("tutorial-fly");
    stage.Choose("mnuView4Way");
}

void UndoAndRedo(Stage& stage) {
    stage.Choose("mnuUndo");
    stage.Expect(stage.Session().scene.brushCount() == 2, "the door is gone");
    stage.Choose("mnuRedo");
    stage.Expect(stage.Session().scene.brushCount() == 3, "the door is back");
}

void SaveIt(Stage& stage) {
    stage.Choose("mnuSave", {stage.NameFile("myhouse", "tutorial-save")});
    stage.Expect(QFile::exists(stage.ObjectPath("myhouse.kvobject")), "the object is stored");
    stage.Expect(stage.Window().windowTitle() == "Korvane - myhouse", "the title tells its name");
}

void ExportIt(Stage& stage) {
    stage.Choose("mnuExport3DS", {stage.PressButton("No", "tutorial-export"), [](QWidget& dialog) {
                                      QMetaObject::invokeMethod(&dialog, "accept");
                                  }});
    stage.Expect(QFileInfo(stage.ObjectPath("myhouse.3ds")).size() > 0, "the mesh is stored");
}

constexpr Step kSteps[] = {
    {"Look at the window",
     R"(<p>Start Korvane. The window shows an empty object in four panes: the 3D preview (1) and the flat views
Top (2), Left (3) and Front (4), which look along the three axes. At the right stands the depth gauge (5), at the
left the properties (6) of what is selected. The textures (7) lie at the bottom, and the status bar (8) tells where
the mouse is. If there is something in the window already, choose {mnuNew}.</p>)",
     "tutorial-window", "The window at the start", SeeTheWindow},
    {"Make room",
     R"(<p>Put the mouse in the middle of the view Top, where the darkest lines cross, and turn the wheel four notches
towards you. All flat views show more of the world now. Then hold {key: Move: Backward} for a moment: the camera of
the preview flies backward.</p>)",
     nullptr, nullptr, MakeRoom},
    {"Choose a texture",
     R"(<p>Click <b>Brick</b> in the list at the bottom. What you draw from now on is made of bricks.</p>)",
     "tutorial-bricks", "The chosen texture has a frame", ChooseBricks},
    {"Draw the walls",
     R"(<p>Move the mouse in Top until the status bar shows <b>X:&nbsp;-1.00</b> and <b>Z:&nbsp;-1.00</b>. Press the left
button there, drag to <b>X:&nbsp;1.00</b> and <b>Z:&nbsp;1.00</b>, and let go. While you drag, the size and the two corners
stand beside the rectangle.</p>)",
     "tutorial-drag", "Dragging out the walls in the view Top", DrawWalls},
    {"See what you made",
     R"(<p>There is a box, 2 units wide, deep and high. Top gave its width and its depth. Its height came from the depth
gauge, whose marks HI and LO stand at 2 and 0. It is selected: red in the flat views, tinted in the preview.</p>
<p>Now click with the right button beside it in Top. Nothing is selected any more. That matters: with something
selected, a drag moves it, and only with nothing selected does a drag draw.</p>)",
     "tutorial-walls", "The box, still selected", SeeWalls},
    {"Set the depth for the roof",
     R"(<p>The roof shall reach from the height 2 to the height 3. In the depth gauge, press the left button on the
upper mark, HI, and drag it up until the status bar shows <b>HI:&nbsp;3.00</b>. Then drag the lower mark up until it shows
<b>LO:&nbsp;2.00</b>.</p>)",
     "tutorial-depth", "Both marks go up", SetDepth},
    {"Draw the roof",
     R"(<p>Choose {mnuCreateCone}: with 4 sides a cone is a pyramid. Type <code>roof</code> into the box below the
textures and press Enter; only textures with that in their name are left. Click <b>Roof_Tiles</b>. Then drag in Top
from <b>X:&nbsp;-1.30</b>, <b>Z:&nbsp;-1.30</b> to <b>X:&nbsp;1.30</b>, <b>Z:&nbsp;1.30</b>.</p>)",
     "tutorial-roof", "The roof lies on the walls", DrawRoof},
    {"Add a door",
     R"(<p>A door is a thin board before the front wall, and is drawn in the view Front, where the depth gauge stands for
Z. Click with the right button in Top to unselect the roof. Drag the mark LO down to <b>LO:&nbsp;1.00</b>, then HI to
<b>HI:&nbsp;1.10</b>. Choose {mnuCreateBox}. Type <code>door</code> below the textures, press Enter and click
<b>Door</b>; then empty the box again and press Enter. Drag in Front from <b>X:&nbsp;-0.40</b>, <b>Y:&nbsp;0.00</b> to
<b>X:&nbsp;0.40</b>, <b>Y:&nbsp;1.40</b>.</p>
<p>The picture of the door does not fit the board yet, because textures are laid out over the whole world. Check
<b class="ui">Local Coordinates</b> (1) in the properties: now it is stretched over the board.</p>)",
     "tutorial-door", "The door with its texture fitted", DrawDoor},
    {"Fly around it",
     R"(<p>Click with the right button in Top once more. Choose {mnuView3D}, or press {key: View: 3D}: the preview takes
all the room. Hold {key: Move: Strafe Right} for a moment to fly to the right, then {key: Turn: Left} to turn back to
the house, and {key: Move: Backward} to see more of it. {key: Move: Forward} and {key: Move: Strafe Left} fly forward
and to the left, {key: Move: Upwards} and {key: Move: Downwards} up and down. With {key: Move: Slower} held you fly slowly.
When you have seen enough, choose {mnuView4Way} or press {key: View: 4-Way Split}.</p>)",
     "tutorial-fly", "The house from the right", FlyAround},
    {"Change your mind",
     R"(<p>Choose {mnuUndo}: the door is gone. Choose {mnuRedo}: it is back. 50 steps can be taken back.</p>)",
     nullptr, nullptr, UndoAndRedo},
    {"Save it",
     R"(<p>Choose {mnuSave}. A new object has no name yet: type <code>myhouse</code> and press Enter. The
<b>*</b> in the title, which stands for unsaved changes, disappears. The file is called
<code>myhouse.kvobject</code>. (The dialog looks as your desktop likes it.)</p>)",
     "tutorial-save", "Giving the object a name", SaveIt},
    {"Export it",
     R"(<p>Other programs read 3DS meshes. Choose {mnuExport3DS}. The question about texture names is for one program
only: press <b class="ui">No</b>. The name <code>myhouse.3ds</code> is proposed already; press Enter. Beside your object
now lies <code>myhouse.3ds</code>, a mesh that other 3D programs open. It names the textures but does not hold them: put
<code>Brick.jpg</code>, <code>Roof_Tiles.gif</code> and <code>Door.tga</code> from the folder
<a href="files.htm#folders">ObjTextures</a> beside it. {mnuExportGLB} gives one file that holds them, too.</p>)",
     "tutorial-export", "The question before the export", ExportIt},
};

QString Expanded(QString text) {
    static const QRegularExpression slot("\\{(mnu\\w+|key: [^}]+)\\}");
    for (auto match = slot.match(text); match.hasMatch(); match = slot.match(text)) {
        const QString name = match.captured(1);
        const QString shown =
            name.startsWith("key: ") ? KeyOf(name.mid(5)) : MenuPath(name.toUtf8().constData());
        text.replace(match.capturedStart(), match.capturedLength(), shown);
    }
    return text;
}

}  // namespace

void PlayTutorial(Stage& stage) {
    for (const Step& step : kSteps) step.play(stage);
}

QString TutorialPage() {
    QString body =
        "<p>In ten minutes from the empty window to a small house in a file that other programs "
        "open. All numbers are units of the grid; you need not hit them exactly.</p>\n";
    int number = 0;
    for (const Step& step : kSteps) {
        body += QString("<h2 id=\"step%1\">%1. %2</h2>\n").arg(++number).arg(step.title);
        body += Expanded(step.text) + "\n";
        if (step.picture == nullptr) continue;
        body += QString(
                    "<figure><img src=\"%1.png\" alt=\"%2\">\n<figcaption>%2</figcaption>"
                    "</figure>\n")
                    .arg(step.picture, step.caption);
    }
    body +=
        "<h2 id=\"next\">What next</h2>\n<ul>\n"
        "<li><a href=\"drawing.htm\">Drawing and selecting</a> tells of the other shapes, and how "
        "to take hold of edges and corners.</li>\n"
        "<li><a href=\"editing.htm#ring\">A ring of columns</a> needs only one column.</li>\n"
        "<li><b class=\"ui\">File &rarr; Open Object..</b> opens the three sample objects, which "
        "lie in the folder <a href=\"files.htm#folders\">examples</a>.</li>\n</ul>\n";
    return Page("tutorial.htm", "Your first object", body);
}

}  // namespace korvane::manual
