// What makes the window handy: what it tells beside the work, and files that come from outside.
#include <gmock/gmock.h>

#include <QDragEnterEvent>
#include <QMimeData>

#include "EditingFixture.h"
#include "app/mObjectPicture.h"
#include "editor/mFileOpenSave.h"
#include "textures/ui/ucTextureList.h"
#include "views/ui/ucPreview.h"
#include "widgets/ucStatusBar.h"

namespace korvane::test {
namespace {

class ConveniencesTest : public EditingTest {
  protected:
    std::string Status(int panel) {
        QTest::qWait(60);
        return Find<ucStatusBar>("StatusBar")->Text(panel).toStdString();
    }

    /// The session's object in a file of the folder.
    std::string Saved(const char* name) {
        const std::string path = PathOf(name);
        EXPECT_TRUE(SaveObject(Session(), path));
        return path;
    }

    /// Whether the window takes what is dropped; the drop follows.
    bool Drop(const QList<QUrl>& urls, Qt::KeyboardModifiers keys = {}) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({400, 400}, Qt::CopyAction, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(window.get(), &enter);
        QDropEvent drop({400, 400}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(window.get(), &drop);
        EXPECT_NE(drop.dropAction(), Qt::MoveAction) << "the file stays where it is";
        QTest::qWait(20);
        return enter.isAccepted();
    }
};

TEST_F(ConveniencesTest, TheMenuTellsWhatUndoWouldTakeBack) {
    X({"key", "alt+e"});
    EXPECT_EQ(Status(0), "Undo: Create Brush");
    X({"key", "Return", "key", "alt+e", "key", "Down"});
    EXPECT_EQ(Status(0), "Redo: Create Brush");
    X({"key", "Return"});
    EXPECT_EQ(Session().scene.brushCount(), 2);
}

TEST_F(ConveniencesTest, PointerAndStatusBarFollowKeysAndSelection) {
    QWidget* top = View(TopView);
    const auto shape = [&] { return top->cursor().shape(); };
    QCursor::setPos(top->mapToGlobal(At(TopView, {-1.5F, 0, 0})));
    QTest::qWait(60);
    EXPECT_EQ(shape(), Qt::CrossCursor);
    X({"keydown", "Control_L"});
    EXPECT_EQ(shape(), Qt::PointingHandCursor);
    X({"click", "1", "keyup", "Control_L"});
    EXPECT_EQ(Selected(), "*-");
    EXPECT_EQ(Status(5), "1.0 x 2.0 x 2.0 at -1.5, 1.0, 0.0");
    EXPECT_EQ(shape(), Qt::SizeAllCursor);
    X({"key", "f"});
    EXPECT_EQ(shape(), Qt::ArrowCursor);
    const std::int32_t pan = Session().views[TopView].panX;
    X({"mousedown", "2", "mousemove_relative", "25", "0"});
    EXPECT_EQ(shape(), Qt::ClosedHandCursor);
    X({"mouseup", "2"});
    EXPECT_EQ(Session().views[TopView].panX, pan + 25);
    EXPECT_EQ(Selected(), "*-");
    X({"click", "4"});
    EXPECT_EQ(Session().views[TopView].zoom, 96);
}

TEST_F(ConveniencesTest, ADroppedObjectIsOpenedAndWithCtrlMerged) {
    const QUrl file = QUrl::fromLocalFile(QString::fromStdString(Saved("house.kvobject")));
    EXPECT_FALSE(Drop({QUrl::fromLocalFile(folder.filePath("ObjTextures/flat.bmp"))}));
    EXPECT_FALSE(Drop({file, file}));
    EXPECT_TRUE(Drop({file}, Qt::ControlModifier));
    EXPECT_EQ(Session().scene.brushCount(), 4);
    prompts.answers = {Answer::Yes};
    EXPECT_TRUE(Drop({file}, Qt::ShiftModifier));
    EXPECT_EQ(Session().scene.brushCount(), 2);
    EXPECT_EQ(prompts.messages.size(), 1U) << "merging asks nothing";
    EXPECT_EQ(Title(), "Korvane - house");
}

TEST_F(ConveniencesTest, APictureOfAFileLeavesThePreviewAsItWas) {
    const std::string path = Saved("house.kvobject");
    QFile(folder.filePath("bad.kvobject")).open(QIODevice::WriteOnly);
    Choose("mnuNew");
    const QImage before = Shown(Find("pbOpenGL"));
    ObjectPainter painter(Session(), window->Context(), window->Textures());
    const QImage picture = painter.Paint(path, {240, 180});
    ASSERT_EQ(picture.size(), QSize(240, 180));
    EXPECT_NE(picture.pixel(120, 90), picture.pixel(0, 0)) << "it stands in the middle";
    EXPECT_TRUE(painter.Paint(PathOf("bad.kvobject"), {240, 180}).isNull());
    EXPECT_EQ(Session().scene.brushCount(), 0);
    Find("pbOpenGL")->update();
    EXPECT_EQ(Shown(Find("pbOpenGL")), before);
    Find<ucPreview>("pbOpenGL")->MarkDirty();
    EXPECT_EQ(Shown(Find("pbOpenGL")), before);
}

TEST_F(ConveniencesTest, TheTextureReadOutLeadsToTheBrowser) {
    auto* readOut = Find<QLineEdit>("txtFaceTexture");
    auto* browser = Find<ucTextureList>("ucTextureList");
    ClickTop({-1.5F, 0, 0}, Qt::ControlModifier);
    EXPECT_EQ(readOut->text(), "NO Material");
    emit browser->Click((browser->SelectTexture(2), 2));
    EXPECT_EQ(readOut->text(), "green");
    browser->SelectTexture(0);
    Find<QLineEdit>("txtTextureFilter")->setText("flat");
    const int undoSteps = Session().undo.UndoCount;
    QTest::mouseDClick(readOut, Qt::LeftButton);
    EXPECT_EQ(Session().textures.Selected(), 2);
    EXPECT_EQ(Find<QLineEdit>("txtTextureFilter")->text(), "");
    EXPECT_EQ(Session().undo.UndoCount, undoSteps) << "nothing was assigned";
    browser->SelectTexture(0);
    QTest::keyClick(readOut, Qt::Key_Return);
    EXPECT_EQ(Session().textures.Selected(), 2) << "by the keyboard as well";
    ClickTop({1.5F, 0, 0}, Qt::ControlModifier);
    EXPECT_EQ(readOut->text(), "*Multiple Textures*");
}

}  // namespace
}  // namespace korvane::test
