// Selection is stored in the records; faces and vertices count only inside selected brushes.
#pragma once

#include <span>
#include <string>

#include "scene/Scene.h"

namespace korvane {

/// Number of selected brushes.
std::int32_t CountSelectedBrushes(const Scene& scene);

/// Number of selected faces of selected brushes.
std::int32_t CountSelectedFaces(const Scene& scene);

/// Number of selected vertices of selected brushes.
std::int32_t CountSelectedVertices(const Scene& scene);

/// Index of the first selected brush, or -1.
std::int32_t SelectedBrushIndex(const Scene& scene);

/// Clears the flag of every brush; flags of faces and vertices are left as they are.
void UnselectAllBrushes(Scene& scene);

/// Clears the flags of all faces of one brush.
void ClearFaceSelection(Brush& brush);

/// Clears the flags of all vertices of one brush.
void ClearVertexSelection(Brush& brush);

/// ClearFaceSelection of every selected brush.
void ClearSelectedFaces(Scene& scene);

/// ClearVertexSelection of every selected brush.
void ClearSelectedVertices(Scene& scene);

/// Makes the brush the only selected one, with none of its faces and vertices selected.
void SelectOnly(Scene& scene, std::int32_t index);

/// Selects every brush that bears one of the names, ignoring letter case, and clears the selection
/// of its faces and vertices. Other brushes keep their state.
void SelectByName(Scene& scene, std::span<const std::string> names);

/// The same by group; an empty group stands for the brushes without one.
void SelectByGroup(Scene& scene, std::span<const std::string> groups);

/// Selects every brush that has a face of one of the textures; flags of faces and vertices are left
/// as they are.
void SelectByTexture(Scene& scene, std::span<const std::int32_t> textures);

/// Gives all faces of the face's polygon the opposite of its selection.
void ToggleFacePolygon(Brush& brush, std::int32_t face);

/// The UnSelect command: what it clears depends on the edit mode. In Face Edit the faces, in Edge
/// and Vertex Move the vertices of the selected brushes when any is selected; otherwise all
/// brushes.
void UnSelect(Scene& scene);

}  // namespace korvane
