// Function table, key names and the order of the list in the preferences dialog.
#include "views/core/KeyMap.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace korvane {
namespace {

constexpr std::array<KeyFunctionInfo, kKeyFunctions> kFunctions = {{
    {"Move: Faster", 16},
    {"Move: Slower", 17},
    {"Move: Forward", 87},
    {"Move: Backward", 83},
    {"Move: Strafe Left", 65},
    {"Move: Strafe Right", 68},
    {"Move: Upwards", 33},
    {"Move: Downwards", 34},
    {"Turn: Left", 37},
    {"Turn: Right", 39},
    {"Turn: Look Up", 38},
    {"Turn: Look Down", 40},
    {"Mode: Brush", 66},
    {"Mode: Face", 70},
    {"Mode: Edge", 69},
    {"Mode: Vertex", 86},
    {"Select: Select", 72},
    {"Select: Unselect All", 27},
    {"Edit: Copy Selected", 67},
    {"Edit: Paste Selected", 80},
    {"Modify: Free Rotate", 82},
    {"Modify: Multiply", 77},
    {"Modify: Delete Brushes", 46},
    {"File: Save", 113},
    {"File: Save As", 123},
    {"View: 4-Way Split", 115},
    {"View: Top", 116},
    {"View: Left", 117},
    {"View: Front", 118},
    {"View: 3D", 119},
    {"Size: 3-Sided", 51},
    {"Size: 4-Sided", 52},
    {"Size: 5-Sided", 53},
    {"Size: 6-Sided", 54},
    {"Size: 7-Sided", 55},
    {"Size: 8-Sided", 56},
    {"Size: Arbitrarily-Sided", 48},
    {"Zoom: In", 107},
    {"Zoom: Out", 109},
    {"Zoom: Reset", 106},
    {"View: Reset All", 36},
}};

constexpr std::array<int, kKeyFunctions> kDisplayOrder = {
    0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20,
    21, 22, 30, 31, 32, 33, 34, 35, 36, 25, 26, 27, 28, 29, 40, 37, 38, 39, 23, 24};

struct NamedKey {
    int code;
    const char* name;
};

constexpr NamedKey kNamedKeys[] = {
    {0, "{UnDefined}"}, {8, "BACKSPACE"},     {9, "TAB"},         {13, "ENTER"},
    {16, "SHIFT"},      {17, "CTRL"},         {18, "ALT"},        {19, "PAUSE"},
    {20, "CAPS LOCK"},  {27, "ESC"},          {32, "SPACE BAR"},  {33, "PAGE UP"},
    {34, "PAGE DOWN"},  {35, "END"},          {36, "HOME"},       {37, "LEFT ARROW"},
    {38, "UP ARROW"},   {39, "RIGHT ARROW"},  {40, "DOWN ARROW"}, {45, "INSERT"},
    {46, "DELETE"},     {91, "WINDOWS"},      {93, "MENU"},       {106, "NUMPAD *"},
    {107, "NUMPAD +"},  {109, "NUMPAD -"},    {110, "NUMPAD ."},  {111, "NUMPAD /"},
    {144, "NUM LOCK"},  {145, "SCROLL LOCK"}, {186, ";"},         {187, "="},
    {188, ","},         {189, "-"},           {190, "."},         {191, "/"},
    {192, "~"},         {219, "["},           {220, "\\"},        {221, "]"},
    {222, "'"},
};

}  // namespace

const std::array<KeyFunctionInfo, kKeyFunctions>& KeyFunctionTable() {
    return kFunctions;
}

const std::array<int, kKeyFunctions>& KeyDisplayOrder() {
    return kDisplayOrder;
}

KeyMap::KeyMap() {
    std::transform(kFunctions.begin(), kFunctions.end(), codes.begin(),
                   [](const KeyFunctionInfo& f) { return f.standard; });
}

bool IsBound(const KeyMap& map, int code) {
    return code > 0 && std::find(map.codes.begin(), map.codes.end(), code) != map.codes.end();
}

std::string KeyName(int code) {
    if ((code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z'))
        return std::string(1, static_cast<char>(code));
    if (code >= 96 && code <= 105) return "NUMPAD " + std::to_string(code - 96);
    if (code >= 112 && code <= 123) return "F" + std::to_string(code - 111);
    const auto named = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                    [=](const NamedKey& k) { return k.code == code; });
    if (named != std::end(kNamedKeys)) return named->name;
    char text[24];
    std::snprintf(text, sizeof text, "[KEY: %03d]", code);
    return text;
}

}  // namespace korvane
