#include "editor/mViewPointer.h"

#include "base/NumberText.h"
#include "scene/mNormals.h"
#include "scene/mSelection.h"
#include "views/core/mViewEdit.h"

namespace korvane {
namespace {

PressEffect EffectOfGesture(const ViewGesture& gesture) {
    if (gesture.panning) return PressEffect::Pan;
    return gesture.creating ? PressEffect::Create : PressEffect::Move;
}

/// In Edge Move and Vertex Move.
PressEffect EffectOnVertices(const Editor& editor, int view, const MouseInput& mouse) {
    Vec3 point;
    ScreenToWorld(editor.views[static_cast<std::size_t>(view)], view, mouse.x, mouse.y, point);
    const auto isNear = editor.scene.editMode == EdgeMove ? IsEdgeNear : IsVertexNear;
    if (isNear(editor.scene, view, point, editor.settings.pickerSize)) return PressEffect::Pick;
    const bool moves = mouse.modifiers != CtrlKey && CountSelectedVertices(editor.scene) > 0;
    return moves ? PressEffect::Move : PressEffect::Nothing;
}

std::string Joined(const Vec3& p, const char* separator) {
    return FormatFixed(p.x, 1, 2) + separator + FormatFixed(p.y, 1, 2) + separator +
           FormatFixed(p.z, 1, 2);
}

}  // namespace

PressEffect EffectOfPress(const Editor& editor, int view, const MouseInput& mouse) {
    const ViewGesture& gesture = editor.gesture;
    if ((gesture.dragging || gesture.panning) && gesture.view == view)
        return EffectOfGesture(gesture);
    const bool selection = SelectedBrushIndex(editor.scene) >= 0;
    if (editor.scene.markerShown) return PressEffect::Move;
    if (!selection && mouse.modifiers == NoModifier) return PressEffect::Create;
    switch (editor.scene.editMode) {
        case BrushMove:
            if (mouse.modifiers == CtrlKey) return PressEffect::Pick;
            return selection ? PressEffect::Move : PressEffect::Nothing;
        case EdgeMove:
        case VertexMove:
            return EffectOnVertices(editor, view, mouse);
        default:
            return PressEffect::Nothing;  // faces are picked in the preview
    }
}

std::string SelectionText(const Scene& scene) {
    if (SelectedBrushIndex(scene) < 0) return {};
    const Bounds bounds = SelectionBounds(scene);
    return Joined(Difference(bounds.min, bounds.max), " x ") + " at " +
           Joined(Midpoint(bounds.min, bounds.max), ", ");
}

}  // namespace korvane
