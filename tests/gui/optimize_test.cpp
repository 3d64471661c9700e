// The optimizer's dialog: choices, the run with pause and stop, and what it leaves behind.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QRadioButton>
#include <QTimer>
#include <functional>

#include "GuiFixture.h"
#include "optimizer/FastEngine.h"
#include "optimizer/mOptimize.h"
#include "scene/mBrush.h"

namespace korvane::test {
namespace {

class OptimizeDialogTest : public GuiTest {
  protected:
    void AddBox(const Vec3& min, const Vec3& max) {
        CreateBrush(Session().scene, min, max, 4, Session().Space());
    }

    /// Touching boxes in a cube of that many a side.
    void AddCube(int side) {
        for (int i = 0; i < side * side * side; ++i) {
            const Vec3 at{float(i % side), float(i / side % side), float(i / side / side)};
            AddBox(at, {at.x + 1, at.y + 1, at.z + 1});
        }
    }

    /// Opens the dialog, hands it to the story once it is shown, and returns when it is closed.
    void WithDialog(const std::function<void(QDialog&)>& story) {
        bool told = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = window->findChild<QDialog*>("frmOptimize");
            ASSERT_NE(dialog, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
            told = true;
            story(*dialog);
        });
        window->ShowCommandStates();
        Choose("mnuOptimize");
        EXPECT_TRUE(told);
    }

    static QString Text(QDialog& dialog, const char* label) {
        return dialog.findChild<QLabel*>(label)->text();
    }

    static QString Caption(QDialog& dialog, const char* button) {
        return dialog.findChild<QPushButton*>(button)->text();
    }

    static void ChooseReference(QDialog& dialog) {
        dialog.findChild<QComboBox*>("cboEngine")->setCurrentIndex(1);
    }

    std::vector<bool> Flags(const Scene& scene) {
        std::vector<bool> flags;
        for (const Brush& brush : scene.brushes) {
            for (const BrushFace& face : brush.faces) flags.push_back(face.invisible);
        }
        return flags;
    }

    /// The flags of an uninterrupted run with the dialog's first choices.
    std::vector<bool> FlagsOfWholeRun() {
        Scene scene = Session().scene;
        OptimizeOptions options;
        const QWidget* preview = Find("pbOpenGL");
        options.viewportWidth = preview->width();
        options.viewportHeight = preview->height();
        OptimizeScene(scene, *MakeFastEngine(scene, options));
        return Flags(scene);
    }
};

TEST_F(OptimizeDialogTest, OffersTheChoicesAndClosesAsChanged) {
    AddCube(2);
    Choose("mnuViewTop");
    Session().SceneModified = false;
    WithDialog([&](QDialog& dialog) {
        EXPECT_EQ(Session().settings.ViewLayout, PreviewOnly);
        EXPECT_TRUE(dialog.isModal());
        QStringList details;
        for (auto* option : dialog.findChildren<QRadioButton*>()) details += option->text();
        EXPECT_EQ(details.join('|').toStdString(), "Extremely High|High|Normal|Low|Extremely Low");
        auto* finest = dialog.findChild<QRadioButton*>("optDetail_0");
        EXPECT_TRUE(finest->isChecked());
        EXPECT_TRUE(dialog.findChild<QCheckBox*>("chkExtras_0")->isChecked());
        EXPECT_TRUE(dialog.findChild<QCheckBox*>("chkExtras_1")->isChecked());
        dialog.findChild<QCheckBox*>("chkCovered")->click();
        EXPECT_FALSE(finest->isEnabled());
        Press(dialog, "btnCancel");
    });
    EXPECT_EQ(Session().settings.ViewLayout, TopOnly);
    EXPECT_TRUE(Session().SceneModified) << "closing is a change, even when nothing ran";
    EXPECT_FALSE(Find<QAction>("mnuUndo")->isEnabled());
}

TEST_F(OptimizeDialogTest, EveryEngineRunsToItsEndAsOneUndoStep) {
    AddBox({0, 0, 0}, {1, 1, 1});
    AddBox({-1, -1, -1}, {2, 2, 2});
    const Camera camera{1, 2, 3, 4, 5, 0};
    for (const std::string engine : {"fast", "exact", "reference"}) {
        Session().camera = camera;
        QString atEnd;
        WithDialog([&](QDialog& dialog) {
            prompts.whenAsked = [&] { atEnd = Text(dialog, "lblInfo"); };
            if (engine == "exact") dialog.findChild<QCheckBox*>("chkCovered")->click();
            if (engine == "reference") ChooseReference(dialog);
            Press(dialog, "btnStart");
        });
        const std::vector<bool> flags = Flags(Session().scene);
        EXPECT_EQ(std::count(flags.begin(), flags.end(), true), 12) << engine;
        EXPECT_EQ(atEnd, "6 polygons hidden, 0 polygons made visible again");
        EXPECT_EQ(prompts.messages.back().text,
                  "The object is optimized:\n6 polygons hidden, 0 polygons made visible again.");
        EXPECT_EQ(Session().camera.x, camera.x);
        EXPECT_EQ(Session().camera.yaw, camera.yaw);
        Choose("mnuUndo");
        EXPECT_EQ(Flags(Session().scene), std::vector<bool>(24)) << engine;
        EXPECT_FALSE(Find<QAction>("mnuUndo")->isEnabled());
    }
}

TEST_F(OptimizeDialogTest, PauseHoldsTheRunAndContinueEndsItAsIfNothingHappened) {
    AddCube(5);
    Choose("mnuView3D");  // the size of the preview that the dialog will see
    QTest::qWait(30);
    const std::vector<bool> whole = FlagsOfWholeRun();
    bool paused = false;
    WithDialog([&](QDialog& dialog) {
        QTimer::singleShot(0, &dialog, [&] {
            Press(dialog, "btnStart");  // while it runs
            paused = Caption(dialog, "btnStart") == "Continue";
            EXPECT_EQ(Text(dialog, "lblInfo"), "Paused");
            EXPECT_EQ(Caption(dialog, "btnCancel"), "Stop");
            const std::vector<bool> before = Flags(Session().scene);
            QTimer::singleShot(60, &dialog, [&, before] {
                EXPECT_EQ(Flags(Session().scene), before) << "nothing moves in a pause";
                EXPECT_NE(before, whole);
                Press(dialog, "btnStart");
            });
        });
        Press(dialog, "btnStart");
    });
    EXPECT_TRUE(paused);
    EXPECT_EQ(Flags(Session().scene), whole);
}

TEST_F(OptimizeDialogTest, StopReactsAtOnceAndUndoTakesBackWhatWasDone) {
    AddCube(9);
    const std::vector<bool> before = Flags(Session().scene);
    for (const bool reference : {false, true}) {
        QElapsedTimer sincePress;
        WithDialog([&](QDialog& dialog) {
            if (reference) ChooseReference(dialog);
            QTimer::singleShot(reference ? 100 : 0, &dialog, [&] {
                EXPECT_TRUE(Text(dialog, "lblInfo").startsWith("Optimizing Brush: "));
                EXPECT_TRUE(Text(dialog, "lblInfo").endsWith(" of 729"));
                EXPECT_TRUE(Text(dialog, "lblTime").startsWith("Elapsed: "));
                EXPECT_FALSE(dialog.findChild<QComboBox*>("cboEngine")->isEnabled());
                sincePress.start();
                if (reference) QTest::keyClick(&dialog, Qt::Key_Escape);
                if (!reference) Press(dialog, "btnCancel");
                EXPECT_EQ(Text(dialog, "lblInfo"), "Stopping...");
            });
            Press(dialog, "btnStart");
            EXPECT_LT(sincePress.elapsed(), 1000) << "generous: the machine may be busy";
        });
        EXPECT_TRUE(prompts.messages.empty());
        Choose("mnuUndo");
        EXPECT_EQ(Flags(Session().scene), before);
    }
}

}  // namespace
}  // namespace korvane::test
