// The select dialog: brushes chosen by group, by name and by texture; and the group-name box.
#pragma once

#include <string>
#include <vector>

#include "editor/Editor.h"

namespace korvane {

/// The entries of the three lists. Row 0 of the groups stands for the brushes without a group, row
/// 0 of the textures for the faces without a texture.
struct SelectLists {
    std::vector<std::string> groups;
    std::vector<std::string> brushes;
    std::vector<std::string> textures;
};

/// The chosen rows of each list.
struct SelectChoice {
    std::vector<std::size_t> groups;
    std::vector<std::size_t> brushes;
    std::vector<std::size_t> textures;
};

/// What the lists show for the scene: each group, name and texture once, ignoring letter case, in
/// the order of their first use.
SelectLists ListsForSelecting(const Editor& editor);

/// The dialog's Okay: adds the brushes of the chosen rows to the selection, takes the depth range
/// from it and refreshes.
void SelectListed(Editor& editor, const SelectLists& lists, const SelectChoice& choice);

/// Sets the group of every selected brush; an empty text takes them out of their group. No snapshot
/// is taken and nothing redrawn; the object counts as modified when a group really changed.
/// Characters that files can't hold are replaced at once, not by a later undo.
void SetGroupOfSelection(Editor& editor, const std::string& text);

}  // namespace korvane
