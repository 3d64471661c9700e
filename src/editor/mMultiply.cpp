#include "editor/mMultiply.h"

#include <algorithm>
#include <limits>

#include "base/Rounding.h"
#include "editor/TypedNumber.h"
#include "editor/mCommands.h"
#include "editor/mRotationMarker.h"
#include "editor/mUndo.h"
#include "scene/mClipboard.h"
#include "scene/mSelection.h"
#include "scene/mTransform.h"

namespace korvane {
namespace {

/// Bytes of records that copies may take: with as much again for a snapshot a usual machine holds
/// them.
constexpr double kMostBytes = 2e9;

StepBoxes BoxesOf(const Vec3& step) {
    return {{BoxText(step.x), BoxText(step.y), BoxText(step.z), "", "", ""}, false};
}

void UpdateRow(StepBoxes& row, double count) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (!row.asTotals) {
            row.texts[i + 3] = BoxText(TypedNumber(row.texts[i]) * count);
        } else {
            row.texts[i] = count == 0 ? "0" : BoxText(TypedNumber(row.texts[i + 3]) / count);
        }
    }
}

Vec3 StepOf(const StepBoxes& row) {
    return {TypedCoordinate(row.texts[0]), TypedCoordinate(row.texts[1]),
            TypedCoordinate(row.texts[2])};
}

std::int16_t CountOf(const std::string& text) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<std::int32_t>(RoundToInt(TypedNumber(text)), Limits::min(), Limits::max()));
}

double BytesOfSelection(const Scene& scene) {
    double bytes = 0;
    for (const Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        bytes += static_cast<double>(sizeof(Brush) + brush.vertices.size() * sizeof(Vertex) +
                                     brush.faces.size() * sizeof(BrushFace));
    }
    return bytes;
}

Vec3 Times(const Vec3& step, int i) {
    return {static_cast<float>(double{step.x} * i), static_cast<float>(double{step.y} * i),
            static_cast<float>(double{step.z} * i)};
}

/// Appends copy number i of the clipboard.
void AppendCopy(Editor& editor, const Multiply& multiply, int i) {
    Scene& scene = editor.scene;
    const Vec3 delta = Times(multiply.move, -i);
    const Vec3 angles = Times(multiply.rotation, i);
    const float snapSize = editor.settings.SnapStep();
    const Turn turn = TurnAbout(scene.marker, angles.x, angles.y, angles.z);
    for (const Brush& source : scene.clipboard) {
        Brush& brush = AddCopy(scene, source);
        for (Vertex& v : brush.vertices) v.MoveTo(MovedPoint(v.Position(), delta, snapSize));
        TurnBrush(brush, turn, editor.Space());
        brush.selected = i == multiply.count;
    }
}

}  // namespace

MultiplyBoxes OpenMultiply(Editor& editor) {
    ShowMarker(editor);
    const Multiply& last = editor.multiply;
    MultiplyBoxes boxes{std::to_string(last.count), BoxesOf(last.move), BoxesOf(last.rotation)};
    UpdateDependentBoxes(boxes);
    return boxes;
}

void UpdateDependentBoxes(MultiplyBoxes& boxes) {
    const double count = Int(TypedNumber(boxes.count));
    UpdateRow(boxes.move, count);
    UpdateRow(boxes.rotate, count);
}

bool RunMultiply(Editor& editor, const MultiplyBoxes& boxes) {
    const Multiply multiply{CountOf(boxes.count), StepOf(boxes.move), StepOf(boxes.rotate)};
    if (BytesOfSelection(editor.scene) * multiply.count > kMostBytes) {
        ShowError(editor, "Error: Too many copies for one object!");
        return false;
    }
    editor.multiply = multiply;
    TakeUndoSnapshot(editor, CommandTitle(*FindCommand("mnuMultiply")));
    Scene& scene = editor.scene;
    CopySelection(scene);
    if (multiply.count > 0) UnselectAllBrushes(scene);
    for (int i = 1; i <= multiply.count; ++i) AppendCopy(editor, multiply, i);
    scene.clipboard.clear();
    RefreshAll(editor);
    return true;
}

void CloseMultiply(Editor& editor) {
    HideMarker(editor);
    RefreshAll(editor);
}

}  // namespace korvane
