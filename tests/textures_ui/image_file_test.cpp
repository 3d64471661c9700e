// Image files through the loader: every format, and every reason to refuse one.
#include <gtest/gtest.h>

#include <QImageReader>
#include <QTemporaryDir>

#include "support/ImageFiles.h"
#include "textures/ui/mImageFile.h"

namespace korvane {
namespace {

using namespace test;

class ImageFileTest : public testing::Test {
  protected:
    QString Path(const char* name) const { return folder_.filePath(name); }
    ImageCode Load(const char* name) { return LoadImageFile(Path(name).toStdString(), image_); }

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
    struct Case {
        const char* name;
        int tolerance;
    };
    for (const auto& [name, tolerance] :
         {Case{"a.bmp", 0}, Case{"b.JPG", 12}, Case{"c.gif", 0}, Case{"d.TGA", 0}}) {
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

TEST_F(ImageFileTest, ContentDecidesAmongTheThreeFormats) {
    SavePicture(Path("bitmap.jpg"), "bmp", FourCorners(32, 32));
    SavePicture(Path("portable.bmp"), "png", FourCorners(32, 32));
    EXPECT_EQ(Load("bitmap.jpg"), ImageLoaded);
    EXPECT_EQ(Load("portable.bmp"), ImageFormatRefused);
}

TEST_F(ImageFileTest, APhotographIsNotTurned) {
    SavePicture(Path("photo.jpg"), "jpeg", FourCorners(64, 32));
    QFile file(Path("photo.jpg"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    // Behind the start mark: an Exif block whose only entry says "turned by 90 degrees".
    const QByteArray turned = QByteArray::fromHex(
        "FFE10022457869660000"
        "4D4D002A00000008"
        "0001"
        "011200030000000100060000"
        "00000000");
    const QByteArray jpeg = file.readAll().insert(2, turned);
    file.seek(0);
    file.write(jpeg);
    file.close();
    QImageReader reader(Path("photo.jpg"));
    ASSERT_EQ(reader.transformation(), QImageIOHandler::TransformationRotate90);
    ASSERT_EQ(Load("photo.jpg"), ImageLoaded);
    ExpectFourCorners(64, 32, 12);
}

TEST_F(ImageFileTest, RefusalsTellWhy) {
    WriteFile(Path("text.jpg"), "no picture at all");
    WriteFile(Path("empty.gif"), "");
    WriteFile(Path("empty.tga"), "");
    WriteFile(Path("palette.tga"), QByteArray("\0\1\1\0\0\0\0\x18\0\0\0\0\x20\0\x20\0\x18\0", 18));
    QByteArray cut;
    {
        SavePicture(Path("whole.bmp"), "bmp", FourCorners(64, 64));
        QFile file(Path("whole.bmp"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        cut = file.read(40);
    }
    WriteFile(Path("cut.bmp"), cut);
    QDir(folder_.path()).mkdir("folder.jpg");
    struct Case {
        const char* name;
        ImageCode code;
    };
    for (const auto& [name, code] :
         {Case{"absent.jpg", ImageFileMissing}, Case{"absent.tga", ImageFileMissing},
          Case{"absent\\", ImageFileMissing}, Case{"folder.jpg", ImageIsFolder},
          Case{"folder.jpg/", ImageIsFolder}, Case{"text.jpg", ImageFormatRefused},
          Case{"empty.gif", ImageFormatRefused}, Case{"cut.bmp", ImageFormatRefused},
          Case{"empty.tga", ImageDepthTooLow}, Case{"palette.tga", ImageTypeUnknown}}) {
        EXPECT_EQ(Load(name), code) << name;
    }
    EXPECT_EQ(image_.width, 0) << "a refused file leaves the image alone";
}

TEST_F(ImageFileTest, AHugeHeaderTakesNoMemory) {
    SavePicture(Path("huge.bmp"), "bmp", FourCorners(32, 32));
    QFile file(Path("huge.bmp"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(18);
    file.write("\xFF\x7F\0\0\xFF\x7F\0\0", 8);  // 32767 x 32767
    file.close();
    EXPECT_EQ(Load("huge.bmp"), ImageFormatRefused);
}

}  // namespace
}  // namespace korvane
