#include "editor/mRotationMarker.h"

#include <algorithm>

#include "base/NumberText.h"
#include "scene/mTransform.h"

namespace korvane {

void ShowMarker(Editor& editor) {
    ++editor.markerForms;
    if (editor.settings.setMarker) editor.scene.marker = SelectionCentre(editor.scene);
    editor.scene.markerShown = true;
    ShowMarkerPosition(editor);
    RedrawAllViews(editor);
}

void HideMarker(Editor& editor) {
    editor.markerForms = std::max(editor.markerForms - 1, 0);
    if (editor.markerForms > 0) return;
    editor.scene.markerShown = false;
    editor.host.ShowStatus(0, "");
}

void ShowMarkerPosition(const Editor& editor) {
    const Vec3& p = editor.scene.marker;
    editor.host.ShowStatus(0, "Rotation Marker: X: " + FormatFixed(p.x, 2, 2) + "  Y: " +
                                  FormatFixed(p.y, 2, 2) + "  Z: " + FormatFixed(p.z, 2, 2));
}

}  // namespace korvane
