#include "editor/mSelectDialog.h"

#include <unordered_set>
#include <utility>

#include "base/SingleByteText.h"
#include "editor/mUndo.h"
#include "scene/mSelection.h"
#include "scene/mStatistics.h"

namespace korvane {
namespace {

const char kNonGrouped[] = " <Non-Grouped-Brushes> ";
const char kNonTextured[] = " <Non-Textured> ";

/// A list that takes each text once, ignoring letter case.
class DistinctTexts {
  public:
    void Add(const std::string& text) {
        if (known_.insert(LowerCase(text)).second) texts_.push_back(text);
    }
    std::vector<std::string> Take() { return std::move(texts_); }

  private:
    std::vector<std::string> texts_;
    std::unordered_set<std::string> known_;
};

std::vector<std::string> ListGroups(const Scene& scene) {
    DistinctTexts groups;
    groups.Add(kNonGrouped);
    for (const std::string& group : GroupsOf(scene)) groups.Add(group);
    return groups.Take();
}

std::vector<std::string> ListNames(const Scene& scene) {
    DistinctTexts names;
    for (const Brush& brush : scene.brushes) names.Add(brush.name);
    return names.Take();
}

std::vector<std::string> ListTextures(const Scene& scene, const TextureLibrary& library) {
    DistinctTexts names;
    names.Add(kNonTextured);
    std::unordered_set<std::int32_t> seen;
    for (const Brush& brush : scene.brushes) {
        for (const BrushFace& face : brush.faces) {
            if (!seen.insert(face.texture).second) continue;
            const std::string& name = library.TextureName(face.texture);
            if (!name.empty() && LowerCase(name) != "no material") names.Add(name);
        }
    }
    return names.Take();
}

std::vector<std::string> ChosenTexts(const std::vector<std::string>& list,
                                     const std::vector<std::size_t>& rows) {
    std::vector<std::string> texts;
    for (const std::size_t row : rows) texts.push_back(list.at(row));
    return texts;
}

std::vector<std::string> ChosenGroups(const SelectLists& lists, const SelectChoice& choice) {
    std::vector<std::string> groups = ChosenTexts(lists.groups, choice.groups);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (choice.groups[i] == 0) groups[i].clear();
    }
    return groups;
}

std::vector<std::int32_t> ChosenTextures(const SelectLists& lists, const SelectChoice& choice,
                                         const TextureLibrary& library) {
    std::vector<std::int32_t> textures;
    for (const std::size_t row : choice.textures) {
        textures.push_back(row == 0 ? 0 : library.IDByName(lists.textures.at(row)));
    }
    return textures;
}

}  // namespace

SelectLists ListsForSelecting(const Editor& editor) {
    return {ListGroups(editor.scene), ListNames(editor.scene),
            ListTextures(editor.scene, editor.textures)};
}

void SelectListed(Editor& editor, const SelectLists& lists, const SelectChoice& choice) {
    SelectByGroup(editor.scene, ChosenGroups(lists, choice));
    SelectByName(editor.scene, ChosenTexts(lists.brushes, choice.brushes));
    SelectByTexture(editor.scene, ChosenTextures(lists, choice, editor.textures));
    DepthRangeFromSelection(editor.scene, editor.depthRange);
    RefreshAll(editor);
}

void SetGroupOfSelection(Editor& editor, const std::string& text) {
    const std::string group = FromSingleByte(ToSingleByte(text));
    bool changed = false;
    for (Brush& brush : editor.scene.brushes) {
        if (!brush.selected || brush.group == group) continue;
        brush.group = group;
        changed = true;
    }
    if (!changed) return;
    MarkChanged(editor);
    UpdateCommandStates(editor);
}

}  // namespace korvane
