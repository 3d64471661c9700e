// The settings file, colour schemes and keyboard maps: to the byte, short, damaged and hostile.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "files/mPreferenceFiles.h"
#include "files/mSettingsFile.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

using test::Bytes;

Bytes Golden(const char* name) {
    return test::FileBytes(std::string(KORVANE_GOLDEN_DIR) + "/" + name);
}

/// The values of the golden files, see make_golden.py.
Settings GoldenSettings() {
    Settings settings;
    settings.TextureScale = 8.5F;
    settings.pickerSize = 0.25F;
    settings.snapSize = 0.5F;
    settings.snapToGrid = false;
    settings.showInvisible = false;
    settings.show3DGrid = false;
    settings.ViewLayout = FrontOnly;
    settings.window = {2, 150, 300, 12000, 9000};
    settings.recentFiles = {"/home/t\u00FCr/Haus \u20AC.kvobject", "C:\\objects\\old.kvobject"};
    settings.warnings = {true, false, true, true, false, false};
    for (int i = 0; i < kColorItems; ++i) {
        const auto item = static_cast<Color>(i + 1);
        settings.colors.colors[i] = 0x102030 * (item % 8) + item;
    }
    for (int slot = 0; slot < kKeyFunctions; ++slot)
        settings.keyMap.codes[slot] = static_cast<std::int16_t>(slot != 20 ? 200 - 3 * slot : 0);
    return settings;
}

/// The bytes behind the tag; the tag's place is asked for once and stays as long as nothing before
/// it changes its length.
std::size_t Behind(const Bytes& bytes, const std::string& tag) {
    const auto at = std::search(bytes.begin(), bytes.end(), tag.begin(), tag.end());
    EXPECT_NE(at, bytes.end()) << tag;
    return static_cast<std::size_t>(at - bytes.begin()) + tag.size();
}

void PutLong(Bytes& bytes, std::size_t at, std::int32_t value) {
    FileWriter field;
    field.WriteLong(value);
    std::ranges::copy(field.Bytes(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

void PutSingle(Bytes& bytes, std::size_t at, float value) {
    FileWriter field;
    field.WriteSingle(value);
    std::ranges::copy(field.Bytes(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

TEST(SettingsFileTest, IsWrittenAndReadToTheByte) {
    const Bytes golden = Golden("settings.kvdat");
    EXPECT_EQ(EncodeSettings(GoldenSettings()), golden);
    Settings read;
    EXPECT_TRUE(DecodeSettings(golden, read));
    EXPECT_EQ(EncodeSettings(read), golden);
    EXPECT_EQ(read.recentFiles, GoldenSettings().recentFiles);
}

TEST(SettingsFileTest, EveryShortFileAppliesWhatItHolds) {
    const Bytes golden = Golden("settings.kvdat");
    const std::size_t keysEnd = Behind(golden, "KEYS") + 4 * kKeyFunctions;
    const std::size_t gridEnd = Behind(golden, "1100") + 5;
    for (std::size_t length = 0; length < golden.size(); ++length) {
        Settings read;
        const bool whole = DecodeSettings(std::span(golden).first(length), read);
        EXPECT_EQ(whole, length == keysEnd || length == gridEnd) << length;
        EXPECT_EQ(read.TextureScale, length >= 8 ? 8.5F : 4.0F) << length;
        EXPECT_EQ(read.ViewLayout, length >= 24 ? FrontOnly : FourWay) << length;
        EXPECT_EQ(read.keyMap.codes[39], length >= keysEnd ? 200 - 3 * 39 : 106) << length;
        EXPECT_EQ(read.show3DGrid, length < gridEnd - 4) << length;
        EXPECT_TRUE(read.warnings[WarnExport3DS]) << length;
    }
}

TEST(SettingsFileTest, WrongTagStopsTheReading) {
    for (const char* tag : {"STAT", "WPOS", "RCNT", "WARN", "CLRS", "KEYS"}) {
        Bytes bytes = Golden("settings.kvdat");
        bytes[Behind(bytes, tag) - 1] ^= 1;
        Settings read;
        EXPECT_FALSE(DecodeSettings(bytes, read)) << tag;
        EXPECT_EQ(read.snapSize, tag == std::string("STAT") ? 0.1F : 0.5F) << tag;
        EXPECT_EQ(read.keyMap.codes[22], KeyMap().codes[22]) << tag;
    }
}

TEST(SettingsFileTest, YoungerChunksAreOptionalEachForItself) {
    Bytes bytes = Golden("settings.kvdat");
    const auto grid = bytes.begin() + static_cast<std::ptrdiff_t>(Behind(bytes, "1100")) - 4;
    bytes.erase(grid, grid + 9);
    Settings read;
    EXPECT_TRUE(DecodeSettings(bytes, read));
    EXPECT_TRUE(read.show3DGrid);
    EXPECT_FALSE(read.warnings[WarnExport3DS]);
}

TEST(SettingsFileTest, FlagsAreTrueForAnyByteButZero) {
    Bytes bytes = Golden("settings.kvdat");
    const std::size_t remember = Behind(bytes, "WPOS");
    bytes[remember] = 1;
    Settings read;
    EXPECT_TRUE(DecodeSettings(bytes, read));
    EXPECT_TRUE(read.rememberWindow);
    EXPECT_EQ(read.window.state, 2);

    bytes[remember] = 0;
    Settings without;
    EXPECT_TRUE(DecodeSettings(bytes, without));
    EXPECT_FALSE(without.rememberWindow);
    EXPECT_EQ(without.window.state, -1) << "the place is not restored";
    EXPECT_EQ(without.recentFiles.size(), 2U) << "but its bytes are there";
}

/// Values that no setting takes leave it as it was and are no damage.
TEST(SettingsFileTest, HostileValuesAreHarmless) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const Bytes golden = Golden("settings.kvdat");
    const std::size_t stat = Behind(golden, "STAT"), place = Behind(golden, "WPOS") + 1;
    for (const float size : {nan, infinity, -infinity, -1.0F, 0.0F, 0.0099F, 200.5F, 1e30F}) {
        Bytes bytes = golden;
        for (std::size_t field = 0; field < 3; ++field) PutSingle(bytes, stat + 4 * field, size);
        Settings read;
        EXPECT_TRUE(DecodeSettings(bytes, read)) << size;
        EXPECT_EQ(read.TextureScale, 4.0F) << size;
        EXPECT_EQ(read.pickerSize, 0.05F) << size;
        EXPECT_EQ(read.snapSize, 0.1F) << size;
    }
    for (const std::int32_t number : {-1, 5, 65536, 65538, std::numeric_limits<int>::min()}) {
        Bytes bytes = golden;
        PutLong(bytes, stat + 16, number);
        PutLong(bytes, place, number);
        Settings read;
        EXPECT_TRUE(DecodeSettings(bytes, read)) << number;
        EXPECT_EQ(read.ViewLayout, FourWay) << number;
        EXPECT_EQ(read.window.state, -1) << number;
    }
    for (std::size_t field = 1; field <= 4; ++field) {
        Bytes bytes = golden;
        PutSingle(bytes, place + 4 * field, nan);
        Settings read;
        EXPECT_TRUE(DecodeSettings(bytes, read));
        EXPECT_EQ(read.window.state, -1) << field;
    }
    Bytes bytes = golden;
    PutLong(bytes, Behind(golden, "CLRS"), -1);
    PutLong(bytes, Behind(golden, "KEYS"), 256);
    PutLong(bytes, Behind(golden, "KEYS") + 8, -5);
    Settings read;
    EXPECT_TRUE(DecodeSettings(bytes, read));
    EXPECT_EQ(read.colors[ColorItem::View2DBrushLines], 0xFFFFFFU);
    EXPECT_EQ(read.keyMap[KeyFunction::ModifyDelete], 0);
    EXPECT_EQ(read.keyMap[KeyFunction::ModeBrush], 0);
}

/// A settings file with these recent paths, under a count of its own.
Bytes WithRecent(const std::vector<std::string>& paths, std::int32_t count) {
    const Bytes golden = Golden("settings.kvdat");
    FileWriter recent;
    recent.WriteLong(count);
    for (const std::string& path : paths) recent.WriteCountedString(path);
    Bytes bytes(golden.begin(),
                golden.begin() + static_cast<std::ptrdiff_t>(Behind(golden, "RCNT")));
    bytes.insert(bytes.end(), recent.Bytes().begin(), recent.Bytes().end());
    bytes.insert(bytes.end(),
                 golden.begin() + static_cast<std::ptrdiff_t>(Behind(golden, "WARN")) - 4,
                 golden.end());
    return bytes;
}

TEST(SettingsFileTest, RecentFilesOfAnyNumber) {
    using Paths = std::vector<std::string>;
    struct Row {
        Paths stored;
        std::int32_t count;
        bool whole;
        Paths read;
    };
    const Row rows[] = {
        {{}, 0, true, {}},
        {{"/a", "", "/b"}, 3, true, {"/a", "/b"}},
        {{"/a", "/A", "/b", "/c", "/d", "/e", "/f"}, 7, true, {"/a", "/b", "/c", "/d", "/e"}},
        {{"/a"}, -1, false, {"/kept"}},
        {{"/a"}, 2'000'000'000, false, {"/kept"}},
        {{"/a"}, 3, false, {"/a"}},  // reads on into the next chunk
    };
    for (const Row& row : rows) {
        Settings read;
        read.recentFiles = {"/kept"};
        EXPECT_EQ(DecodeSettings(WithRecent(row.stored, row.count), read), row.whole) << row.count;
        EXPECT_EQ(read.recentFiles, row.read) << row.count;
    }
    Settings settings;
    settings.recentFiles = {"/Za\u017C\u00F3\u0142\u0107", "/b"};
    Settings read;
    EXPECT_TRUE(DecodeSettings(EncodeSettings(settings), read));
    EXPECT_EQ(read.recentFiles, Paths{"/b"}) << "the other has no name in the file's code page";
}

TEST(PreferenceFilesTest, AreWrittenAndReadToTheByte) {
    const Settings expected = GoldenSettings();
    EXPECT_EQ(EncodeColorScheme(expected.colors), Golden("scheme.kvcs"));
    EXPECT_EQ(EncodeKeyMap(expected.keyMap), Golden("keys.kvkm"));
    EXPECT_EQ(Golden("scheme.kvcs").size(), 92U);
    EXPECT_EQ(Golden("keys.kvkm").size(), 168U);
    EXPECT_EQ(DecodeColorScheme(Golden("scheme.kvcs"), {}).value().colors, expected.colors.colors);
    EXPECT_EQ(DecodeKeyMap(Golden("keys.kvkm"), {}).value().codes, expected.keyMap.codes);
}

TEST(PreferenceFilesTest, AcceptOnlyTheirKindAndWholeEntries) {
    const Bytes schemeFile = Golden("scheme.kvcs"), keysFile = Golden("keys.kvkm");
    for (std::size_t length = 0; length <= 4 + 4 * 6; ++length) {
        const bool whole = length >= 4 && length % 4 == 0;
        const auto scheme = DecodeColorScheme(std::span(schemeFile).first(length), {});
        const auto keys = DecodeKeyMap(std::span(keysFile).first(length), {});
        ASSERT_EQ(scheme.has_value(), whole) << length;
        ASSERT_EQ(keys.has_value(), whole) << length;
        if (!whole) continue;
        const std::size_t entries = length / 4 - 1;
        EXPECT_EQ(scheme->colors[5] == ColorScheme().colors[5], entries < 6) << length;
        EXPECT_EQ(keys->codes[5] == KeyMap().codes[5], entries < 6) << length;
    }
    EXPECT_FALSE(DecodeColorScheme(Golden("keys.kvkm"), {}));
    EXPECT_FALSE(DecodeKeyMap(Golden("scheme.kvcs"), {}));
    Bytes longer = Golden("scheme.kvcs");
    longer.resize(longer.size() + 7);
    longer[0] = 'k';
    EXPECT_TRUE(DecodeColorScheme(longer, {})) << "tags in any case, more bytes ignored";
}

}  // namespace
}  // namespace korvane
