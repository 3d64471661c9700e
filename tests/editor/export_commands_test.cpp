// The export commands: what they ask, what they write, what they tell.
#include <gmock/gmock.h>

#include "editor/mExport.h"
#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

class ExportCommandsTest : public SessionTest {
  protected:
    ExportCommandsTest() { AddBox({0, 0, 0}, {1, 1, 1}); }

    Bytes Expected3DS(std::int32_t parts) {
        return Encode3DS(editor.scene, editor.textures, parts);
    }

    static void ExpectDialog(const FileDialog& dialog, const char* title, const char* filter,
                             const char* extension, const std::string& proposed = {}) {
        EXPECT_EQ(dialog.title, title);
        EXPECT_EQ(dialog.filterName, filter);
        EXPECT_EQ(dialog.defaultExtension, extension);
        EXPECT_EQ(dialog.proposedPath, proposed);
    }

    const std::string target = folder.Path("out.file");
};

TEST_F(ExportCommandsTest, Export3DSAsksAndWritesWhateverTheAnswer) {
    editor.CurrentObjectPath = "/a.b/house.old.kvobject";
    prompts.answers = {Answer::Yes, Answer::No};
    prompts.paths = {target, target};
    Run("mnuExport3DS");
    EXPECT_EQ(FileBytes(target), Expected3DS(0));
    Run("mnuExport3DS");
    EXPECT_EQ(FileBytes(target), Expected3DS(1));  // the numbers run on
    ASSERT_EQ(prompts.messages.size(), 2U);
    const Message& question = prompts.messages[0];
    EXPECT_EQ(question.text,
              "3DS Max does not support textures with long filenames.\r\n"
              "Korvane can convert these for you, however you should\r\n"
              "only do this if you need to load the 3DS file into 3DS Max.\r\n\r\n"
              "Would you like to convert texture filenames to short names?");
    EXPECT_EQ(question.title, "3DS Max Flaw...");
    EXPECT_EQ(question.icon, MessageIcon::Question);
    EXPECT_EQ(question.buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(question.onEnter, Answer::No);
    ExpectDialog(prompts.saveDialogs[0], "Export 3DS File...", "3DStudio Files (*.3ds)", "3ds",
                 "/a.b/house.old.3ds");
    EXPECT_FALSE(editor.SceneModified);
}

TEST_F(ExportCommandsTest, ProposedNameTakesTheExtensionOfTheName) {
    editor.settings.warnings[WarnExport3DS] = false;
    for (const auto& [path, proposed] :
         {std::pair{"", ""}, {"/a.b/house", "/a.b/house.3ds"}, {"h.kvobject", "h.3ds"}}) {
        editor.CurrentObjectPath = path;
        Run("mnuExport3DS");
        EXPECT_EQ(prompts.saveDialogs.back().proposedPath, proposed);
    }
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(ExportCommandsTest, OtherFormatsAreWrittenWithTheTexturesOfTheUser) {
    std::filesystem::create_directory(folder.Path("ObjTextures"));
    WriteFileBytes(folder.Path("ObjTextures/old.bmp"), {'B', 'M'});
    for (BrushFace& face : Brushes()[0].faces)
        face.texture = editor.textures.AddTexture("old.bmp", 32, 32);
    editor.CurrentObjectPath = folder.Path("house.kvobject");
    const struct {
        const char *command, *title, *filter, *extension;
    } rows[] = {{"mnuExportOBJ", "Export OBJ File...", "Wavefront Files (*.obj)", "obj"},
                {"mnuExportGLB", "Export GLB File...", "glTF Binary Files (*.glb)", "glb"}};
    for (const auto& row : rows) {
        const std::string path = folder.Path("house.") + row.extension;
        prompts.paths = {path};
        Run(row.command);
        ExpectDialog(prompts.saveDialogs.back(), row.title, row.filter, row.extension, path);
        EXPECT_GT(FileBytes(path).size(), 100U);
    }
    EXPECT_EQ(FileBytes(folder.Path("old.bmp")), (Bytes{'B', 'M'}));
    EXPECT_EQ(host.madePng, std::vector{folder.Path("ObjTextures/old.bmp")});
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(ExportCommandsTest, CancelEndsExportsWithoutAFile) {
    const auto files = folder.EntryCount();
    prompts.answers = {Answer::Cancel};
    Run("mnuExport3DS");
    EXPECT_TRUE(prompts.saveDialogs.empty());
    prompts.answers = {Answer::No};
    Run("mnuExport3DS");
    Run("mnuExportOBJ");
    Run("mnuExportGLB");
    ExportSourceCode(editor, DefaultCppCode());
    SaveCodeTemplate(editor, DefaultCppCode());
    EXPECT_EQ(OpenCodeTemplate(editor), std::nullopt);
    EXPECT_EQ(prompts.saveDialogs.size(), 5U);
    EXPECT_EQ(prompts.messages.size(), 2U);  // the two questions
    EXPECT_EQ(folder.EntryCount(), files);
    EXPECT_EQ(editor.exportedParts, 0);
}

TEST_F(ExportCommandsTest, SourceCodeIsWrittenAndItsTemplateRemembered) {
    Run("mnuExportSourceCode");
    EXPECT_EQ(host.forms, std::vector{Form::ExportSourceCode});
    prompts.paths = {target};
    ExportSourceCode(editor, DefaultVBCode());
    const std::string text = SourceCodeText(DefaultVBCode(), editor.scene, editor.textures);
    EXPECT_EQ(FileBytes(target), Bytes(text.begin(), text.end()));
    EXPECT_EQ(editor.codeTemplate, DefaultVBCode());
    ExpectDialog(prompts.saveDialogs[0], "Export Source Code Text...", "Source Code Text (*.txt)",
                 "txt");
}

TEST_F(ExportCommandsTest, TemplatesAreSavedAndOpened) {
    prompts.paths = {target, target};
    SaveCodeTemplate(editor, DefaultCppCode());
    EXPECT_EQ(OpenCodeTemplate(editor), DefaultCppCode());
    constexpr const char* kFilter = "Korvane Source Code Templates (*.kvcode)";
    ExpectDialog(prompts.saveDialogs.at(0), "Save Souce Code Template...", kFilter, "kvcode");
    ExpectDialog(prompts.openDialogs.at(0), "Open Source Code Template...", kFilter, "kvcode");
    WriteFileBytes(target, {'O', 'B', 'S', 'F'});
    prompts.paths = {target, folder.Path("missing.kvcode")};
    EXPECT_EQ(OpenCodeTemplate(editor), std::nullopt);
    EXPECT_EQ(OpenCodeTemplate(editor), std::nullopt);
    EXPECT_THAT(prompts.Told(), testing::ElementsAre("Error: Invalid Source Code Template File!",
                                                     "Error: Unable to load file!"));
}

}  // namespace
}  // namespace korvane::test
