#include <cmath>

#include "Fuzz.h"
#include "files/mPreferenceFiles.h"
#include "files/mSettingsFile.h"

namespace korvane::fuzz {
namespace {

bool IsWithin(float size, const SizeRange& range) {
    return size >= static_cast<float>(range.least) && size <= static_cast<float>(range.most);
}

void RequireColors(const ColorScheme& scheme) {
    for (const Color color : scheme.colors) Require(color <= 0xFFFFFF, "colours have 24 bits");
}

/// Whatever the file holds, the program can work with these.
void RequireUsable(const Settings& settings) {
    Require(IsWithin(settings.snapSize, kSnapRange) &&
                IsWithin(settings.pickerSize, kPickerRange) &&
                IsWithin(settings.TextureScale, kTextureScaleRange),
            "sizes are within their ranges");
    Require(settings.ViewLayout >= FourWay && settings.ViewLayout <= PreviewOnly,
            "the layout exists");
    const WindowPlace& window = settings.window;
    Require(window.state >= -1 && window.state <= 2 && std::isfinite(window.left) &&
                std::isfinite(window.top) && std::isfinite(window.width) &&
                std::isfinite(window.height),
            "the window has a place");
    Require(settings.recentFiles.size() <= kRecentFiles, "the recent files fit their list");
    for (const std::string& path : settings.recentFiles)
        Require(!path.empty(), "no recent file is nameless");
    RequireColors(settings.colors);
}

bool SameSettings(const Settings& a, const Settings& b) {
    const auto numbers = [](const Settings& s) {
        return std::array{s.snapSize,   s.pickerSize,   s.TextureScale, s.window.left,
                          s.window.top, s.window.width, s.window.height};
    };
    const auto choices = [](const Settings& s) {
        return std::array<int, 8>{s.ViewLayout, s.window.state, s.showRulers, s.showInvisible,
                                  s.show3DGrid, s.snapToGrid,   s.setMarker,  s.rememberWindow};
    };
    return SameBits(numbers(a), numbers(b)) && choices(a) == choices(b) &&
           a.warnings == b.warnings && a.colors.colors == b.colors.colors &&
           a.keyMap.codes == b.keyMap.codes && a.recentFiles == b.recentFiles;
}

}  // namespace

void CheckSettings(Input input) {
    Settings settings;
    bool foreign = false;
    {
        const HeapMeter meter;
        DecodeSettings(input, settings, &foreign);
        meter.RequireWithin(Allowance(input, 8));
    }
    RequireUsable(settings);
    const Bytes saved = EncodeSettings(settings);
    Settings again;
    Require(DecodeSettings(saved, again, &foreign) && !foreign,
            "settings load from their own file");
    Require(SameSettings(settings, again), "settings come back from their file");
    Require(EncodeSettings(again) == saved, "the second file equals the first");
}

void CheckColorScheme(Input input) {
    const auto scheme = DecodeColorScheme(input, ColorScheme());
    if (!scheme) return;
    RequireColors(*scheme);
    const Bytes saved = EncodeColorScheme(*scheme);
    ColorScheme black;
    black.colors.fill(0);
    const auto again = DecodeColorScheme(saved, black);
    Require(again && again->colors == scheme->colors, "the scheme comes back from its file");
}

void CheckKeyMap(Input input) {
    const auto map = DecodeKeyMap(input, KeyMap());
    if (!map) return;
    for (const std::int16_t code : map->codes)
        Require(!KeyName(code).empty(), "every key has a name");
    const Bytes saved = EncodeKeyMap(*map);
    KeyMap none;
    none.codes.fill(0);
    const auto again = DecodeKeyMap(saved, none);
    Require(again && again->codes == map->codes, "the keyboard map comes back from its file");
}

}  // namespace korvane::fuzz
