// The statistics dialog: numbers and bars of what the window holds.
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "EditingFixture.h"

namespace korvane::test {
namespace {

struct LabelAndBar {
    QString value;
    int bar = -1;  ///< pixels
};

class StatisticsDialogTest : public EditingTest {
  protected:
    /// Opens the dialog, reads the labels of that name and of its bar, and closes it with Okay.
    void Look(const std::vector<std::pair<QString, QString>>& names) {
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = Find<QDialog>("frmStats");
            for (const auto& [value, bar] : names) {
                shown[value] = {dialog->findChild<QLabel*>(value)->text(),
                                dialog->findChild<QLabel*>(bar)->width()};
            }
            title = dialog->windowTitle();
            QTest::mouseClick(dialog->findChild<QPushButton*>("btnOkay"), Qt::LeftButton);
            closed = !dialog->isVisible();
            dialog->reject();  // a failed click must not block the test
        });
        Choose("mnuStatistics");
    }

    std::map<QString, LabelAndBar> shown;
    QString title;
    bool closed = false;
};

TEST_F(StatisticsDialogTest, ShowsNumbersAndBarsOfTheScene) {
    for (int i = 0; i < 600; ++i) Session().scene.brushes.push_back(BrushAt(0));
    BrushAt(1).shape = Cone;
    BrushAt(1).faces[0].invisible = true;
    std::vector<std::pair<QString, QString>> names = {{"lblTextureTotal", "lblTextureTotalGraph"}};
    for (int i = 0; i < 13; ++i) {
        names.emplace_back(QString("lblValue_%1").arg(i), QString("lblGraph_%1").arg(i));
    }
    Look(names);
    EXPECT_EQ(title, "Object Statistics...");
    EXPECT_TRUE(closed);
    const auto expect = [&](const QString& name, const QString& value, int bar) {
        EXPECT_EQ(shown[name].value, value) << name.toStdString();
        EXPECT_EQ(shown[name].bar, bar) << name.toStdString();
    };
    const int full = shown["lblValue_0"].bar;
    EXPECT_GE(full, 100);
    expect("lblValue_0", "602", full);
    expect("lblValue_1", "3,612", full);
    expect("lblValue_2", "1", 0);
    expect("lblValue_3", "0", 0);
    expect("lblValue_4", "3,612", full);
    expect("lblValue_6", "4,816", (full * 4816 + 3612) / 7224);
    expect("lblValue_7", "7,224", full);
    expect("lblValue_8", "7,223", full);
    expect("lblValue_9", "1", (full + 1) / 3);
    expect("lblTextureTotal", "3", full);
    expect("lblValue_10", "601", full);
    expect("lblValue_11", "1", 0);
    expect("lblValue_12", "0", 0);
}

}  // namespace
}  // namespace korvane::test
