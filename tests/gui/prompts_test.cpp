// The real dialogs: what they show and what closing them means.
#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/QtPrompts.h"

namespace korvane {
namespace {

/// Acts on the next modal dialog of that class, once it is open.
template <class T>
void WhenOpen(std::function<void(T*)> act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, act] {
        T* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) return;
        timer->deleteLater();
        timer->stop();
        act(dialog);
    });
    timer->start(10);
}

TEST(QtPromptsTest, BoxShowsTextTitleIconAndButtons) {
    QtPrompts prompts;
    WhenOpen<QMessageBox>([](QMessageBox* box) {
        EXPECT_EQ(box->text(), "One <b>line</b>\nand another");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->windowTitle(), "Warning!");
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        EXPECT_TRUE(box->button(QMessageBox::No)->isVisible());
        EXPECT_FALSE(box->button(QMessageBox::Cancel)->isVisible()) << "only for Escape";
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(prompts.ShowMessage({"One <b>line</b>\r\nand another", "Warning!",
                                   MessageIcon::Question, MessageButtons::YesNo, Answer::No}),
              Answer::Yes);
}

TEST(QtPromptsTest, EscapeMeansTheHarmlessAnswer) {
    QtPrompts prompts;
    for (const auto& [buttons, answer] : {std::pair(MessageButtons::YesNo, Answer::Cancel),
                                          {MessageButtons::YesNoCancel, Answer::Cancel},
                                          {MessageButtons::Ok, Answer::Ok}}) {
        WhenOpen<QMessageBox>([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); });
        EXPECT_EQ(prompts.ShowMessage({"?", "!", MessageIcon::Question, buttons}), answer);
    }
}

TEST(QtPromptsTest, BoxBelongsToAWindowThatIsNotActiveYet) {
    QWidget window;
    window.show();
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    QtPrompts prompts;
    WhenOpen<QMessageBox>([&window](QMessageBox* box) {
        EXPECT_EQ(box->parentWidget(), &window);
        box->button(QMessageBox::Ok)->click();
    });
    prompts.ShowMessage({"!", "!", MessageIcon::Stop, MessageButtons::Ok});
}

TEST(QtPromptsTest, ColorDialogStartsWithTheColorAndMayBeCancelled) {
    QtPrompts prompts;
    WhenOpen<QColorDialog>([](QColorDialog* box) {
        EXPECT_EQ(box->currentColor(), QColor(1, 2, 3));
        box->setCurrentColor(QColor(10, 20, 30));
        box->accept();
    });
    EXPECT_EQ(prompts.AskColor(MakeColor(1, 2, 3)), MakeColor(10, 20, 30));
    WhenOpen<QColorDialog>([](QColorDialog* box) { box->reject(); });
    EXPECT_EQ(prompts.AskColor(0), std::nullopt);
}

class FileDialogTest : public testing::Test {
  protected:
    void Type(const QString& name) {
        WhenOpen<QFileDialog>([this, name](QFileDialog* open) {
            filters = open->nameFilters();
            title = open->windowTitle();
            start = open->directory().absolutePath();
            open->selectFile(name);
            QMetaObject::invokeMethod(open, "accept");
        });
    }

    QTemporaryDir folder;
    QtPrompts prompts;
    FileDialog dialog{"Save Object As...", "Korvane Files (*.kvobject)", "*.kvobject", "kvobject",
                      ""};
    QStringList filters;
    QString title, start;
};

TEST_F(FileDialogTest, SavingAddsTheExtensionAndRemembersTheFolder) {
    Type(folder.filePath("box"));
    EXPECT_EQ(prompts.AskSavePath(dialog), folder.filePath("box.kvobject").toStdString());
    EXPECT_EQ(title, "Save Object As...");
    EXPECT_EQ(filters, QStringList{"Korvane Files (*.kvobject)"});
    FileDialog elsewhere = dialog;
    elsewhere.initialFolder = QDir::tempPath().toStdString();
    Type(folder.filePath("scheme"));
    prompts.AskSavePath(elsewhere);
    EXPECT_EQ(start, QDir::tempPath()) << "it has a folder of its own";
    Type("other.kvobject");
    EXPECT_EQ(prompts.AskSavePath(dialog), folder.filePath("other.kvobject").toStdString());
    EXPECT_EQ(start, folder.path());
}

TEST_F(FileDialogTest, SavingIsProposedWhereTheUserMayWrite) {
    QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", home.path().toLocal8Bit());
    for (const QString& place : {folder.path(), folder.filePath("no such folder")}) {
        dialog.proposedPath = (place + "/house.kvobject").toStdString();
        WhenOpen<QFileDialog>([&](QFileDialog* open) {
            start = open->directory().path();
            EXPECT_EQ(open->selectedFiles().value(0), start + "/house.kvobject");
            open->reject();
        });
        prompts.AskSavePath(dialog);
        EXPECT_EQ(start, place == folder.path() ? place : home.path());
    }
    qputenv("HOME", before);
}

TEST_F(FileDialogTest, SavingOverAFileIsConfirmed) {
    QFile existing(folder.filePath("box.kvobject"));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    bool asked = false;
    WhenOpen<QFileDialog>([&](QFileDialog* open) {
        open->selectFile(folder.filePath("box"));
        WhenOpen<QMessageBox>([&, open](QMessageBox* box) {
            asked = true;
            box->button(QMessageBox::No)->click();
            QTimer::singleShot(0, open, &QDialog::reject);
        });
        QMetaObject::invokeMethod(open, "accept");
    });
    EXPECT_EQ(prompts.AskSavePath(dialog), std::nullopt);
    EXPECT_TRUE(asked);
}

TEST_F(FileDialogTest, TheChosenObjectIsShownBesideTheList) {
    for (const char* name : {"a.kvobject", "b.kvobject"})
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    QStringList painted;
    prompts.ShowObjectsBy([&](const QString& path, const QSize& pixels) {
        painted += QFileInfo(path).fileName();
        QImage picture(pixels, QImage::Format_RGB32);
        picture.fill(Qt::red);
        return picture;
    });
    dialog.showsObject = true;
    WhenOpen<QFileDialog>([&](QFileDialog* open) {
        emit open->currentChanged(folder.filePath("a.kvobject"));
        open->selectFile(folder.filePath("b.kvobject"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !painted.empty(); }, 2000));
        const QImage shown = open->findChild<QLabel*>("lblObjectPicture")->grab().toImage();
        EXPECT_EQ(shown.pixelColor(120, 90), QColor(Qt::red));
        open->reject();
    });
    EXPECT_EQ(prompts.AskOpenPath(dialog), std::nullopt);
    EXPECT_EQ(painted, QStringList{"b.kvobject"}) << "not what was passed over";
}

}  // namespace
}  // namespace korvane
