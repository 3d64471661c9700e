// The settings file, colour schemes and keyboard maps: to the byte, short, damaged and hostile.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "files/LittleEndian.h"
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
    settings.snapToGrid = settings.showInvisible = settings.show3DGrid = false;
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

std::size_t Behind(const Bytes& bytes, const std::string& tag) {
    const auto at = std::search(bytes.begin(), bytes.end(), tag.begin(), tag.end());
    EXPECT_NE(at, bytes.end()) << tag;
    return static_cast<std::size_t>(at - bytes.begin()) + tag.size();
}

/// The golden settings with a Long or Single `offset` bytes behind a tag replaced, read over the
/// defaults; no damage.
template <class Value>
Settings With(const char* tag, std::size_t offset, Value value) {
    Bytes bytes = Golden("settings.kvdat");
    std::uint8_t* at = bytes.data() + Behind(bytes, tag) + offset;
    if constexpr (std::is_same_v<Value, float>) {
        StoreSingle(at, value);
    } else {
        StoreLong(at, value);
    }
    Settings read;
    EXPECT_TRUE(DecodeSettings(bytes, read)) << tag << " " << value;
    return read;
}

TEST(SettingsFileTest, IsWrittenAndReadToTheByte) {
    const Bytes golden = Golden("settings.kvdat");
    EXPECT_EQ(EncodeSettings(GoldenSettings()), golden);
    Settings read;
    EXPECT_TRUE(DecodeSettings(golden, read));
    EXPECT_EQ(EncodeSettings(read), golden);
    EXPECT_EQ(read.recentFiles, GoldenSettings().recentFiles);
}

TEST(SettingsFileTest, DamagedFileAppliesWhatStandsBeforeTheDamage) {
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
    for (const char* tag : {"WPOS", "RCNT", "WARN", "CLRS", "KEYS"}) {
        Bytes bytes = golden;
        bytes[Behind(bytes, tag) - 1] ^= 1;
        Settings read;
        EXPECT_FALSE(DecodeSettings(bytes, read)) << tag;
        EXPECT_EQ(read.snapSize, 0.5F) << tag;
        EXPECT_EQ(read.keyMap.codes[22], KeyMap().codes[22]) << tag;
    }
    Bytes without1100 = golden;
    without1100.erase(without1100.begin() + static_cast<std::ptrdiff_t>(gridEnd) - 9,
                      without1100.begin() + static_cast<std::ptrdiff_t>(gridEnd));
    Settings read;
    EXPECT_TRUE(DecodeSettings(without1100, read)) << "each younger chunk is optional";
    EXPECT_FALSE(read.warnings[WarnExport3DS]);
}

TEST(SettingsFileTest, WindowPlaceIsRestoredOrNot) {
    Bytes bytes = Golden("settings.kvdat");
    for (const int flag : {1, 0}) {  // any byte but zero is true
        bytes[Behind(bytes, "WPOS")] = static_cast<std::uint8_t>(flag);
        Settings read;
        EXPECT_TRUE(DecodeSettings(bytes, read));
        EXPECT_EQ(read.rememberWindow, flag == 1);
        EXPECT_EQ(read.window.state, flag == 1 ? 2 : -1);
        EXPECT_EQ(read.recentFiles.size(), 2U) << "its bytes are there in any case";
    }
}

/// Values that no setting takes leave it as it was and are no damage.
TEST(SettingsFileTest, HostileValuesAreHarmless) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float size : {nan, infinity, -infinity, -1.0F, 0.0F, 0.0099F, 200.5F, 1e30F}) {
        EXPECT_EQ(With("STAT", 0, size).TextureScale, 4.0F) << size;
        EXPECT_EQ(With("STAT", 4, size).pickerSize, 0.05F) << size;
        EXPECT_EQ(With("STAT", 8, size).snapSize, 0.1F) << size;
    }
    for (const std::int32_t number : {-1, 5, 65536, 65538, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(With("STAT", 16, number).ViewLayout, FourWay) << number;
        EXPECT_EQ(With("WPOS", 1, number).window.state, -1) << number;
    }
    for (const std::size_t field : {5, 9, 13, 17})
        EXPECT_EQ(With("WPOS", field, nan).window.state, -1) << field;
    EXPECT_EQ(With("CLRS", 0, -1).colors[ColorItem::View2DBrushLines], 0xFFFFFFU);
    for (const auto& [code, kept] : {std::pair{300, 300}, {-5, -5}, {32768, 0}, {-32769, 0}})
        EXPECT_EQ(With("KEYS", 8, code).keyMap[KeyFunction::ModeBrush], kept) << code;
}

TEST(SettingsFileTest, RecentFilesOfAnyNumber) {
    using Paths = std::vector<std::string>;
    const struct {
        Paths stored;
        std::int32_t count;
        bool whole;
        Paths read;
    } rows[] = {
        {{"/a", "", "/b"}, 3, true, {"/a", "/b"}},
        {{"/a", "/A", "/b", "/c", "/d", "/e", "/f"}, 7, true, {"/a", "/b", "/c", "/d", "/e"}},
        {{"/a"}, -1, false, {"/kept"}},
        {{"/a"}, 2'000'000'000, false, {"/kept"}},
        {{"/a"}, 3, false, {"/a"}},  // reads on into the next chunk
    };
    const Bytes golden = Golden("settings.kvdat");
    for (const auto& row : rows) {
        FileWriter recent;
        recent.WriteLong(row.count);
        for (const std::string& path : row.stored) recent.WriteCountedString(path);
        Bytes bytes = recent.Bytes();
        bytes.insert(bytes.begin(), golden.data(), golden.data() + Behind(golden, "RCNT"));
        bytes.insert(bytes.end(), golden.data() + Behind(golden, "WARN") - 4,
                     golden.data() + golden.size());
        Settings read;
        read.recentFiles = {"/kept"};
        EXPECT_EQ(DecodeSettings(bytes, read), row.whole) << row.count;
        EXPECT_EQ(read.recentFiles, row.read) << row.count;
    }
    Settings settings, read;
    settings.recentFiles = {"/Za\u017C\u00F3\u0142\u0107", "/b"};
    EXPECT_TRUE(DecodeSettings(EncodeSettings(settings), read));
    EXPECT_EQ(read.recentFiles, Paths{"/b"}) << "the other has no name in the file's code page";
}

TEST(PreferenceFilesTest, AreReadAndWrittenToTheByteAndByWholeEntries) {
    const Settings expected = GoldenSettings();
    const Bytes schemeFile = Golden("scheme.kvcs"), keysFile = Golden("keys.kvkm");
    EXPECT_EQ(EncodeColorScheme(expected.colors), schemeFile);
    EXPECT_EQ(EncodeKeyMap(expected.keyMap), keysFile);
    EXPECT_EQ(DecodeColorScheme(schemeFile, {}).value().colors, expected.colors.colors);
    EXPECT_EQ(DecodeKeyMap(keysFile, {}).value().codes, expected.keyMap.codes);
    for (std::size_t length = 0; length <= 4 + 4 * 6; ++length) {
        const bool whole = length >= 4 && length % 4 == 0;
        const auto scheme = DecodeColorScheme(std::span(schemeFile).first(length), {});
        const auto keys = DecodeKeyMap(std::span(keysFile).first(length), {});
        ASSERT_EQ(scheme.has_value(), whole) << length;
        ASSERT_EQ(keys.has_value(), whole) << length;
        if (!whole) continue;
        EXPECT_EQ(scheme->colors[5] == ColorScheme().colors[5], length < 28) << length;
        EXPECT_EQ(keys->codes[5] == KeyMap().codes[5], length < 28) << length;
    }
    EXPECT_FALSE(DecodeColorScheme(keysFile, {}));
    EXPECT_FALSE(DecodeKeyMap(schemeFile, {}));
    Bytes longer = schemeFile;
    longer.resize(longer.size() + 7);
    EXPECT_TRUE(DecodeColorScheme(longer, {})) << "more bytes are ignored";
}

}  // namespace
}  // namespace korvane
