// The dialog for source code: its pages, buttons and what comes out.
#include <QClipboard>
#include <QDialog>
#include <QFontInfo>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <functional>

#include "GuiFixture.h"
#include "export/mSourceCode.h"

namespace korvane::test {
namespace {

class ExportDialogTest : public GuiTest {
  protected:
    /// Opens the modal dialog from the menu, acts on it and closes it.
    void InDialog(const std::function<void()>& act) {
        bool ran = false;
        QTimer::singleShot(0, window.get(), [&] {
            dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act();
            dialog->reject();
            ran = true;
        });
        Choose("mnuExportSourceCode");
        EXPECT_TRUE(ran);
    }

    QPlainTextEdit* Text(const char* name) { return dialog->findChild<QPlainTextEdit*>(name); }
    QString Shown(const char* name) { return Text(name)->toPlainText(); }

    void Press(int button) {
        QTest::mouseClick(dialog->findChild<QPushButton*>(QString("btnCode_%1").arg(button)),
                          Qt::LeftButton);
    }

    void ShowPage(int page) { Tabs()->setCurrentIndex(page); }
    QTabBar* Tabs() { return dialog->findChild<QTabBar*>("tabCodeHeader"); }

    /// The page that is shown, and no other.
    int Page() {
        int shown = -1;
        for (int i = 0; i < 3; ++i) {
            if (!dialog->findChild<QWidget*>(QString("tabCode_%1").arg(i))->isVisible()) continue;
            EXPECT_EQ(shown, -1);
            shown = i;
        }
        return shown;
    }

    QDialog* dialog = nullptr;
};

TEST_F(ExportDialogTest, ButtonsFillTheTextsAndThePreviewFollows) {
    InDialog([&] {
        EXPECT_EQ(dialog->windowTitle(), "Export Source Code...");
        const char* captions[] = {"OK",   "Cancel",          "Clear",           "Open",
                                  "Save", "Default VB Code", "Default C++ Code"};
        for (int i = 0; i < 7; ++i) {
            EXPECT_EQ(dialog->findChild<QPushButton*>(QString("btnCode_%1").arg(i))->text(),
                      captions[i]);
        }
        EXPECT_EQ(Shown("txtHead") + Shown("txtBody") + Shown("txtFoot"), "");
        Press(6);
        EXPECT_EQ(Shown("txtFoot"), "    glEnd();\n}\n");
        EXPECT_EQ(Page(), 0);
        ShowPage(1);
        EXPECT_EQ(Page(), 1);
        EXPECT_TRUE(QFontInfo(Text("txtPreview")->font()).fixedPitch());
        EXPECT_EQ(Shown("txtPreview").toStdString() + "\n",
                  QString::fromStdString(BuildPreview(DefaultCppCode()) + "\n")
                      .replace("\r\n", "\n")
                      .toStdString());
        Press(5);
        EXPECT_TRUE(Shown("txtPreview").startsWith("'Korvane v"));
        Press(2);
        EXPECT_EQ(Shown("txtPreview") + Shown("txtBody"), "");
    });
}

TEST_F(ExportDialogTest, DoubleClickOrEnterOnATagInsertsIt) {
    InDialog([&] {
        QStringList tags;
        for (int i = 0; auto* label = dialog->findChild<QLabel*>(QString("lblCodeTag_%1").arg(i));
             ++i)
            tags.append(label->text());
        EXPECT_EQ(tags.size(), 23);
        EXPECT_EQ(QSet<QString>(tags.begin(), tags.end()).size(), 23);
        Text("txtBody")->setPlainText("ab");
        Text("txtBody")->moveCursor(QTextCursor::Right);
        ShowPage(2);
        EXPECT_EQ(Page(), 2);
        QTest::mouseClick(dialog->findChild<QLabel*>("lblCodeTag_4"), Qt::LeftButton);
        EXPECT_EQ(Shown("txtBody"), "ab") << "one click does nothing";
        QTest::mouseDClick(dialog->findChild<QLabel*>("lblCodeTag_4"), Qt::LeftButton);
        EXPECT_EQ(Shown("txtBody"), "a" + tags[4] + "b");
        EXPECT_EQ(Page(), 0) << "the insertion is seen";
        QTest::keyClick(dialog->findChild<QLabel*>("lblCodeTag_0"), Qt::Key_Return);
        EXPECT_EQ(Shown("txtHead"), "%KVINFO%");
    });
}

TEST_F(ExportDialogTest, OnlyTextIsPasted) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    InDialog([&] {
        auto* nothing = new QMimeData;  // what Qt hands out for a clipboard that nobody owns
        auto* picture = new QMimeData;
        picture->setData("image/png", "no text");
        auto* text = new QMimeData;
        text->setText("pasted");
        for (QMimeData* data : {nothing, picture, text}) {
            clipboard.setMimeData(data);
            QTest::keyClick(Text("txtBody"), Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(Shown("txtBody"), data == text ? "pasted" : "");
        }
    });
}

TEST_F(ExportDialogTest, TextsPassThroughTheBoxesUnchanged) {
    DrawBox();
    const std::string odd = "tab\t, hard space \u00A0, \u20AC\r\n\r\n  end ";
    const CodeTemplate code{odd, "", "\r\n"};
    const std::string path = PathOf("odd.kvcode");
    const auto bytes = EncodeTemplate(code);
    QFile(QString::fromStdString(path)).remove();
    prompts.paths = {path};
    InDialog([&] {
        Press(4);  // saves the empty texts
        EXPECT_EQ(ReadAll(QString::fromStdString(path)).size(), 16);
        QFile file(QString::fromStdString(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
        file.close();
        prompts.paths = {path, path + "2", PathOf("code.txt")};
        Press(3);
        Press(4);
        Press(0);
        EXPECT_FALSE(dialog->isVisible());
    });
    const QByteArray saved = ReadAll(QString::fromStdString(path + "2"));
    EXPECT_EQ(saved, QByteArray(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes)));
    EXPECT_EQ(ReadAll(folder.filePath("code.txt")).toStdString(),
              SourceCodeText(code, Session().scene, Session().textures));
    InDialog([&] {
        EXPECT_TRUE(Shown("txtHead").startsWith("tab\t")) << "remembered for the next export";
    });
}

}  // namespace
}  // namespace korvane::test
