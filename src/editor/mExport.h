// The export commands with their prompts. All files are replaced whole or not at all; what can't be
// written is told to the user.
#pragma once

#include <optional>

#include "editor/Editor.h"

namespace korvane {

/// Exports the scene as a 3DStudio file, after the question about texture names unless that is
/// switched off.
void Export3DS(Editor& editor);

/// Exports the scene as a Wavefront file, its materials and their textures beside it.
void ExportOBJ(Editor& editor);

/// Exports the scene with its textures as a binary glTF file.
void ExportGLB(Editor& editor);

/// Asks for a file and writes the scene into it as source code; the session remembers the template.
void ExportSourceCode(Editor& editor, const CodeTemplate& code);

/// A template from a file that the user chooses; nothing when cancelled or when it can't be read,
/// which the user has been told then.
std::optional<CodeTemplate> OpenCodeTemplate(Editor& editor);

/// Saves the template to a file that the user chooses.
void SaveCodeTemplate(Editor& editor, const CodeTemplate& code);

}  // namespace korvane
