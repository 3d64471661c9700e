// The preferences dialog in the real window, and what a restart brings back.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTimer>

#include "GuiFixture.h"
#include "app/frmPreferences.h"
#include "files/mPreferenceFiles.h"
#include "files/mSettingsFile.h"
#include "support/TempFolder.h"
#include "widgets/ucRowList.h"

namespace korvane::test {
namespace {

class PreferencesDialogTest : public GuiTest {
  protected:
    void SetUp() override {
        GuiTest::SetUp();
        OpenDialog();
    }

    void OpenDialog() {
        dialog = std::make_unique<frmPreferences>(Session(), window.get());
        dialog->open();
        // A dialog counts as active while its owner is.
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return QApplication::activeWindow() == dialog.get(); }));
    }

    template <class T = QWidget>
    T* Part(const QString& name) {
        T* found = dialog->findChild<T*>(name);
        if (found == nullptr) ADD_FAILURE() << "no " << name.toStdString();
        return found;
    }

    void Press(const char* part) { QTest::mouseClick(Part(part), Qt::LeftButton); }
    void ShowPage(int page) { Part<QTabWidget>("TabHeader")->setCurrentIndex(page); }
    void Type(const char* box, const char* text) { Part<QLineEdit>(box)->setText(text); }
    std::string Text(const char* label) { return Part<QLabel>(label)->text().toStdString(); }
    ucRowList* ListOf(const char* scrollBar) {
        return qobject_cast<ucRowList*>(Part(scrollBar)->parentWidget());
    }

    /// Starts anew on the same folder; the log of the start comes back.
    QByteArray Restart() {
        dialog.reset();
        EXPECT_TRUE(window->close());
        window = std::make_unique<frmMain>(prompts, folder.path().toStdString());
        EXPECT_TRUE(window->StartUp());
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTest::qWait(50);  // the window manager's last resize
        return ReadAll(folder.filePath("Korvane.log"));
    }

    std::unique_ptr<frmPreferences> dialog;
};

enum Page { General, ColorScheme_, KeyboardMap, Warnings };

TEST_F(PreferencesDialogTest, EverySettingComesBackAfterARestart) {
    Type("txtSnap2Grid", "0.5");
    Type("txtPickSize", "0.25");
    Type("txtGlobalSize", "8.5");
    Part<QCheckBox>("chkSetMarker")->setChecked(false);
    for (int i = 0; i < kWarnings; ++i)
        Part<QCheckBox>(QString("chkWarning_%1").arg(i))->setChecked(i % 2 == 0);
    ShowPage(ColorScheme_);
    Part<QScrollBar>("vsCSList")->setValue(12);
    prompts.colors = {0x123456};
    Press("lblCSColor_9");
    ShowPage(KeyboardMap);
    Part<QScrollBar>("vsKMList")->setValue(31);
    Press("lblKMKey_9");
    QTest::keyClick(Part("pbFocus"), Qt::Key_F1);
    Press("btnMain_0");
    EXPECT_FALSE(dialog->isVisible());
    for (const char* toggle : {"mnuRulers", "mnuShow3DGrid", "mnuSnap", "mnuShowInvisible"})
        Choose(toggle);
    Choose("mnuViewLeft");
    prompts.paths = {PathOf("b & w.kvobject")};
    Choose("mnuSaveAs");
    window->setGeometry(150, 120, 900, 700);
    QTest::qWait(50);
    const QRect place = window->geometry();

    const QByteArray log = Restart();
    EXPECT_TRUE(log.contains("INIT_User_Preferences: Okay"));
    EXPECT_TRUE(log.contains("INIT_Window_State: NORMAL"));
    Settings expected;
    expected.snapSize = 0.5F, expected.pickerSize = 0.25F, expected.TextureScale = 8.5F;
    expected.setMarker = expected.showRulers = expected.show3DGrid = false;
    expected.snapToGrid = expected.showInvisible = false;
    expected.ViewLayout = LeftOnly;
    expected.warnings = {true, false, true, false, true, false};
    expected.colors[ColorItem::RotationMarker] = 0x123456;
    expected.keyMap[KeyFunction::FileSaveAs] = 112;
    expected.recentFiles = {PathOf("b & w.kvobject")};
    expected.window = Session().settings.window;
    EXPECT_EQ(EncodeSettings(Session().settings), EncodeSettings(expected));
    EXPECT_EQ(window->geometry(), place);
    EXPECT_TRUE(Find("pbView1")->isVisible());
    EXPECT_FALSE(Find("pbView0")->isVisible());
    const auto* recent = Find<QAction>("mnuRecentFile_0");
    EXPECT_TRUE(recent->isVisible());
    EXPECT_EQ(recent->text(), "b && w.kvobject");
    EXPECT_EQ(recent->toolTip().toStdString(), PathOf("b & w.kvobject"));
    EXPECT_FALSE(Find<QAction>("mnuRecentFile_1")->isVisible());
    Choose("mnuRecentFile_0");
    EXPECT_EQ(Title(), "Korvane - b & w");
    Choose("mnuClearRecentFiles");
    EXPECT_FALSE(recent->isVisible());
}

TEST_F(PreferencesDialogTest, MaximisedWindowComesBackWithItsNormalPlace) {
    dialog->close();
    window->setGeometry(150, 120, 900, 700);
    QTest::qWait(50);
    const QRect place = window->geometry();
    window->showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->width() > 1800; }));
    for (int start = 0; start < 2; ++start) {
        EXPECT_TRUE(Restart().contains("INIT_Window_State: MAXIMIZED"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return window->width() > 1800; }));
        EXPECT_TRUE(window->isMaximized());
    }
    window->showNormal();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->width() < 1800; }));
    QTest::qWait(50);
    EXPECT_EQ(window->geometry(), place) << "it does not wander from start to start";
}

TEST_F(PreferencesDialogTest, RefusedSizeKeepsTheDialogOpenAndEverythingAsItWas) {
    ShowPage(Warnings);
    Type("txtPickSize", "1.5");
    Part<QCheckBox>("chkWarning_0")->setChecked(false);
    Press("btnMain_0");
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(Part<QTabWidget>("TabHeader")->currentIndex(), General) << "where the size is";
    EXPECT_TRUE(Session().settings.warnings[0]);
    EXPECT_FALSE(QFile::exists(folder.filePath("Korvane.kvdat")));
    Type("txtPickSize", "1");
    Press("btnMain_1");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(Session().settings.warnings[0]);
    Press("btnMain_3");
    EXPECT_TRUE(Part<QCheckBox>("chkWarning_0")->isChecked());
    EXPECT_EQ(Part<QLineEdit>("txtPickSize")->text(), "0.05");
    EXPECT_TRUE(Session().settings.warnings[0]) << "at once";
}

TEST_F(PreferencesDialogTest, SchemeOfFiveColorsRecoloursTheViewsOnlyWhenApplied) {
    FileWriter five;
    five.WriteTag("KVCS");
    for (Color color = 1; color <= 5; ++color) WriteColor(five, 0x2000 * color);
    WriteFileBytes(PathOf("five.kvcs"), five.Bytes());
    for (const char* button : {"btnMain_2", "btnMain_0"}) {
        OpenDialog();
        ShowPage(ColorScheme_);
        prompts.paths = {PathOf("five.kvcs")};
        Press("btnColorScheme_0");
        const auto shown = [this](int row) {
            return Part(QString("lblCSColor_%1").arg(row))->grab().toImage().pixelColor(20, 10);
        };
        EXPECT_EQ(shown(0), QColor(0, 0x20, 0));
        EXPECT_EQ(shown(4), QColor(0, 0xA0, 0));
        EXPECT_EQ(shown(5), QColor(0, 128, 128)) << "the rest stays";
        Press(button);
        const bool applied = button == std::string("btnMain_0");
        const QColor corner = Shown(Find("pbView0")).pixelColor(150, 100);
        EXPECT_EQ(corner == QColor(0, 0x20, 0), applied);
        EXPECT_EQ(corner == QColor(Qt::white), !applied);
    }
}

TEST_F(PreferencesDialogTest, KeyCaptureTakesEveryKeyAndAsksAboutUsedOnes) {
    ShowPage(KeyboardMap);
    const auto start = [this] { QTest::mouseClick(Part("lblKMKey_0"), Qt::LeftButton); };
    const auto capture = [&](int key) {
        start();
        EXPECT_EQ(QApplication::focusWidget(), Part("pbFocus"));
        EXPECT_EQ(Text("lblPressKey"), "Press Key For :Move: Faster");
        EXPECT_TRUE(Part("lblPressKey")->isVisible());
        QTest::keyClick(Part("pbFocus"), static_cast<Qt::Key>(key));
        EXPECT_FALSE(Part("lblPressKey")->isVisible());
        EXPECT_TRUE(dialog->isVisible()) << "neither Enter nor Escape closes it";
        return Text("lblKMKey_0");
    };
    EXPECT_EQ(capture(Qt::Key_Tab), "TAB");
    EXPECT_EQ(capture(Qt::Key_Return), "ENTER");
    prompts.answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(capture(Qt::Key_S), "ENTER");
    EXPECT_EQ(capture(Qt::Key_S), "S");
    EXPECT_EQ(Text("lblKMKey_3"), "{UnDefined}");
    QTest::keyClick(Part("pbFocus"), Qt::Key_A);
    EXPECT_EQ(Text("lblKMKey_0"), "S") << "no capture";
    EXPECT_EQ(Session().settings.keyMap[KeyFunction::MoveFaster], 16) << "not applied yet";

    const auto* blinker = Part<QTimer>("tmrBlinker");
    start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Part("lblPressKey")->isVisible(); }, 2000));
    Press("btnKeyMap_3");
    EXPECT_FALSE(blinker->isActive());
    EXPECT_EQ(Text("lblKMKey_0"), "S") << "ended without a key";
    start();
    ShowPage(General);
    EXPECT_FALSE(blinker->isActive());
    ShowPage(KeyboardMap);
    start();
    Press("btnKeyMap_2");
    EXPECT_EQ(Text("lblKMKey_0"), "{UnDefined}");
}

TEST_F(PreferencesDialogTest, ListsWorkWithTheKeyboardAlone) {
    ShowPage(ColorScheme_);
    ucRowList* colors = ListOf("vsCSList");
    colors->setFocus();
    QTest::keyClick(colors, Qt::Key_End);
    EXPECT_EQ(Text("lblCSTitle_9"), "Rotation: Marker");
    prompts.colors = {0x0000FF};
    QTest::keyClick(colors, Qt::Key_Return);
    EXPECT_EQ(prompts.askedColors, std::vector<Color>{MakeColor(128, 0, 255)});
    EXPECT_TRUE(dialog->isVisible());
    ShowPage(KeyboardMap);
    ucRowList* keys = ListOf("vsKMList");
    keys->setFocus();
    for (int i = 0; i < 10; ++i) QTest::keyClick(keys, Qt::Key_Down);
    EXPECT_EQ(Text("lblKMTitle_9"), "Turn: Look Up");
    QTest::keyClick(keys, Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    EXPECT_EQ(Text("lblKMKey_9"), "F1");
    EXPECT_EQ(QApplication::focusWidget(), keys);
    QTest::keyClick(keys, Qt::Key_Delete);
    EXPECT_EQ(Text("lblKMKey_9"), "{UnDefined}");
    EXPECT_LE(dialog->frameGeometry().width(), 640) << "all pages have one size";
    EXPECT_LE(dialog->frameGeometry().height(), 480);
}

}  // namespace
}  // namespace korvane::test
