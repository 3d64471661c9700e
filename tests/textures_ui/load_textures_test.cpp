// The texture folder into library, texture objects, browser pictures and log.
#include <GL/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <stdexcept>

#include "support/ImageFiles.h"
#include "textures/ui/mImageFile.h"
#include "textures/ui/mOGLTextures.h"

namespace korvane {
namespace {

using namespace test;
using testing::ElementsAre;

/// Keeps the lines; on demand it fails in the middle of one.
struct RecordingLog : StartUpLog {
    std::vector<std::string> lines;
    std::string failAt;  ///< AppendText of a line that holds this text throws

    void AddText(const std::string& text) override { lines.push_back(text); }
    void AppendText(const std::string& text) override {
        if (!failAt.empty() && lines.back().find(failAt) != std::string::npos) {
            throw std::system_error(ENOSPC, std::generic_category(), "log");
        }
        lines.back() += text;
    }
};

class LoadTexturesTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_GT(CreateRenderContext(context_, 32, 32), 0); }

    QString Path(const char* name) const { return folder_.filePath(name); }
    void Bitmap(const char* name, int width, int height) {
        SavePicture(Path(name), "bmp", FourCorners(width, height));
    }
    void LoadAll() {
        LoadAllTextures({context_, objects_, library_,
                         [this](const QImage& picture) { pictures_.push_back(picture); }},
                        folder_.path().toStdString(), log_);
    }
    /// The name of every entry, checked to be the same in all tables by the sizes of the images.
    std::vector<std::string> Entries() {
        EXPECT_EQ(objects_.size(), std::size_t(library_.ListCount()));
        EXPECT_EQ(pictures_.size(), std::size_t(library_.ListCount()));
        std::vector<std::string> names;
        for (std::int32_t i = 0; i < library_.ListCount(); ++i) {
            const auto at = std::size_t(i);
            names.push_back(library_.TextureFilename(i));
            GLint width = 0;
            glBindTexture(GL_TEXTURE_2D, objects_[at]);
            glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
            EXPECT_EQ(width, library_.TextureWidth(i)) << i;
            EXPECT_EQ(pictures_[at].width(), library_.TextureWidth(i)) << i;
            EXPECT_EQ(pictures_[at].height(), library_.TextureHeight(i)) << i;
        }
        return names;
    }

    QTemporaryDir folder_;
    RenderContext context_;
    TextureObjects objects_;
    TextureLibrary library_;
    std::vector<QImage> pictures_;
    RecordingLog log_;
};

TEST_F(LoadTexturesTest, SidesArePowersOfTwoWithinTheRange) {
    for (const int side : {32, 64, 128, 256, 512, 1024}) EXPECT_TRUE(IsTextureSide(side)) << side;
    for (const int side : {-64, 0, 1, 16, 31, 33, 48, 300, 1023, 2048}) {
        EXPECT_FALSE(IsTextureSide(side)) << side;
    }
}

TEST_F(LoadTexturesTest, TheTextureHoldsTheImageAndRepeats) {
    Bitmap("wall.bmp", 64, 32);
    cDIBSection image;
    ASSERT_TRUE(LoadTexture(context_, objects_, Path("wall.bmp").toStdString(), image));
    ASSERT_EQ(objects_.size(), 1U);
    glBindTexture(GL_TEXTURE_2D, objects_[0]);
    std::vector<std::uint8_t> held(image.pixels.size());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_BGR, GL_UNSIGNED_BYTE, held.data());
    EXPECT_EQ(held, image.pixels);
    const auto parameter = [](GLenum name) {
        GLint value = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
        return GLenum(value);
    };
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GLenum{GL_REPEAT});
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GLenum{GL_REPEAT});
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GLenum{GL_LINEAR});
    EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GLenum{GL_LINEAR});
}

TEST_F(LoadTexturesTest, OnlyImageNamesAreTriedSortedIgnoringCase) {
    for (const char* name :
         {"b.BMP", "a.tga", "C.JpG", "ab.jpeg", "x.jpe", "y.gif", "a.b", ".bmp", "readme",
          "notes.txt", "jpg", "wall.jpg.bak", "Ab.gif", "ab.gif", "z.PNG"}) {
        WriteFile(Path(name), "x");
    }
    QDir(folder_.path()).mkdir("folder.bmp");
    EXPECT_THAT(TextureFilesIn(folder_.path().toStdString()),
                ElementsAre("a.tga", "Ab.gif", "ab.gif", "ab.jpeg", "b.BMP", "C.JpG", "x.jpe",
                            "y.gif", "z.PNG"));
    EXPECT_TRUE(TextureFilesIn(Path("absent").toStdString()).empty());
}

TEST_F(LoadTexturesTest, FailedFilesKeepTheirNumberButShiftNoIndex) {
    Bitmap("a.bmp", 64, 64);
    Bitmap("b wide.bmp", 300, 64);
    SavePicture(Path("c.jpg"), "jpeg", FourCorners(256, 128));
    WriteFile(Path("D.gif"), GifOfFourCorners(32, 32));
    WriteFile(Path("e.tga"), "damaged");
    WriteFile(Path("f.tga"), TgaOf(FourCorners(128, 64)));
    Bitmap("g flat.bmp", 64, 16);
    library_.SelectTexture(0);
    LoadAll();
    EXPECT_THAT(Entries(), ElementsAre("", "a.bmp", "c.jpg", "D.gif", "f.tga"));
    EXPECT_THAT(log_.lines, ElementsAre("        LOAD_Texture: (0001) a.bmp Loaded (Added)",
                                        "        LOAD_Texture: (0002) b wide.bmp FAILED!",
                                        "        LOAD_Texture: (0003) c.jpg Loaded (Added)",
                                        "        LOAD_Texture: (0004) D.gif Loaded (Added)",
                                        "        LOAD_Texture: (0005) e.tga FAILED!",
                                        "        LOAD_Texture: (0006) f.tga Loaded (Added)",
                                        "        LOAD_Texture: (0007) g flat.bmp FAILED!"));
    EXPECT_EQ(library_.TextureName(2), "c");
    EXPECT_EQ(pictures_[4].pixel(0, 0), qRgb(255, 0, 0)) << "upright";
    EXPECT_EQ(library_.Selected(), 0);
}

TEST_F(LoadTexturesTest, AnErrorIsLoggedAndTheNextFileIsLoaded) {
    for (const auto& [name, side] : {std::pair{"a.bmp", 64}, {"b.bmp", 32}, {"c.bmp", 128}})
        Bitmap(name, side, side);
    log_.failAt = "b.bmp";
    LoadAll();
    EXPECT_THAT(Entries(), ElementsAre("", "a.bmp", "c.bmp"));
    const std::string error = std::system_error(ENOSPC, std::generic_category(), "log").what();
    EXPECT_THAT(log_.lines, ElementsAre("        LOAD_Texture: (0001) a.bmp Loaded (Added)",
                                        "        LOAD_Texture: (0002) b.bmp ",
                                        "{ERROR_MOD(LoadAllTextures): 28 - " + error + "))",
                                        "        LOAD_Texture: (0003) c.bmp Loaded (Added)"));
}

TEST_F(LoadTexturesTest, AThumbnailThatFailsCostsOnlyTheThumbnail) {
    Bitmap("a.bmp", 64, 64);
    const auto refuse = [](const QImage& picture) {
        if (picture.pixel(0, 0) == qRgb(255, 0, 0)) throw std::runtime_error("no room");
    };
    LoadAllTextures({context_, objects_, library_, refuse}, folder_.path().toStdString(), log_);
    EXPECT_EQ(library_.ListCount(), 2);
    EXPECT_EQ(objects_.size(), 2U);
    EXPECT_THAT(log_.lines, ElementsAre("        LOAD_Texture: (0001) a.bmp Loaded",
                                        "{ERROR_MOD(AddTexture): 0 - no room} (Added)"));
    cDIBSection image;
    ReleaseRenderContext(context_);
    EXPECT_FALSE(LoadTexture(context_, objects_, Path("a.bmp").toStdString(), image));
    EXPECT_EQ(objects_.size(), 2U) << "without a context nothing is uploaded";
}

}  // namespace
}  // namespace korvane
