#include "editor/mPropertyEdits.h"

#include <utility>

#include "base/NumberText.h"
#include "editor/TypedNumber.h"
#include "editor/mUndo.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

/// A field over several faces.
template <class Value>
struct Common {
    Value first{};
    bool same = true;  ///< no later face differs from the first
};

Check StateOf(const Common<bool>& flag) {
    if (!flag.same) return Check::Mixed;
    return flag.first ? Check::Checked : Check::Unchecked;
}

Check StateOf(const Common<std::int32_t>& level) {
    if (!level.same) return Check::Mixed;
    return level.first > 0 ? Check::Checked : Check::Unchecked;
}

std::string TextOf(const Common<float>& number, float whereDifferent) {
    return FormatGeneral(number.same ? number.first : whereDifferent);
}

/// The faces of the selection, field by field.
class FaceSummary {
  public:
    void Add(const BrushFace& face) {
        if (std::exchange(empty_, false)) {
            ForEachField(face, [](auto& field, auto value) { field.first = value; });
        } else {
            ForEachField(face, [](auto& field, auto value) { field.same &= field.first == value; });
        }
    }

    void Show(ShownProperties& shown) const {
        shown.invisible = StateOf(invisible_);
        shown.smooth = StateOf(smooth_);
        shown.transparent = StateOf(transparency_);
        shown.localCoords = StateOf(localCoords_);
        shown.rotated = StateOf(rotation_);
        shown.flipped = StateOf(flipped_);
        shown.mirrored = StateOf(mirrored_);
        shown.transparency = transparency_.first;
        shown.rotation = rotation_.first;
        shown.offsets = {TextOf(offsetX_, 0), TextOf(offsetY_, 0)};
        if (texture_.same) shown.texture = texture_.first;
        shown.repeats = {TextOf(repeatX_, 1), TextOf(repeatY_, 1)};
    }

  private:
    template <class Action>
    void ForEachField(const BrushFace& face, Action action) {
        action(invisible_, bool{face.invisible});
        action(smooth_, face.smooth == 1);
        action(transparency_, face.transparency);
        action(localCoords_, bool{face.localCoords});
        action(offsetX_, face.offsetX);
        action(offsetY_, face.offsetY);
        action(repeatX_, face.repeatX);
        action(repeatY_, face.repeatY);
        action(rotation_, face.rotation);
        action(flipped_, bool{face.flipped});
        action(mirrored_, bool{face.mirrored});
        action(texture_, face.texture);
    }

    bool empty_ = true;
    Common<bool> invisible_, smooth_, localCoords_, flipped_, mirrored_;
    Common<std::int32_t> transparency_, rotation_, texture_;
    Common<float> offsetX_, offsetY_;
    Common<float> repeatX_{1}, repeatY_{1};
};

void ShowFaces(const Scene& scene, ShownProperties& shown) {
    const bool onlySelected = shown.selectedBrushes == 1 && CountSelectedFaces(scene) > 0;
    FaceSummary summary;
    for (const Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        for (const BrushFace& face : brush.faces) {
            if (face.selected || !onlySelected) summary.Add(face);
        }
    }
    summary.Show(shown);
}

void ShowNames(const Scene& scene, ShownProperties& shown) {
    const Brush* first = nullptr;
    bool sameGroup = true;
    for (const Brush& brush : scene.brushes) {
        if (!brush.selected) continue;
        if (first == nullptr) first = &brush;
        sameGroup = sameGroup && brush.group == first->group;
        ++shown.selectedBrushes;
    }
    if (first == nullptr) return;
    shown.name = shown.selectedBrushes > 1 ? kMultipleBrushes : first->name;
    shown.group = sameGroup ? first->group : kMultipleGroups;
}

/// Gives one field of every target face the value; raw bits count, so that a flag of foreign origin
/// becomes a proper one.
template <class Field>
void SetField(Editor& editor, Field BrushFace::*field, Field value) {
    const auto differs = [](const Field& a, const Field& b) {
        if constexpr (std::is_same_v<Field, Flag16>) return a.raw != b.raw;
        return a != b;
    };
    const bool onlySelected = CountSelectedFaces(editor.scene) > 0;
    for (Brush& brush : editor.scene.brushes) {
        if (!brush.selected) continue;
        bool changed = false;
        for (BrushFace& face : brush.faces) {
            if (onlySelected && !face.selected) continue;
            changed |= differs(face.*field, value);
            face.*field = value;
        }
        if (!changed) continue;
        Touch(brush);
        MarkChanged(editor);
    }
}

template <class Field>
void SetDisplay(Editor& editor, Field BrushFace::*field, Field value) {
    SetField(editor, field, value);
    RefreshAll(editor);
}

template <class Field>
void SetMapping(Editor& editor, Field BrushFace::*field, Field value) {
    SetField(editor, field, value);
    UpdateSelectedTextureCoords(editor.scene, editor.Space());
    RefreshAll(editor);
}

/// One step of a dragged slider among others: title and commands need telling only once.
template <class Field>
void SetFinish(Editor& editor, Field BrushFace::*field, Field value) {
    const bool known = editor.SceneModified && editor.undo.redo.empty();
    SetField(editor, field, value);
    UpdateAllTextureCoords(editor.scene, editor.Space(), editor.knownCoords);
    editor.host.RequestRedraw(RedrawPreview);
    if (editor.SceneModified && !known) UpdateCommandStates(editor);
}

float TypedFloat(std::string_view text) {
    return static_cast<float>(TypedNumber(text));
}

}  // namespace

ShownProperties PropertiesOf(const Scene& scene) {
    ShownProperties shown;
    ShowNames(scene, shown);
    if (shown.selectedBrushes > 0) ShowFaces(scene, shown);
    return shown;
}

void SetInvisible(Editor& editor, bool invisible) {
    SetDisplay(editor, &BrushFace::invisible, Flag16(invisible));
}

void SetSmooth(Editor& editor, bool smooth) {
    SetDisplay(editor, &BrushFace::smooth, std::uint8_t{smooth});
}

void SetTransparency(Editor& editor, std::int32_t percent) {
    SetDisplay(editor, &BrushFace::transparency, percent);
}

void SetLocalCoords(Editor& editor, bool local) {
    SetMapping(editor, &BrushFace::localCoords, Flag16(local));
}

void SetTextureOffset(Editor& editor, int axis, std::string_view text) {
    SetMapping(editor, axis == 0 ? &BrushFace::offsetX : &BrushFace::offsetY, TypedFloat(text));
}

void SetTextureRepeat(Editor& editor, int axis, std::string_view text) {
    SetMapping(editor, axis == 0 ? &BrushFace::repeatX : &BrushFace::repeatY, TypedFloat(text));
}

void SetTextureRotation(Editor& editor, std::int32_t degrees) {
    SetFinish(editor, &BrushFace::rotation, degrees);
}

void SetTextureFlipped(Editor& editor, bool flipped) {
    SetFinish(editor, &BrushFace::flipped, Flag16(flipped));
}

void SetTextureMirrored(Editor& editor, bool mirrored) {
    SetFinish(editor, &BrushFace::mirrored, Flag16(mirrored));
}

}  // namespace korvane
