// What the editing stories share: two boxes in the window, and gestures with keys held.
#pragma once

#include <QLineEdit>
#include <QProcess>

#include "GuiFixture.h"
#include "scene/mNormals.h"

namespace korvane::test {

/// The brush "Brush-0000" spans X -2..-1, Y 0..2, Z -1..1, "Brush-0001" X 1..2 and the same else.
/// Nothing is selected, and nothing can be undone but the two creations.
class EditingTest : public GuiTest {
  protected:
    void SetUp() override {
        GuiTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(DrawFromTop({-2, 0, -1}, {-1, 0, 1}));
        ASSERT_NO_FATAL_FAILURE(DrawFromTop({1, 0, -1}, {2, 0, 1}));
        ASSERT_EQ(Session().scene.brushCount(), 2);
    }

    void DrawFromTop(const Vec3& from, const Vec3& to) {
        Drag(View(TopView), At(TopView, from), At(TopView, to));
        QTest::mouseClick(View(TopView), Qt::RightButton, {}, At(TopView, to));
    }

    /// Sends events of keyboard and mouse to the X server.
    void X(const QStringList& arguments) {
        ASSERT_EQ(QProcess::execute("xdotool", arguments), 0) << "xdotool is needed";
        QTest::qWait(60);
    }

    QWidget* View(int view) { return Find(QString("pbView%1").arg(view)); }

    void ClickTop(const Vec3& at, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(View(TopView), Qt::LeftButton, keys, At(TopView, at));
    }

    void DragTop(const Vec3& from, const Vec3& to) {
        Drag(View(TopView), At(TopView, from), At(TopView, to));
    }

    Brush& BrushAt(std::size_t index) { return Session().scene.brushes.at(index); }
    Bounds BoundsOf(std::size_t index) { return BrushBounds(BrushAt(index)); }

    /// Which brushes are selected, one character each: '*' or '-'.
    std::string Selected() {
        std::string marks;
        for (const Brush& brush : Session().scene.brushes) marks += brush.selected ? '*' : '-';
        return marks;
    }

    bool Enabled(const char* command) { return Find<QAction>(command)->isEnabled(); }

    QString Text(const char* box) { return Find<QLineEdit>(box)->text(); }

    static constexpr Bounds kFirst{{-2, 0, -1}, {-1, 2, 1}};
    static constexpr Bounds kSecond{{1, 0, -1}, {2, 2, 1}};
};

}  // namespace korvane::test
