// Copying, pasting and deleting brushes. Each takes time linear in the brushes it handles.
#pragma once

#include "scene/Scene.h"

namespace korvane {

/// Replaces the clipboard by full copies of the selected brushes, in list order.
void CopySelection(Scene& scene);

/// Appends a copy of the brush, selected, with the default name of its index and none of its faces
/// and vertices selected. The brush must not be one of the scene's own; the reference holds until
/// the next one is added.
Brush& AddCopy(Scene& scene, const Brush& brush);

/// Unselects all brushes and appends a copy of each of the clipboard's. They lie exactly where they
/// were copied; normals and texture coordinates are copied with them.
void PasteClipboard(Scene& scene);

/// Removes the selected brushes and renumbers the names when any was removed.
void DeleteSelectedBrushes(Scene& scene);

}  // namespace korvane
