// The dialogs that work on the selection: select, free rotate, multiply; and the one that counts.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QTabWidget>
#include <QTimer>

#include "EditingFixture.h"
#include "app/frmStats.h"
#include "widgets/ucStatusBar.h"

namespace korvane::test {
namespace {

using testing::ElementsAre;

class EditingDialogsTest : public EditingTest {
  protected:
    void SelectFirst() { ClickTop({-1.5F, 0, 0}, Qt::ControlModifier); }

    /// The dialog of that name that stands on the screen, or null.
    QDialog* Open(const char* name) {
        for (auto* dialog : window->findChildren<QDialog*>(name))
            if (dialog->isVisible()) return dialog;
        return nullptr;
    }

    static QLineEdit* Box(QDialog* dialog, const char* name) {
        return dialog->findChild<QLineEdit*>(name);
    }

    static void Type(QLineEdit* box, const char* keys) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, keys);
    }

    std::string Status() { return window->findChild<ucStatusBar*>()->Text(0).toStdString(); }
};

TEST_F(EditingDialogsTest, FreeRotateTurnsAboutTheDraggedMarker) {
    SelectFirst();
    Choose("mnuFreeRotate");
    QDialog* dialog = Open("frmFreeRotate");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(Session().scene.marker, (Vec3{-1.5F, 1, 0}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog->isActiveWindow(); }));
    for (const char* name : {"txtRotate_0", "txtRotate_1", "txtRotate_2", "txtRotate_0"}) {
        EXPECT_TRUE(Box(dialog, name)->hasFocus()) << name << ": Enter goes round the angles";
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }
    DragTop({-1.5F, 0, 0}, {-0.5F, 0, 0});
    EXPECT_EQ(Status(), "Rotation Marker: X: -0.50  Y: 1.00  Z: 0.00");
    EXPECT_EQ(BoundsOf(0), kFirst) << "the drag moves the marker alone";

    Type(Box(dialog, "txtRotate_1"), "1x8e+0,");
    EXPECT_EQ(Box(dialog, "txtRotate_1")->text(), "180");
    Press(*dialog, "btnOkay");
    EXPECT_EQ(Open("frmFreeRotate"), nullptr);
    EXPECT_NEAR(BoundsOf(0).min.x, 0, 1e-5);
    Choose("mnuUndo");
    EXPECT_EQ(BoundsOf(0), kFirst);
    Choose("mnuFreeRotate");
    EXPECT_EQ(Box(Open("frmFreeRotate"), "txtRotate_1")->text(), "180") << "remembered";
}

TEST_F(EditingDialogsTest, ModelessDialogsOpenOnceAndHideTheMarkerHoweverTheyClose) {
    SelectFirst();
    const std::function<void(QDialog*)> ways[] = {
        [](QDialog* dialog) { Press(*dialog, "btnCancel"); },
        [](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); },
        [](QDialog* dialog) { dialog->close(); },
    };
    for (const std::string name : {"FreeRotate", "Multiply"}) {
        const std::string command = "mnu" + name, form = "frm" + name;
        for (const auto& close : ways) {
            Choose(command.c_str());
            QDialog* dialog = Open(form.c_str());
            ASSERT_NE(dialog, nullptr) << form;
            Choose(command.c_str());
            EXPECT_EQ(Open(form.c_str()), dialog) << "not a second one";
            EXPECT_TRUE(Session().scene.markerShown);
            close(dialog);
            EXPECT_EQ(Open(form.c_str()), nullptr) << form;
            EXPECT_FALSE(Session().scene.markerShown);
        }
    }
    EXPECT_EQ(BoundsOf(0), kFirst);
    Choose("mnuMultiply");
    prompts.answers = {Answer::Yes};
    Choose("mnuNew");
    EXPECT_EQ(Open("frmMultiply"), nullptr);
    EXPECT_FALSE(Session().scene.markerShown);
}

TEST_F(EditingDialogsTest, MultiplyShowsStepsAndTotalsAndCopies) {
    SelectFirst();
    Choose("mnuMultiply");
    QDialog* dialog = Open("frmMultiply");
    ASSERT_NE(dialog, nullptr);
    const auto text = [&](const char* name) { return Box(dialog, name)->text().toStdString(); };
    Type(Box(dialog, "txtCount"), "-4.");
    EXPECT_EQ(text("txtCount"), "4");
    Type(Box(dialog, "txtMove_0"), "1.5");
    Type(Box(dialog, "txtRotate_1"), "-45");
    EXPECT_EQ(text("txtMove_3") + ' ' + text("txtRotate_4"), "6 -180");
    EXPECT_FALSE(Box(dialog, "txtMove_3")->isEnabled());

    QTest::mouseClick(dialog->findChild<QCheckBox*>("chkMode_0"), Qt::LeftButton);
    EXPECT_TRUE(Box(dialog, "txtMove_3")->isEnabled());
    EXPECT_FALSE(Box(dialog, "txtMove_0")->isEnabled());
    EXPECT_FALSE(Box(dialog, "txtRotate_4")->isEnabled());
    Type(Box(dialog, "txtMove_3"), "8");
    Type(Box(dialog, "txtMove_5"), "-4");
    EXPECT_EQ(text("txtMove_0") + ' ' + text("txtMove_2"), "2 -1");
    Type(Box(dialog, "txtRotate_1"), "0");
    Press(*dialog, "btnOkay");
    EXPECT_EQ(Selected(), "-----*");
    EXPECT_EQ(BoundsOf(5), (Bounds{{6, 0, -5}, {7, 2, -3}}));
}

TEST_F(EditingDialogsTest, TheSelectDialogSelectsWhatItsListsName) {
    BrushAt(1).group = "walls";
    BrushAt(1).faces[0].texture = Session().textures.IDByFileName("flat.bmp");
    const struct {
        const char* list;
        std::vector<int> rows;
        const char *button, *selected;
    } choices[] = {{"lstGroups", {0}, "btnCancel", "--"},
                   {"lstGroups", {1}, "btnOkay", "-*"},
                   {"lstTextures", {1}, "btnOkay", "-*"},
                   {"lstBrushes", {0, 1}, "btnOkay", "**"}};
    for (const auto& choice : choices) {
        Choose("mnuUnSelect");
        std::vector<QString> texts;  // of the tabs, each followed by its rows
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* tabs = dialog->findChild<QTabWidget*>("tabLists");
            auto* list = dialog->findChild<QListWidget*>(choice.list);
            tabs->setCurrentWidget(list);
            for (const int row : choice.rows)
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                                  list->visualItemRect(list->item(row)).center());
            for (int i = 0; i < tabs->count(); ++i) {
                texts.push_back(tabs->tabText(i));
                const auto* each = qobject_cast<QListWidget*>(tabs->widget(i));
                for (int row = 0; row < each->count(); ++row)
                    texts.push_back(each->item(row)->text());
            }
            Press(*dialog, choice.button);
        });
        Choose("mnuSelect");
        EXPECT_EQ(Selected(), choice.selected) << choice.list;
        EXPECT_THAT(
            texts, ElementsAre("Groups", " <Non-Grouped-Brushes> ", "walls", "Brushes",
                               "Brush-0000", "Brush-0001", "Textures", " <Non-Textured> ", "flat"));
    }
}

TEST_F(EditingDialogsTest, StatisticsAreNumbersAndBars) {
    for (int i = 0; i < 600; ++i) Session().scene.brushes.push_back(BrushAt(0));
    BrushAt(1).shape = Cone;
    BrushAt(1).faces[0].invisible = true;
    frmStats dialog(Session(), window.get());
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const int full = dialog.findChild<QLabel*>("lblGraph_0")->width();
    EXPECT_GE(full, 100);
    const struct {
        const char *label, *value, *graph;
        int bar;
    } rows[] = {{"lblValue_1", "3,612", "lblGraph_1", full},
                {"lblValue_2", "1", "lblGraph_2", 0},
                {"lblValue_6", "4,816", "lblGraph_6", (full * 4816 + 3612) / 7224},
                {"lblValue_8", "7,223", "lblGraph_8", full},
                {"lblValue_9", "1", "lblGraph_9", (full + 1) / 3},
                {"lblTextureTotal", "3", "lblTextureTotalGraph", full},
                {"lblValue_10", "601", "lblGraph_10", full},
                {"lblValue_11", "1", "lblGraph_11", 0},
                {"lblValue_12", "0", "lblGraph_12", 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(dialog.findChild<QLabel*>(row.label)->text(), row.value) << row.label;
        EXPECT_EQ(dialog.findChild<QLabel*>(row.graph)->width(), row.bar) << row.graph;
    }
    Press(dialog, "btnOkay");
    EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace korvane::test
