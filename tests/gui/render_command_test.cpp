// korvane-cli render, run without a display, against the panes of the window.
#include <QProcess>

#include "GuiFixture.h"
#include "editor/mFileOpenSave.h"
#include "scene/mSelection.h"
#include "views/core/mFraming.h"
#include "views/ui/ucView.h"

namespace korvane::test {
namespace {

class RenderCommandTest : public GuiTest {
  protected:
    void SetUp() override {
        GuiTest::SetUp();
        Session().textures.SelectTexture(1);
        DrawBox();
        Session().scene.brushes[0].faces[0].texture = 2;
        Session().scene.brushes[0].faces[1].invisible = true;
        Touch(Session().scene.brushes[0]);
        UnselectAllBrushes(Session().scene);
        ASSERT_TRUE(SaveObject(Session(), PathOf("scene.kvobject")));
    }

    /// The picture that the program draws of the saved object.
    QImage Rendered(const QSize& size, const QStringList& options) {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        program.setProcessEnvironment(environment);
        const QString picture = folder.filePath("picture.png");
        QFile::remove(picture);
        program.start(QCoreApplication::applicationDirPath() + "/korvane-cli",
                      QStringList{"render", folder.filePath("scene.kvobject"), "-o", picture,
                                  "--textures", folder.filePath("ObjTextures"), "--size",
                                  QString("%1x%2").arg(size.width()).arg(size.height())} +
                          options);
        EXPECT_TRUE(program.waitForFinished(60000));
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        return QImage(picture).convertToFormat(QImage::Format_RGB32);
    }
};

TEST_F(RenderCommandTest, DrawsThePreviewAsItsPaneShowsIt) {
    Session().camera = {1.5F, 3, 4, -30, 15, 0};
    RedrawAllViews(Session());
    QTest::qWait(50);
    const QImage& shown = window->Context().frame;
    EXPECT_EQ(Rendered(shown.size(), {"--camera", "1.5,3,4,-30,15"}), shown);
    EXPECT_NE(Rendered(shown.size(), {"--camera", "1.5,3,4,-30,16"}), shown);
}

TEST_F(RenderCommandTest, DrawsTheViewsAsTheirPanesShowThem) {
    const char* names[] = {"top", "left", "front"};
    for (int view = 0; view < kViewCount; ++view) {
        FrameBounds(Session().views[view], view, SceneBounds(Session().scene));
        RedrawAllViews(Session());
        QTest::qWait(50);
        const auto* pane = static_cast<ucView*>(Find(QString("pbView%1").arg(view)));
        const QImage& shown = pane->Picture();
        EXPECT_EQ(Rendered(shown.size(), {"--view", names[view]}), shown) << names[view];
    }
}

}  // namespace
}  // namespace korvane::test
