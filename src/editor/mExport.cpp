#include "editor/mExport.h"

#include <string>
#include <utility>

#include "export/mExport3DS.h"
#include "export/mSourceCode.h"
#include "files/FileBuffer.h"
#include "interchange/mInterchange.h"

namespace korvane {
namespace {

/// Asks whether textures are to go by their short names; false to end the command. File systems
/// here keep no short names, and so the long ones stay whatever the answer.
bool AskTextureNames(Editor& editor) {
    if (!editor.settings.warnings[WarnExport3DS]) return true;
    Message question{
        "3DS Max does not support textures with long filenames.\r\n"
        "Korvane can convert these for you, however you should\r\n"
        "only do this if you need to load the 3DS file into 3DS Max.\r\n\r\n"
        "Would you like to convert texture filenames to short names?",
        "3DS Max Flaw...", MessageIcon::Question, MessageButtons::YesNoCancel};
    question.onEnter = Answer::No;
    return editor.prompts.ShowMessage(question) != Answer::Cancel;
}

/// The path with another extension; empty for an empty one.
std::string WithExtension(const std::string& path, const std::string& extension) {
    if (path.empty()) return {};
    const std::size_t nameAt = path.rfind('/') + 1;
    const std::size_t dot = path.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot >= nameAt;
    return path.substr(0, hasExtension ? dot : path.size()) + "." + extension;
}

/// The path that the user chooses to save to; empty when cancelled.
std::string AskTarget(Editor& editor, const FileDialog& dialog) {
    return editor.prompts.AskSavePath(dialog).value_or("");
}

std::string TextureFolder(const Editor& editor) {
    return editor.DataFolder() + "/ObjTextures";
}

void ReportSave(Editor& editor, bool saved) {
    if (!saved) ShowError(editor, "Error: Unable to save file!");
}

FileDialog TemplateDialog(std::string title) {
    return {std::move(title), "Korvane Source Code Templates (*.kvcode)", "*.kvcode", "kvcode", ""};
}

}  // namespace

void Export3DS(Editor& editor) {
    if (!AskTextureNames(editor)) return;
    const std::string path =
        AskTarget(editor, {"Export 3DS File...", "3DStudio Files (*.3ds)", "*.3ds", "3ds",
                           WithExtension(editor.CurrentObjectPath, "3ds")});
    if (path.empty()) return;
    ReportSave(editor, Save3DS(path, editor.scene, editor.textures, editor.exportedParts));
}

void ExportOBJ(Editor& editor) {
    const std::string path =
        AskTarget(editor, {"Export OBJ File...", "Wavefront Files (*.obj)", "*.obj", "obj",
                           WithExtension(editor.CurrentObjectPath, "obj")});
    if (path.empty()) return;
    ReportSave(editor, SaveOBJ(path, editor.scene, editor.textures, TextureFolder(editor)));
}

void ExportGLB(Editor& editor) {
    const std::string path =
        AskTarget(editor, {"Export GLB File...", "glTF Binary Files (*.glb)", "*.glb", "glb",
                           WithExtension(editor.CurrentObjectPath, "glb")});
    if (path.empty()) return;
    const auto makePng = [&editor](const std::string& file) { return editor.host.PngOf(file); };
    ReportSave(editor,
               SaveGLB(path, editor.scene, editor.textures, TextureFolder(editor), makePng));
}

void ExportSourceCode(Editor& editor, const CodeTemplate& code) {
    editor.codeTemplate = code;
    const std::string path = AskTarget(
        editor, {"Export Source Code Text...", "Source Code Text (*.txt)", "*.txt", "txt", ""});
    if (path.empty()) return;
    ReportSave(editor, SaveSourceCode(path, code, editor.scene, editor.textures));
}

std::optional<CodeTemplate> OpenCodeTemplate(Editor& editor) {
    const auto path = editor.prompts.AskOpenPath(TemplateDialog("Open Source Code Template..."));
    if (!path || path->empty()) return std::nullopt;
    const auto bytes = LoadFile(*path);
    if (!bytes) {
        ShowError(editor, "Error: Unable to load file!");
        return std::nullopt;
    }
    auto code = DecodeTemplate(*bytes);
    if (!code) ShowError(editor, "Error: Invalid Source Code Template File!");
    return code;
}

void SaveCodeTemplate(Editor& editor, const CodeTemplate& code) {
    const std::string path = AskTarget(editor, TemplateDialog("Save Souce Code Template..."));
    if (path.empty()) return;
    ReportSave(editor, SaveFile(path, EncodeTemplate(code)));
}

}  // namespace korvane
