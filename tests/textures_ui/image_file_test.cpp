// Image files through the loader: every format, and every reason to refuse one.
#include <gtest/gtest.h>

#include <QImageReader>
#include <QTemporaryDir>
#include <utility>

#include "support/ImageFiles.h"
#include "textures/ui/mImageFile.h"

namespace korvane {
namespace {

using namespace test;

class ImageFileTest : public testing::Test {
  protected:
    QString Path(const char* name) const { return folder_.filePath(name); }
    ImageCode Load(const char* name) { return LoadImageFile(Path(name).toStdString(), image_); }

    QByteArray ReadFile(const char* name) const {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }

    /// Colour of a pixel of the buffer, y counted from the bottom.
    QRgb Pixel(int x, int y) const {
        const std::uint8_t* bgr = &image_.pixels[std::size_t(y * image_.width + x) * 3];
        return qRgb(bgr[2], bgr[1], bgr[0]);
    }

    void ExpectFourCorners(int width, int height, int tolerance) {
        ASSERT_EQ(image_.width, width);
        ASSERT_EQ(image_.height, height);
        ASSERT_EQ(image_.pixels.size(), std::size_t(width) * height * 3);
        const auto near = [&](int x, int y, QRgb expected) {
            const QRgb pixel = Pixel(x, y);
            EXPECT_NEAR(qRed(pixel), qRed(expected), tolerance) << x << ", " << y;
            EXPECT_NEAR(qGreen(pixel), qGreen(expected), tolerance) << x << ", " << y;
            EXPECT_NEAR(qBlue(pixel), qBlue(expected), tolerance) << x << ", " << y;
        };
        near(0, height - 1, qRgb(255, 0, 0));
        near(width - 1, height - 1, qRgb(0, 255, 0));
        near(0, 0, qRgb(0, 0, 255));
        near(width - 1, 0, qRgb(255, 255, 255));
    }

    QTemporaryDir folder_;
    cDIBSection image_;
};

TEST_F(ImageFileTest, ReadsEveryFormat) {
    const QImage picture = FourCorners(64, 32);
    SavePicture(Path("a.bmp"), "bmp", picture);
    SavePicture(Path("b.JPG"), "jpeg", picture);
    WriteFile(Path("c.gif"), GifOfFourCorners(64, 32));
    WriteFile(Path("d.TGA"), TgaOf(picture));
    SavePicture(Path("gray.jpe"), "jpeg", QImage(32, 32, QImage::Format_Grayscale8));
    SavePicture(Path("content decides.jpg"), "bmp", picture);
    SavePicture(Path("e.png"), "png", picture);
    const std::pair<const char*, int> cases[] = {{"a.bmp", 0}, {"b.JPG", 12},
                                                 {"c.gif", 0}, {"d.TGA", 0},
                                                 {"e.png", 0}, {"content decides.jpg", 0}};
    for (const auto& [name, tolerance] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Load(name), ImageLoaded);
        ExpectFourCorners(64, 32, tolerance);
    }
    EXPECT_EQ(Load("gray.jpe"), ImageLoaded);
}

TEST_F(ImageFileTest, RowsOfOddWidthCarryNoPadding) {
    SavePicture(Path("odd.bmp"), "bmp", FourCorners(7, 3));
    ASSERT_EQ(Load("odd.bmp"), ImageLoaded);
    ExpectFourCorners(7, 3, 0);
    EXPECT_EQ(PictureOf(image_).convertToFormat(QImage::Format_RGB32), FourCorners(7, 3));
}

TEST_F(ImageFileTest, APhotographIsNotTurned) {
    SavePicture(Path("photo.jpg"), "jpeg", FourCorners(64, 32));
    // Behind the start mark: an Exif block whose only entry says "turned by 90 degrees".
    const QByteArray turned = QByteArray::fromHex(
        "FFE10022457869660000"
        "4D4D002A00000008"
        "0001"
        "011200030000000100060000"
        "00000000");
    WriteFile(Path("photo.jpg"), ReadFile("photo.jpg").insert(2, turned));
    QImageReader reader(Path("photo.jpg"));
    ASSERT_EQ(reader.transformation(), QImageIOHandler::TransformationRotate90);
    ASSERT_EQ(Load("photo.jpg"), ImageLoaded);
    ExpectFourCorners(64, 32, 12);
}

TEST_F(ImageFileTest, RefusalsTellWhy) {
    WriteFile(Path("text.jpg"), "no picture at all");
    SavePicture(Path("portable.bmp"), "ppm", FourCorners(32, 32));
    WriteFile(Path("empty.gif"), "");
    WriteFile(Path("empty.tga"), "");
    WriteFile(Path("palette.tga"), QByteArray("\0\1\1\0\0\0\0\x18\0\0\0\0\x20\0\x20\0\x18\0", 18));
    SavePicture(Path("whole.bmp"), "bmp", FourCorners(64, 64));
    WriteFile(Path("cut.bmp"), ReadFile("whole.bmp").left(40));
    const QByteArray huge("\xFF\x7F\0\0\xFF\x7F\0\0", 8);  // 32767 x 32767 pixels
    WriteFile(Path("huge.bmp"), ReadFile("whole.bmp").replace(18, 8, huge));
    QDir(folder_.path()).mkdir("folder.jpg");
    const std::pair<const char*, ImageCode> cases[] = {
        {"absent.jpg", ImageFileMissing},     {"absent.tga", ImageFileMissing},
        {"absent\\", ImageFileMissing},       {"folder.jpg", ImageIsFolder},
        {"folder.jpg/", ImageIsFolder},       {"text.jpg", ImageFormatRefused},
        {"portable.bmp", ImageFormatRefused}, {"empty.gif", ImageFormatRefused},
        {"cut.bmp", ImageFormatRefused},      {"huge.bmp", ImageFormatRefused},
        {"empty.tga", ImageDepthTooLow},      {"palette.tga", ImageTypeUnknown}};
    for (const auto& [name, code] : cases) {
        EXPECT_EQ(Load(name), code) << name;
    }
    EXPECT_EQ(image_.width, 0) << "a refused file leaves the image alone";
}

}  // namespace
}  // namespace korvane
