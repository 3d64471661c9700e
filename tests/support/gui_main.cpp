// main() of the test programs that need a display: a QApplication set up like the editor's own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSurfaceFormat>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication::setStyle("fusion");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
