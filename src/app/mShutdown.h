// The way out of the program.
#pragma once

#include "editor/Editor.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

/// Asks about unsaved changes where the user wants to be asked, and saves on Yes. False when the
/// program has to stay: the user cancelled, or what should be saved could not be.
bool MayClose(Editor& editor);

/// Gives the render context back; a failure is told and changes nothing else.
void CloseRenderContext(Editor& editor, RenderContext& context);

}  // namespace korvane
