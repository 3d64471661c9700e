// The dialogs that work on the selection: select, free rotate, multiply.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "EditingFixture.h"
#include "widgets/ucStatusBar.h"

namespace korvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

    static void Press(QDialog* dialog, const char* button) {
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    std::string Status() { return window->findChild<ucStatusBar*>()->Text(0).toStdString(); }
};

TEST_F(EditingDialogsTest, FreeRotateTurnsAboutTheDraggedMarker) {
    SelectFirst();
    Choose("mnuFreeRotate");
    QDialog* dialog = Open("frmFreeRotate");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal());
    EXPECT_TRUE(Session().scene.markerShown);
    EXPECT_EQ(Session().scene.marker, (Vec3{-1.5F, 1, 0}));
    EXPECT_EQ(Status(), "Rotation Marker: X: -1.50  Y: 1.00  Z: 0.00");

    DragTop({-1.5F, 0, 0}, {-0.5F, 0, 0});
    EXPECT_EQ(Session().scene.marker, (Vec3{-0.5F, 1, 0}));
    EXPECT_EQ(Status(), "Rotation Marker: X: -0.50  Y: 1.00  Z: 0.00");
    EXPECT_EQ(BoundsOf(0), kFirst) << "the drag moves the marker alone";

    Type(Box(dialog, "txtRotate_1"), "1x8e+0,");
    EXPECT_EQ(Box(dialog, "txtRotate_1")->text(), "180");
    Press(dialog, "btnOkay");
    EXPECT_EQ(Open("frmFreeRotate"), nullptr);
    EXPECT_FALSE(Session().scene.markerShown);
    const Bounds turned = BoundsOf(0);
    EXPECT_NEAR(turned.min.x, 0, 1e-5);
    EXPECT_NEAR(turned.max.x, 1, 1e-5);
    Choose("mnuUndo");
    EXPECT_EQ(BoundsOf(0), kFirst);

    Choose("mnuFreeRotate");
    dialog = Open("frmFreeRotate");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(Box(dialog, "txtRotate_0")->text(), "0");
    EXPECT_EQ(Box(dialog, "txtRotate_1")->text(), "180") << "remembered";
}

TEST_F(EditingDialogsTest, EnterGoesRoundTheAngles) {
    SelectFirst();
    Choose("mnuFreeRotate");
    QDialog* dialog = Open("frmFreeRotate");
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog->isActiveWindow(); }));
    for (const char* name : {"txtRotate_0", "txtRotate_1", "txtRotate_2", "txtRotate_0"}) {
        EXPECT_TRUE(Box(dialog, name)->hasFocus()) << name;
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(BoundsOf(0), kFirst);
}

TEST_F(EditingDialogsTest, ModelessDialogsOpenOnceAndHideTheMarkerHoweverTheyClose) {
    SelectFirst();
    const std::function<void(QDialog*)> ways[] = {
        [](QDialog* dialog) { Press(dialog, "btnCancel"); },
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

    Choose("mnuFreeRotate");
    Choose("mnuMultiply");
    Press(Open("frmFreeRotate"), "btnCancel");
    EXPECT_TRUE(Session().scene.markerShown) << "the other dialog needs it";
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
    EXPECT_EQ(text("txtCount"), "0");
    Type(Box(dialog, "txtCount"), "-4.");
    EXPECT_EQ(text("txtCount"), "4");
    Type(Box(dialog, "txtMove_0"), "1.5");
    Type(Box(dialog, "txtRotate_1"), "-45");
    EXPECT_EQ(text("txtMove_3"), "6");
    EXPECT_EQ(text("txtRotate_4"), "-180");
    EXPECT_FALSE(Box(dialog, "txtMove_3")->isEnabled());

    QTest::mouseClick(dialog->findChild<QCheckBox*>("chkMode_0"), Qt::LeftButton);
    EXPECT_TRUE(Box(dialog, "txtMove_3")->isEnabled());
    EXPECT_FALSE(Box(dialog, "txtMove_0")->isEnabled());
    EXPECT_FALSE(Box(dialog, "txtRotate_4")->isEnabled());
    Type(Box(dialog, "txtMove_3"), "8");
    Type(Box(dialog, "txtMove_5"), "-4");
    EXPECT_EQ(text("txtMove_0") + ' ' + text("txtMove_2"), "2 -1");
    Type(Box(dialog, "txtRotate_1"), "0");

    Press(dialog, "btnOkay");
    ASSERT_EQ(Session().scene.brushCount(), 6);
    EXPECT_EQ(Selected(), "-----*");
    for (int i = 1; i <= 4; ++i) {
        const float x = -2.0F + 2.0F * static_cast<float>(i), z = -1.0F - static_cast<float>(i);
        EXPECT_EQ(BoundsOf(static_cast<std::size_t>(i) + 1), (Bounds{{x, 0, z}, {x + 1, 2, z + 2}}))
            << i;
    }
    Choose("mnuUndo");
    EXPECT_EQ(Session().scene.brushCount(), 2);
}

class SelectDialogTest : public EditingDialogsTest {
  protected:
    /// Opens the dialog, marks the rows of one list and presses the button.
    void SelectIn(const char* list, const std::vector<int>& rows, const char* button) {
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto* tabs = dialog->findChild<QTabWidget*>("tabLists");
            auto* widget = dialog->findChild<QListWidget*>(list);
            tabs->setCurrentWidget(widget);
            for (const int row : rows)
                QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::ControlModifier,
                                  widget->visualItemRect(widget->item(row)).center());
            for (int i = 0; i < tabs->count(); ++i) {
                captions.push_back(tabs->tabText(i).toStdString());
                auto* each = qobject_cast<QListWidget*>(tabs->widget(i));
                for (int row = 0; row < each->count(); ++row)
                    captions.push_back(each->item(row)->text().toStdString());
            }
            Press(dialog, button);
        });
        captions.clear();
        Choose("mnuSelect");
    }

    std::vector<std::string> captions;  ///< tabs, each followed by its rows
};

TEST_F(SelectDialogTest, ListsGroupsBrushesAndTextures) {
    BrushAt(1).group = "walls";
    BrushAt(1).faces[0].texture = Session().textures.IDByFileName("flat.bmp");
    const struct {
        const char* list;
        std::vector<int> rows;
        const char* button;
        const char* selected;
    } choices[] = {{"lstGroups", {0}, "btnCancel", "--"},
                   {"lstGroups", {1}, "btnOkay", "-*"},
                   {"lstTextures", {1}, "btnOkay", "-*"},
                   {"lstBrushes", {0}, "btnOkay", "*-"},
                   {"lstBrushes", {0, 1}, "btnOkay", "**"}};
    for (const auto& choice : choices) {
        Choose("mnuUnSelect");
        SelectIn(choice.list, choice.rows, choice.button);
        EXPECT_EQ(Selected(), choice.selected) << choice.list;
    }
    EXPECT_THAT(captions,
                ElementsAre("Groups", " <Non-Grouped-Brushes> ", "walls", "Brushes", "Brush-0000",
                            "Brush-0001", "Textures", " <Non-Textured> ", "flat"));
    EXPECT_EQ(Text("txtBrushName"), "*Multiple Brushes*");
    EXPECT_THAT(prompts.messages, IsEmpty());
}

}  // namespace
}  // namespace korvane::test
