// The commands of the Edit and Modify menus that change the scene or its selection.
#pragma once

#include "editor/Editor.h"

namespace korvane {

void UndoLastChange(Editor& editor);
void RedoLastChange(Editor& editor);
void CopyBrushes(Editor& editor);
void PasteBrushes(Editor& editor);
void UnSelectCommand(Editor& editor);

/// Asks first, where the user wants to be asked.
void DeleteBrushes(Editor& editor);

/// Transforms of the selected brushes: degrees about the axes, or the axes to mirror across.
void RotateBrushes(Editor& editor, float ax, float ay, float az);
void FlipBrushes(Editor& editor, bool fx, bool fy, bool fz);
void InvertBrushes(Editor& editor);

}  // namespace korvane
