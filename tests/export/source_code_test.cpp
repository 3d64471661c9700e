// Source code from templates: tags, numbers, sections and the template file.
#include <gmock/gmock.h>

#include "base/SingleByteText.h"
#include "base/Version.h"
#include "export/mSourceCode.h"
#include "support/SceneMaker.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;

const std::string kProgram = std::string("Korvane v") + kVersionText +
                             " - Korvane - Copyright (c) 2026 The Korvane developers";

/// One brush of two faces, the second invisible.
class SourceCodeTest : public testing::Test {
  protected:
    SourceCodeTest() {
        scene.brushes.resize(1);
        Brush& brush = scene.brushes[0];
        brush.group = "Türme";
        brush.vertices = {{false, 1, 0.5F, -0.1234567F}, {false, -0.0F, -1e-9F, 123.456789F}, {}};
        BrushFace face;
        face.a = 0, face.b = 1, face.c = 2;
        face.normal = {0, 1, 0};
        face.uv = {{{0, 1}, {0.25F, -0.75F}, {1000000, 2}}};
        face.texture = 1;
        face.transparency = 40;
        brush.faces = {face, face};
        brush.faces[1].invisible = true;
        library.AddTexture("Füße €.jpg", 64, 64);
    }

    std::string Text(const CodeTemplate& code) { return SourceCodeText(code, scene, library); }
    std::string BodyText(const std::string& body) { return Text({"", body, ""}); }

    Scene scene;
    TextureLibrary library;
};

TEST_F(SourceCodeTest, DefaultCppCodeGivesTheGoldenText) {
    const std::string expected = ToSingleByte(
        "//" + kProgram +
        "\r\nvoid kvMakeObject(void) {\r\n    glBegin(GL_TRIANGLES);\r\n\r\n"
        "        //Brush: 0 - Face: 0 - Group: Türme - Texture: Füße €.jpg\r\n"
        "        glNormal3f(0, 1, 0);\r\n"
        "        glTexCoord2f(0, 1);\r\n        glVertex3f(1, 0.5, -0.123457);\r\n"
        "        glTexCoord2f(0.25, -0.75);\r\n        glVertex3f(0, 0, 123.456787);\r\n"
        "        glTexCoord2f(1000000, 2);\r\n        glVertex3f(0, 0, 0);\r\n\r\n"
        "    glEnd();\r\n}\r\n\r\n");
    EXPECT_EQ(Text(DefaultCppCode()), expected);
}

TEST_F(SourceCodeTest, DefaultVBCodeHasTheSameLinesInItsOwnWords) {
    const CodeTemplate code = DefaultVBCode();
    EXPECT_EQ(code.head, "'%KVINFO%\r\nPublic Sub kvMakeObject()\r\n    glBegin bmTriangles\r\n");
    EXPECT_THAT(code.body,
                testing::StartsWith("        '%FACEINFO%\r\n        glNormal3f %Normal"));
    EXPECT_THAT(BodyText(code.body),
                testing::HasSubstr("\r\n        glTexCoord2f 0.25, -0.75\r\n        glVertex3f 0, "
                                   "0, 123.456787\r\n        glTexCoord2f 1000000, 2\r\n"));
    EXPECT_EQ(code.foot, "    glEnd\r\nEnd Sub\r\n");
}

TEST_F(SourceCodeTest, OnlyTheTagsOfASectionAreReplaced) {
    EXPECT_EQ(Text({"%kvinfo%%KVINFO%%FACEINFO%", "", "%KVINFO%%Normal.X%"}),
              kProgram + kProgram + "%FACEINFO%\r\n\r\n%KVINFO%%Normal.X%\r\n");
    scene.brushes[0].faces[0].invisible = true;
    EXPECT_EQ(Text({"a", "b", "c"}), "a\r\nc\r\n");
}

TEST_F(SourceCodeTest, BodyTagsAreReplacedInTheirOrder) {
    const std::pair<const char*, const char*> cases[] = {
        {"no tag", "no tag"},
        {"%normal.x%|%NORMAL.Y%", "0|1"},
        {"%KVINFO%", "%KVINFO%"},
        {"%TextureID% %Transparency% %Transparency%", "1 40 40"},
        {"%Normal.Y%Normal.X%", "%Normal.Y0"},  // X is replaced first and takes the sign between
        {"%Normal.X% 100% %Normal.Q%", "0 100% %Normal.Q%"},
    };
    for (const auto& [body, text] : cases)
        EXPECT_EQ(BodyText(body), "\r\n" + std::string(text) + "\r\n\r\n") << body;
    scene.brushes[0].group = "%TextureID%%Normal.X%";  // of a name, later tags are replaced too
    EXPECT_EQ(
        BodyText("%FaceInfo%"),
        ToSingleByte("\r\nBrush: 0 - Face: 0 - Group: 1%Normal.X% - Texture: Füße €.jpg\r\n\r\n"));
}

TEST(BuildPreviewTest, ShowsTheBodyOnceWithSampleValues) {
    EXPECT_EQ(BuildPreview({"h %KVINFO%\r\n",
                            "%FACEINFO%|%Normal.X%%Normal.Y%%Normal.Z%|%Coord2.U%,%Coord2.V%|"
                            "%Vertex1.X%,%Vertex1.Y%|%Vertex3.X%|%TextureID%%TextureName%"
                            "%Transparency%é\r\n",
                            "%KVINFO%"}),
              "h " + kProgram +
                  "\r\nBrush: 1 - Face: 1 - Group: TestGroup - Texture: TestTexture|010|0,1|-1,1|1|"
                  "1TestTexture0é\r\n%KVINFO%");
}

TEST(CodeTemplateTest, FileGivesBackTheTextsExactly) {
    for (const CodeTemplate& code :
         {CodeTemplate{}, CodeTemplate{"ä\r\n", "", "\t€ \r\n\r\n"}, DefaultCppCode()}) {
        EXPECT_EQ(DecodeTemplate(EncodeTemplate(code)), code);
    }
    const Bytes golden = {'C', 'O', 'D', 'E', 2, 0, 0, 0, 0xE4, 0x80, 0, 0, 0, 0, 1, 0, 0, 0, 'x'};
    EXPECT_EQ(EncodeTemplate({"ä€", "", "x"}), golden);
}

TEST(CodeTemplateTest, DamagedFilesAreRefused) {
    const Bytes whole = EncodeTemplate({"head", "body", "foot"});
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(DecodeTemplate(std::span(whole).first(size))) << size;
    Bytes other = whole;
    other[0] = 'X';
    EXPECT_FALSE(DecodeTemplate(other));
    Bytes huge = whole;
    for (std::size_t i = 4; i < 8; ++i) huge[i] = i == 7 ? 0x7F : 0xFF;
    EXPECT_FALSE(DecodeTemplate(huge));
    huge[7] = 0xFF;  // a negative length
    EXPECT_FALSE(DecodeTemplate(huge));
}

}  // namespace
}  // namespace korvane
