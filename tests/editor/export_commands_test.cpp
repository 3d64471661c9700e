// The export commands: what they ask, what they write, what they tell.
#include <gmock/gmock.h>

#include "editor/mExport.h"
#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "support/FileSizeLimit.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

class ExportCommandsTest : public SessionTest {
  protected:
    ExportCommandsTest() { AddBox({0, 0, 0}, {1, 1, 1}); }

    Bytes Expected3DS(std::int32_t parts) {
        return Encode3DS(editor.scene, editor.textures, parts);
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
    const FileDialog& dialog = prompts.saveDialogs[0];
    EXPECT_EQ(dialog.title, "Export 3DS File...");
    EXPECT_EQ(dialog.filterName, "3DStudio Files (*.3ds)");
    EXPECT_EQ(dialog.defaultExtension, "3ds");
    EXPECT_EQ(dialog.proposedPath, "/a.b/house.old.3ds");
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
        const FileDialog& dialog = prompts.saveDialogs.back();
        EXPECT_EQ(dialog.title, row.title);
        EXPECT_EQ(dialog.filterName, row.filter);
        EXPECT_EQ(dialog.defaultExtension, row.extension);
        EXPECT_EQ(dialog.proposedPath, path);
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
    const FileDialog& dialog = prompts.saveDialogs[0];
    EXPECT_EQ(dialog.title, "Export Source Code Text...");
    EXPECT_EQ(dialog.filterName, "Source Code Text (*.txt)");
    EXPECT_EQ(dialog.defaultExtension, "txt");
}

TEST_F(ExportCommandsTest, TemplatesAreSavedAndOpened) {
    prompts.paths = {target, target};
    SaveCodeTemplate(editor, DefaultCppCode());
    EXPECT_EQ(OpenCodeTemplate(editor), DefaultCppCode());
    for (const auto& [dialog, title] :
         {std::pair{prompts.saveDialogs.at(0), "Save Souce Code Template..."},
          {prompts.openDialogs.at(0), "Open Source Code Template..."}}) {
        EXPECT_EQ(dialog.title, title);
        EXPECT_EQ(dialog.filterName, "Korvane Source Code Templates (*.kvcode)");
        EXPECT_EQ(dialog.defaultExtension, "kvcode");
    }
    WriteFileBytes(target, {'O', 'B', 'S', 'F'});
    prompts.paths = {target, folder.Path("missing.kvcode")};
    EXPECT_EQ(OpenCodeTemplate(editor), std::nullopt);
    EXPECT_EQ(OpenCodeTemplate(editor), std::nullopt);
    ASSERT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(prompts.messages[0].text, "Error: Invalid Source Code Template File!");
    EXPECT_EQ(prompts.messages[1].text, "Error: Unable to load file!");
    EXPECT_EQ(prompts.messages[1].title, "Error!");
}

/// The disk is full, or the folder is not there.
TEST_F(ExportCommandsTest, WriteErrorsAreToldAndLeaveTheOldFile) {
    editor.settings.warnings[WarnExport3DS] = false;
    WriteFileBytes(target, {1, 2, 3});
    const auto files = folder.EntryCount();
    const std::string nowhere = folder.Path("none/out.3ds");
    prompts.paths = {target, nowhere, target, nowhere, target};
    {
        const FileSizeLimit full(100);
        Run("mnuExport3DS");
        Run("mnuExport3DS");
        ExportSourceCode(editor, DefaultCppCode());
        ExportSourceCode(editor, DefaultCppCode());
        SaveCodeTemplate(editor, DefaultCppCode());
    }
    ASSERT_EQ(prompts.messages.size(), 5U);
    for (const Message& message : prompts.messages)
        EXPECT_EQ(message.text, "Error: Unable to save file!");
    EXPECT_EQ(FileBytes(target), (Bytes{1, 2, 3}));
    EXPECT_EQ(folder.EntryCount(), files);
}

}  // namespace
}  // namespace korvane::test
