#include "files/Settings.h"

namespace korvane {

const std::array<ColorItemInfo, kColorItems>& ColorTable() {
    static constexpr std::array<ColorItemInfo, kColorItems> table = {{
        {"2D View: Background", MakeColor(255, 255, 255)},
        {"2D View: Brush Lines", MakeColor(0, 0, 0)},
        {"2D View: Selected Brushes", MakeColor(255, 0, 0)},
        {"2D View: Edge Nodes", MakeColor(128, 0, 128)},
        {"2D View: Selected Edges", MakeColor(255, 0, 255)},
        {"2D View: Vertex Nodes", MakeColor(0, 128, 128)},
        {"2D View: Selected Nodes", MakeColor(0, 255, 255)},
        {"3D View: Background", MakeColor(0, 0, 0)},
        {"3D View: Grid", MakeColor(64, 64, 80)},
        {"3D View: Selected Brushes", MakeColor(255, 128, 128)},
        {"3D View: Selected Faces", MakeColor(255, 255, 128)},
        {"Depth Guage: High", MakeColor(0, 128, 0)},
        {"Depth Guage: Low", MakeColor(128, 0, 0)},
        {"Grid: Normal", MakeColor(128, 128, 255)},
        {"Grid: Center", MakeColor(0, 0, 255)},
        {"Grid: Major", MakeColor(48, 48, 255)},
        {"Grid: Minor", MakeColor(192, 192, 255)},
        {"Ruler: Background", MakeColor(192, 192, 192)},
        {"Ruler: Text", MakeColor(0, 0, 255)},
        {"Texture List: Background", MakeColor(64, 64, 64)},
        {"Texture List: Selection", MakeColor(0, 255, 0)},
        {"Rotation: Marker", MakeColor(128, 0, 255)},
    }};
    return table;
}

ColorScheme::ColorScheme() {
    for (int i = 0; i < kColorItems; ++i) colors[i] = ColorTable()[i].standard;
}

}  // namespace korvane
