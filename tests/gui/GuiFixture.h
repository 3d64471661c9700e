// The real main window on a temporary program folder with prepared answers: what GUI tests start
// from.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>

#include "app/frmMain.h"
#include "app/ucWorkspace.h"
#include "support/RecordingHost.h"

namespace korvane::test {

inline const QColor kFlatColor(200, 100, 50);  // of flat.bmp

/// A window that has started up and stands on the screen.
class GuiTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        QDir(folder.path()).mkdir("ObjTextures");
        WriteTexture("flat.bmp", kFlatColor);
        WriteTexture("green.bmp", Qt::green);
        window = std::make_unique<frmMain>(prompts, folder.path().toStdString());
        ASSERT_TRUE(window->StartUp());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), 60'000));
        QTest::qWait(50);  // the window manager's last resize
    }

    void WriteTexture(const QString& name, const QColor& color) {
        QImage image(64, 64, QImage::Format_RGB888);
        image.fill(color);
        ASSERT_TRUE(image.save(folder.filePath("ObjTextures/" + name)));
    }

    QByteArray ReadAll(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }

    std::string PathOf(const char* name) { return folder.filePath(name).toStdString(); }

    Editor& Session() { return window->Session(); }

    /// The control of that object name.
    template <class T = QWidget>
    T* Find(const QString& name) {
        T* found = window->findChild<T*>(name);
        if (found == nullptr) ADD_FAILURE() << "no " << name.toStdString();
        return found;
    }

    /// Chooses a menu item.
    void Choose(const char* name) { Find<QAction>(name)->trigger(); }

    /// Clicks a tool button with the mouse.
    void ClickButton(const QString& name) { QTest::mouseClick(Find(name), Qt::LeftButton); }

    static void Press(QWidget& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    std::string Title() { return window->windowTitle().toStdString(); }

    /// What the screen shows of a control, once everything is painted.
    QImage Shown(QWidget* control) {
        QTest::qWait(30);
        const QPoint origin = control->mapTo(window.get(), QPoint());
        return window->screen()
            ->grabWindow(window->winId(), origin.x(), origin.y(), control->width(),
                         control->height())
            .toImage();
    }

    /// Drags over a control in a few steps; it may move meanwhile.
    void Drag(QWidget* control, const QPoint& from, const QPoint& to,
              Qt::MouseButton button = Qt::LeftButton) {
        const QPoint origin = control->mapToGlobal(QPoint());
        QTest::mousePress(control, button, {}, from);
        for (int step = 1; step <= 4; ++step) {
            const QPoint global = origin + from + (to - from) * step / 4;
            QMouseEvent move(QEvent::MouseMove, control->mapFromGlobal(global), global,
                             Qt::NoButton, button, Qt::NoModifier);
            QApplication::sendEvent(control, &move);
        }
        QTest::mouseRelease(control, button, {}, control->mapFromGlobal(origin + to));
    }

    /// Where a world point lies in a view's surface.
    QPoint At(int view, const Vec3& point) {
        const ScreenPoint at = WorldToScreen(Session().views[view], view, point);
        return {static_cast<int>(at.x), static_cast<int>(at.y)};
    }

    /// Draws the box X -1..1, Z -1..1.5 in the Top view; the depth gauge gives it Y 0..2.
    void DrawBox() { Drag(Find("pbView0"), At(TopView, {-1, 0, -1}), At(TopView, {1, 0, 1.5F})); }

    QTemporaryDir folder;
    ScriptedPrompts prompts;
    std::unique_ptr<frmMain> window;
};

}  // namespace korvane::test
