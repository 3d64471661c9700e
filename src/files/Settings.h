// What the user prefers: defaults, and the colours of the scheme.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "views/core/KeyMap.h"

namespace korvane {

/// A colour 0x00BBGGRR: red in the low byte.
using Color = std::uint32_t;

constexpr Color MakeColor(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
    return r | (g << 8) | (b << 16);
}
constexpr std::uint32_t Red(Color c) {
    return c & 0xFF;
}
constexpr std::uint32_t Green(Color c) {
    return (c >> 8) & 0xFF;
}
constexpr std::uint32_t Blue(Color c) {
    return (c >> 16) & 0xFF;
}

/// The items of the colour scheme, in the order of the preferences dialog.
enum class ColorItem : int {
    View2DBackground,
    View2DBrushLines,
    View2DSelectedBrushes,
    View2DEdgeNodes,
    View2DSelectedEdges,
    View2DVertexNodes,
    View2DSelectedNodes,
    View3DBackground,
    View3DGrid,
    View3DSelectedBrushes,
    View3DSelectedFaces,
    DepthGaugeHigh,
    DepthGaugeLow,
    GridNormal,
    GridCenter,
    GridMajor,
    GridMinor,
    RulerBackground,
    RulerText,
    TextureListBackground,
    TextureListSelection,
    RotationMarker,
};
inline constexpr int kColorItems = 22;

/// One row of the colour table.
struct ColorItemInfo {
    const char* name;  ///< as the preferences dialog lists it
    Color standard;    ///< default colour
};

/// The colour table in ColorItem order.
const std::array<ColorItemInfo, kColorItems>& ColorTable();

/// A colour for every item, indexed by ColorItem.
struct ColorScheme {
    std::array<Color, kColorItems> colors;

    /// The default scheme.
    ColorScheme();
    Color operator[](ColorItem item) const { return colors[static_cast<int>(item)]; }
    Color& operator[](ColorItem item) { return colors[static_cast<int>(item)]; }
};

enum ViewLayout : std::int16_t {
    FourWay = 0,
    TopOnly = 1,
    LeftOnly = 2,
    FrontOnly = 3,
    PreviewOnly = 4
};

/// The questions that the user can switch off, by their place in the settings.
enum Warning : int {
    WarnDeleteBrush = 0,
    WarnDeleteBrushes = 1,
    WarnNew = 2,
    WarnOpen = 3,
    WarnExit = 4,
    WarnExport3DS = 5
};
inline constexpr int kWarnings = 6;

/// What a size may be, bounds included.
struct SizeRange {
    double least;
    double most;
};
inline constexpr SizeRange kSnapRange{0.01, 10};
inline constexpr SizeRange kPickerRange{0.01, 1};
inline constexpr SizeRange kTextureScaleRange{1, 200};

/// Where the main window stood, in twips (1/1440 inch).
struct WindowPlace {
    std::int16_t state = -1;  ///< -1 none stored, 0 normal, 1 minimised, 2 maximised
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

/// Most paths that the recent-files list holds.
inline constexpr std::size_t kRecentFiles = 5;

/// All settings that outlive a run, with their defaults.
struct Settings {
    std::int16_t ViewLayout = FourWay;
    float snapSize = 0.1F;      ///< world units, 0.01..10
    float pickerSize = 0.05F;   ///< world units, 0.01..1
    float TextureScale = 4.0F;  ///< world units covered by 512 texture pixels
    bool showRulers = true;
    bool showInvisible = true;
    bool show3DGrid = true;
    bool snapToGrid = true;
    bool setMarker = true;
    bool rememberWindow = true;
    WindowPlace window;
    std::array<bool, kWarnings> warnings = {true, true, true, true, true, true};
    ColorScheme colors;
    KeyMap keyMap;
    std::vector<std::string> recentFiles;  ///< UTF-8 paths, the newest first, none empty

    /// Step of the grid that points snap to, world units; 0 with snap off.
    float SnapStep() const { return snapToGrid ? snapSize : 0; }
};

}  // namespace korvane
