// The property panel without its window: what it shows of the selection, and the edits of the
// selection's faces. Edits take no undo snapshot. Each changes the selected faces of the selected
// brushes or, where no face is selected, all their faces; the object counts as modified when a
// field really changed.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editor/Editor.h"

namespace korvane {

inline constexpr std::int32_t kMostTransparency = 100;  ///< percent
inline constexpr std::int32_t kMostRotation = 360;      ///< degrees

/// What the boxes of name, group and texture show of several brushes or faces.
inline constexpr const char* kMultipleBrushes = "*Multiple Brushes*";
inline constexpr const char* kMultipleGroups = "*Multiple Groups*";
inline constexpr const char* kMultipleTextures = "*Multiple Textures*";

/// State of a check box.
enum class Check { Unchecked, Checked, Mixed };

/// What the panel shows: the faces of the selected brushes or, of a single brush with selected
/// faces, those.
struct ShownProperties {
    std::int32_t selectedBrushes = 0;  ///< with none the rest is as it is here
    std::string name;
    std::string group;
    Check invisible = Check::Unchecked;
    Check smooth = Check::Unchecked;
    Check transparent = Check::Unchecked;
    Check localCoords = Check::Unchecked;
    Check rotated = Check::Unchecked;
    Check flipped = Check::Unchecked;
    Check mirrored = Check::Unchecked;
    std::int32_t transparency = 0;        ///< percent; common to all where transparent is Checked
    std::int32_t rotation = 0;            ///< degrees; common to all where rotated is Checked
    std::array<std::string, 2> offsets;   ///< X and Y, "0" where they differ
    std::array<std::string, 2> repeats;   ///< X and Y, "1" where they differ
    std::optional<std::int32_t> texture;  ///< common to all
};

/// What the panel shows of the scene, in one pass over its selected brushes.
ShownProperties PropertiesOf(const Scene& scene);

/// The three display settings; everything is refreshed afterwards.
void SetInvisible(Editor& editor, bool invisible);
void SetSmooth(Editor& editor, bool smooth);
void SetTransparency(Editor& editor, std::int32_t percent);

/// Local or world mapping; texture coordinates of the selected brushes, then everything, follow.
void SetLocalCoords(Editor& editor, bool local);

/// Offset and repeat of local mapping along axis 0 (X) or 1 (Y), as typed; the other axis stays as
/// it is. The same follows.
void SetTextureOffset(Editor& editor, int axis, std::string_view text);
void SetTextureRepeat(Editor& editor, int axis, std::string_view text);

/// The settings applied last to a texture. Texture coordinates of every brush follow, and the
/// preview is redrawn.
void SetTextureRotation(Editor& editor, std::int32_t degrees);
void SetTextureFlipped(Editor& editor, bool flipped);
void SetTextureMirrored(Editor& editor, bool mirrored);

}  // namespace korvane
