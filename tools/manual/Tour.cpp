#include "tools/manual/Tour.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "tools/manual/Stage.h"

namespace korvane::manual {
namespace {

/// Beside the buttons of a bar.
Place RightEndOf(Stage& stage, const QString& bar) {
    QWidget* found = stage.Find(bar);
    return {found, {found->width() - 40, found->height() / 2}};
}

/// Draws a brush of the shape that is chosen, over that depth, and unselects it.
void DrawFromTop(Stage& stage, const Vec3& min, const Vec3& max) {
    stage.Session().depthRange = {max.y, min.y};
    stage.Drag(stage.InView(TopView, min), stage.InView(TopView, max));
    stage.Choose("mnuUnSelect");
}

void CtrlClickTop(Stage& stage, const Vec3& at) {
    stage.Click(stage.InView(TopView, at), Qt::LeftButton, Qt::ControlModifier);
}

void ChooseTexture(Stage& stage, const char* name) {
    stage.Click(stage.OnTexture(name));
}

// --- the window
// -----------------------------------------------------------------------------------

void ShowWindow(Stage& stage) {
    stage.StartOver();
    stage.OpenExample("castle_tower.kvobject");
    stage.TurnWheel(stage.InView(TopView, {}), -3);
    stage.Picture("window", {{RightEndOf(stage, "ToolBar"), "1"},
                             {RightEndOf(stage, "EditBar"), "2"},
                             {stage.Middle("pbOpenGL"), "3"},
                             {stage.Middle("pbView0"), "4"},
                             {stage.Middle("pbView1"), "5"},
                             {stage.Middle("pbView2"), "6"},
                             {stage.Middle("pbDepth"), "7"},
                             {stage.Middle("conProps"), "8"},
                             {stage.Middle("ucTextureList"), "9"},
                             {stage.Middle("StatusBar"), "10"}});
    stage.Choose("mnuViewFront");
    stage.Picture("layout-front");
    stage.Choose("mnuView4Way");
}

/// Both bars lie above the panes; the picture is cut out of the window.
void ShowBars(Stage& stage) {
    stage.Picture("bars-tool", *stage.Find("ToolBar"));
    stage.Picture("bars-edit", *stage.Find("EditBar"));
}

// --- drawing and selecting
// ------------------------------------------------------------------------

void ShowShapes(Stage& stage) {
    stage.StartOver();
    ChooseTexture(stage, "Brick.jpg");
    stage.Choose("mnuCreateBox");
    stage.Choose("mnuSize4");
    DrawFromTop(stage, {-2.3F, 0, -0.5F}, {-1.3F, 1.4F, 0.5F});
    ChooseTexture(stage, "Planks.jpg");
    stage.Choose("mnuSize8");
    DrawFromTop(stage, {-1, 0, -0.5F}, {0, 1.4F, 0.5F});
    stage.Choose("mnuCreateCone");
    stage.Choose("mnuSize6");
    DrawFromTop(stage, {0.3F, 0, -0.5F}, {1.3F, 1.4F, 0.5F});
    stage.Choose("mnuCreateSphere");
    stage.Choose("mnuSize8");
    DrawFromTop(stage, {1.5F, 0, -0.5F}, {2.5F, 1, 0.5F});
    stage.Expect(stage.Session().scene.brushCount() == 4, "four shapes are drawn");
    stage.Choose("mnuView3D");
    stage.Picture("shapes", *stage.Find("pbOpenGL"));
    stage.Choose("mnuView4Way");
}

/// Corners pulled out of a box one after another.
void ShowVertices(Stage& stage) {
    stage.StartOver();
    ChooseTexture(stage, "Stone.jpg");
    DrawFromTop(stage, {-1, 0, -1}, {1, 1.5F, 1});
    CtrlClickTop(stage, {0, 0, 0});
    stage.Choose("mnuModeEdge");
    stage.Picture("edges", *stage.Find("pbView2"));
    stage.Choose("mnuModeVertex");
    const Place corner = stage.InView(FrontView, {1, 1.5F, 0});
    const Place pulled = stage.InView(FrontView, {0.4F, 1.5F, 0});
    stage.Drag(corner, pulled);
    stage.Expect(BrushBounds(stage.Session().scene.brushes[0]).max.x == 1, "its base stays");
    stage.Picture("vertices", *stage.Find("pbView2"), {{pulled, {}, corner}});
    stage.Choose("mnuModeBrush");
}

void ShowFaces(Stage& stage) {
    stage.StartOver();
    ChooseTexture(stage, "Plaster.bmp");
    DrawFromTop(stage, {-1, 0, -1}, {1, 1.5F, 1});
    CtrlClickTop(stage, {0, 0, 0});
    stage.Choose("mnuModeFace");
    stage.Click(stage.Middle("pbOpenGL"), Qt::LeftButton, Qt::ControlModifier);
    stage.Expect(CountSelectedFaces(stage.Session().scene) == 2, "one side is selected");
    stage.Picture("faces", *stage.Find("pbOpenGL"));
    ChooseTexture(stage, "Planks.jpg");
    const QSize size = stage.Window().size();
    stage.Window().resize(size.width(), 720);  // the panel is as high as the window lets it be
    stage.Picture("properties", *stage.Find("conProps"));
    stage.Window().resize(size);
    stage.Choose("mnuModeBrush");
}

// --- editing
// --------------------------------------------------------------------------------------

void ShowRing(Stage& stage) {
    stage.StartOver();
    stage.TurnWheel(stage.InView(TopView, {}), -3);
    ChooseTexture(stage, "Marble_White.jpe");
    DrawFromTop(stage, {1.6F, 0, -0.2F}, {2, 1.6F, 0.2F});
    CtrlClickTop(stage, {1.8F, 0, 0});
    stage.Choose("mnuMultiply");
    QWidget* dialog = stage.Find("frmMultiply");
    stage.Drag(stage.InView(TopView, stage.Session().scene.marker), stage.InView(TopView, {}));
    stage.Type(stage.Find("txtCount", dialog), "7", false);
    stage.Type(stage.Find("txtRotate_1", dialog), "45", false);
    stage.Picture("dialog-multiply", *dialog);
    dialog->move(stage.Window().frameGeometry().topLeft() + QPoint(20, 420));
    QTest::mouseClick(stage.Find("btnOkay", dialog), Qt::LeftButton);
    stage.Expect(stage.Session().scene.brushCount() == 8, "the ring has eight columns");
    stage.Choose("mnuUnSelect");
    stage.Picture("ring");
}

void ShowFreeRotate(Stage& stage) {
    stage.StartOver();
    ChooseTexture(stage, "Planks.jpg");
    DrawFromTop(stage, {-1, 0, -0.5F}, {1, 1, 0.5F});
    CtrlClickTop(stage, {0, 0, 0});
    stage.Choose("mnuFreeRotate");
    QWidget* dialog = stage.Find("frmFreeRotate");
    stage.Type(stage.Find("txtRotate_2", dialog), "30", false);
    stage.Picture("dialog-free-rotate", *dialog);
    stage.Drag(stage.InView(FrontView, stage.Session().scene.marker),
               stage.InView(FrontView, {-1, 0, 0}));
    stage.Picture("marker", *stage.Find("pbView2"));
    QTest::mouseClick(stage.Find("btnCancel", dialog), Qt::LeftButton);
}

// --- textures
// -------------------------------------------------------------------------------------

void ShowTextures(Stage& stage) {
    stage.StartOver();
    stage.Picture("textures", *stage.Find("ucTextureList"));
    stage.Type(stage.Find("txtTextureFilter"), "marble");
    stage.Picture("textures-filtered", *stage.Find("ucTextureList"));
    stage.Type(stage.Find("txtTextureFilter"), "");
}

void ShowPreview(Stage& stage) {
    stage.StartOver();
    stage.OpenExample("house.kvobject");
    stage.Choose("mnuView3D");
    stage.Picture("preview", *stage.Find("pbOpenGL"));
    stage.Choose("mnuView4Way");
}

// --- dialogs
// --------------------------------------------------------------------------------------

void ShowPreferences(QWidget& dialog, Stage& stage) {
    auto* pages = stage.Find<QTabWidget>("TabHeader", &dialog);
    for (const char* name : {"general", "colors", "keys", "warnings"}) {
        stage.Picture(QString("dialog-preferences-") + name, dialog);
        pages->setCurrentIndex(pages->currentIndex() + 1);
    }
    stage.PressButton("Cancel")(dialog);
}

void ShowSourceCode(QWidget& dialog, Stage& stage) {
    auto* pages = stage.Find<QTabBar>("tabCodeHeader", &dialog);
    stage.PressButton("Default C++ Code")(dialog);
    for (const char* name : {"template", "preview", "reference"}) {
        stage.Picture(QString("dialog-source-code-") + name, dialog);
        pages->setCurrentIndex(pages->currentIndex() + 1);
    }
    stage.PressButton("Cancel")(dialog);
}

void ShowDialogs(Stage& stage) {
    stage.StartOver();
    stage.OpenExample("castle_tower.kvobject");
    stage.Choose("mnuSizeArbitrary", {stage.PressButton("Cancel", "dialog-sides")});
    stage.Choose("mnuSelect", {[&](QWidget& dialog) {
                     stage.Find<QTabWidget>("tabLists", &dialog)->setCurrentIndex(0);
                     stage.PressButton("Cancel", "dialog-select")(dialog);
                 }});
    stage.Choose("mnuPreferences", {[&](QWidget& dialog) { ShowPreferences(dialog, stage); }});
    stage.Choose("mnuExportSourceCode", {[&](QWidget& dialog) { ShowSourceCode(dialog, stage); }});
    stage.Choose("mnuStatistics", {stage.PressButton("Okay", "dialog-statistics")});
    stage.Expect(!stage.Session().SceneModified, "dialogs that were left change nothing");
    stage.Choose("mnuOptimize", {stage.PressButton("Cancel", "dialog-optimize")});
}

/// A name that is typed brings the picture of the object.
void ShowOpen(Stage& stage) {
    stage.StartOver();
    stage.Choose("mnuOpen", {stage.NameFile("chessboard.kvobject", "dialog-open")});
    stage.Expect(stage.Window().windowTitle() == "Korvane - chessboard", "the board is open");
}

/// Two boxes that share a wall: what the optimizer hides, and the question before a deletion.
void ShowOptimizer(Stage& stage) {
    stage.StartOver();
    ChooseTexture(stage, "Cobble.jpeg");
    DrawFromTop(stage, {-1, 0, -0.5F}, {0, 1, 0.5F});
    DrawFromTop(stage, {0, 0, -0.5F}, {1, 1, 0.5F});
    stage.Choose("mnuOptimize", {[&](QWidget& dialog) {
                                     stage.Find<QCheckBox>("chkCovered", &dialog)->click();
                                     stage.PressButton("Start")(dialog);
                                 },
                                 stage.PressButton("OK", "dialog-optimized")});
    CtrlClickTop(stage, {-0.5F, 0, 0});
    stage.Choose("mnuDelete", {stage.PressButton("No", "question-delete")});
}

constexpr void (*kStops[])(Stage&) = {
    ShowWindow,     ShowBars,     ShowShapes,  ShowVertices, ShowFaces, ShowRing,
    ShowFreeRotate, ShowTextures, ShowPreview, ShowDialogs,  ShowOpen,  ShowOptimizer,
};

}  // namespace

void PlayTour(Stage& stage) {
    for (const auto stop : kStops) stop(stage);
}

}  // namespace korvane::manual
