#include "files/mSettingsFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/SingleByteText.h"
#include "files/FileBuffer.h"
#include "files/mPreferenceFiles.h"

namespace korvane {
namespace {

// The file keeps the order in which the settings came into being, which is neither the order of the
// preferences dialog nor that of the slots. Two settings are younger and stand in chunks of their
// own behind the rest.

using enum ColorItem;

constexpr ColorItem kColorOrder[] = {
    View2DBrushLines,
    View2DSelectedBrushes,
    DepthGaugeHigh,
    DepthGaugeLow,
    View2DEdgeNodes,
    View2DSelectedEdges,
    View3DBackground,
    View3DSelectedBrushes,
    View3DSelectedFaces,
    GridCenter,
    GridMajor,
    GridMinor,
    GridNormal,
    RulerText,
    RulerBackground,
    ColorItem::RotationMarker,
    View2DVertexNodes,
    View2DSelectedNodes,
    TextureListBackground,
    TextureListSelection,
    View2DBackground,
};
static_assert(std::size(kColorOrder) == kColorItems - 1);

constexpr int kKeyOrder[] = {22, 20, 12, 14, 13, 15, 3,  7,  0,  2,  4,  5,  1,  6,
                             21, 40, 23, 24, 18, 16, 19, 30, 31, 32, 33, 34, 35, 36,
                             11, 8,  9,  10, 17, 29, 25, 28, 27, 26, 37, 38, 39};
static_assert(std::size(kKeyOrder) == kKeyFunctions);

constexpr int kOldWarnings = WarnExport3DS;

void WriteFlag(FileWriter& file, bool flag) {
    file.WriteByte(flag ? 255 : 0);
}

void WriteStat(FileWriter& file, const Settings& settings) {
    file.WriteTag("STAT");
    file.WriteSingle(settings.TextureScale);
    file.WriteSingle(settings.pickerSize);
    file.WriteSingle(settings.snapSize);
    WriteFlag(file, settings.snapToGrid);
    WriteFlag(file, settings.setMarker);
    WriteFlag(file, settings.showRulers);
    WriteFlag(file, settings.showInvisible);
    file.WriteLong(settings.ViewLayout);
}

void WriteWindow(FileWriter& file, const Settings& settings) {
    const WindowPlace& window = settings.window;
    file.WriteTag("WPOS");
    WriteFlag(file, settings.rememberWindow);
    file.WriteLong(window.state);
    for (const float length : {window.left, window.top, window.width, window.height})
        file.WriteSingle(length);
}

void WriteRecent(FileWriter& file, const Settings& settings) {
    std::array<std::string_view, kRecentFiles> entries;
    const std::size_t count = std::min(settings.recentFiles.size(), kRecentFiles);
    std::ranges::copy_if(
        std::span(settings.recentFiles).first(count), entries.begin(),
        [](const std::string& path) { return FromSingleByte(ToSingleByte(path)) == path; });
    file.WriteTag("RCNT");
    file.WriteLong(static_cast<std::int32_t>(entries.size()));
    for (const std::string_view path : entries) file.WriteCountedString(path);
}

/// The fields of a settings file, read into the settings one by one. Beyond the end of the file
/// nothing is touched any more.
class SettingsReader {
  public:
    SettingsReader(std::span<const std::uint8_t> bytes, Settings& settings)
        : file_(bytes), settings_(settings) {}

    /// What is behind the last chunk that could be read is unknown.
    bool Foreign() const { return foreign_; }

    /// False when the file is damaged.
    bool Read() {
        return ReadStat() && ReadWindow() && ReadRecent() && ReadWarnings() && ReadColors() &&
               ReadKeys() && ReadYounger();
    }

  private:
    bool ReadStat() {
        if (file_.ReadTag() != "STAT") return false;
        Size(settings_.TextureScale, kTextureScaleRange);
        Size(settings_.pickerSize, kPickerRange);
        Size(settings_.snapSize, kSnapRange);
        Flag(settings_.snapToGrid);
        Flag(settings_.setMarker);
        Flag(settings_.showRulers);
        Flag(settings_.showInvisible);
        const std::int32_t layout = file_.ReadLong();
        if (file_.Good() && layout >= FourWay && layout <= PreviewOnly)
            settings_.ViewLayout = static_cast<std::int16_t>(layout);
        return file_.Good();
    }

    /// The place counts only as a whole.
    bool ReadWindow() {
        if (file_.ReadTag() != "WPOS") return false;
        Flag(settings_.rememberWindow);
        const std::int32_t state = file_.ReadLong();
        float place[4];
        for (float& length : place) length = file_.ReadSingle();
        const bool useful =
            state >= 0 && state <= 2 &&
            std::ranges::all_of(place, [](float length) { return std::isfinite(length); });
        if (file_.Good() && useful && settings_.rememberWindow)
            settings_.window = {static_cast<std::int16_t>(state), place[0], place[1], place[2],
                                place[3]};
        return file_.Good();
    }

    bool ReadRecent() {
        if (file_.ReadTag() != "RCNT") return false;
        const std::int32_t count = file_.ReadCount(sizeof(std::int32_t));
        if (!file_.Good()) return false;
        std::vector<std::string>& paths = settings_.recentFiles;
        paths.clear();
        for (std::int32_t i = 0; i < count; ++i) {
            const std::string path = file_.ReadCountedString();
            if (!file_.Good()) return false;
            const auto same = [&](const std::string& p) { return EqualIgnoringCase(p, path); };
            if (!path.empty() && paths.size() < kRecentFiles && std::ranges::none_of(paths, same))
                paths.push_back(path);
        }
        return true;
    }

    bool ReadWarnings() {
        if (file_.ReadTag() != "WARN") return false;
        for (int i = 0; i < kOldWarnings; ++i) Flag(settings_.warnings[i]);
        return file_.Good();
    }

    bool ReadColors() {
        if (file_.ReadTag() != "CLRS") return false;
        for (const ColorItem item : kColorOrder) ReadColor(file_, settings_.colors[item]);
        return file_.Good();
    }

    bool ReadKeys() {
        if (file_.ReadTag() != "KEYS") return false;
        for (const int slot : kKeyOrder) ReadKeyCode(file_, settings_.keyMap.codes[slot]);
        return file_.Good();
    }

    /// Older files end anywhere among these chunks; what a later version put behind is skipped.
    bool ReadYounger() {
        if (file_.AtEnd()) return true;
        std::string tag = file_.ReadTag();
        if (tag == "1100") {
            Flag(settings_.show3DGrid);
            ReadColor(file_, settings_.colors[View3DGrid]);
            if (!file_.Good() || file_.AtEnd()) return file_.Good();
            tag = file_.ReadTag();
        }
        if (tag == "1300") Flag(settings_.warnings[WarnExport3DS]);
        foreign_ = tag != "1300" || !file_.AtEnd();
        return file_.Good();
    }

    void Flag(bool& to) {
        const bool flag = file_.ReadByte() != 0;
        if (file_.Good()) to = flag;
    }

    /// NaN lies in no range.
    void Size(float& to, const SizeRange& range) {
        const float size = file_.ReadSingle();
        const bool useful =
            size >= static_cast<float>(range.least) && size <= static_cast<float>(range.most);
        if (file_.Good() && useful) to = size;
    }

    FileReader file_;
    Settings& settings_;
    bool foreign_ = false;  ///< something unknown stands behind the chunks
};

}  // namespace

std::vector<std::uint8_t> EncodeSettings(const Settings& settings) {
    FileWriter file;
    WriteStat(file, settings);
    WriteWindow(file, settings);
    WriteRecent(file, settings);
    file.WriteTag("WARN");
    for (int i = 0; i < kOldWarnings; ++i) WriteFlag(file, settings.warnings[i]);
    file.WriteTag("CLRS");
    for (const ColorItem item : kColorOrder) WriteColor(file, settings.colors[item]);
    file.WriteTag("KEYS");
    for (const int slot : kKeyOrder) file.WriteLong(settings.keyMap.codes[slot]);
    file.WriteTag("1100");
    WriteFlag(file, settings.show3DGrid);
    WriteColor(file, settings.colors[View3DGrid]);
    file.WriteTag("1300");
    WriteFlag(file, settings.warnings[WarnExport3DS]);
    return file.TakeBytes();
}

bool DecodeSettings(std::span<const std::uint8_t> bytes, Settings& settings, bool* foreign) {
    SettingsReader reader(bytes, settings);
    const bool whole = reader.Read();
    if (foreign != nullptr) *foreign = reader.Foreign();
    return whole;
}

}  // namespace korvane
