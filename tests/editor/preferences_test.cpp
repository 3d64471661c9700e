// The preferences without their window: checks, files, key capture, defaults.
#include "editor/mPreferences.h"
#include "files/mPreferenceFiles.h"
#include "files/mSettingsFile.h"
#include "support/SessionFixture.h"

namespace korvane::test {
namespace {

class PreferencesTest : public SessionTest {
  protected:
    Preferences Pages() const { return PreferencesOf(editor.settings); }

    std::string KeyOf(const Preferences& pages, KeyFunction function) {
        return KeyName(pages.keyMap[function]);
    }

    static constexpr const char* kSnap =
        "Warning: Snap to Grid size is Out of Range.\r\nIt must be between 0.01 and 10.";
    static constexpr const char* kPicker =
        "Warning: Picker size is Out of Range.\r\nIt must be between 0.01 and 1.";
    static constexpr const char* kScale =
        "Warning: Global Scale size is Out of Range.\r\nIt must be between 1 and 200.";
};

TEST_F(PreferencesTest, SizesAreShownAndCheckedInTheirOrder) {
    EXPECT_EQ(Pages().snapSize, "0.1");
    EXPECT_EQ(Pages().pickerSize, "0.05");
    EXPECT_EQ(Pages().textureScale, "4");
    struct Row {
        const char *snap, *picker, *scale, *refusal;
    };
    const Row rows[] = {
        {"10", "0.01", "200", nullptr}, {"0.01", "1", "1", nullptr}, {".5x", "1e-1", " 4", nullptr},
        {"10.001", "1", "4", kSnap},    {"0.0099", "1", "4", kSnap}, {"abc", "2", "0", kSnap},
        {"", "1", "4", kSnap},          {"0,5", "1", "4", kSnap},    {"1", "1.001", "999", kPicker},
        {"1", "-1", "4", kPicker},      {"1", "1", "0.999", kScale}, {"1", "1", "200.1", kScale},
        {"1", "1", "1e999", kScale},    {"nan", "1", "4", kSnap},
    };
    for (const Row& row : rows) {
        editor.settings = Settings{};
        Preferences pages = Pages();
        pages.snapSize = row.snap, pages.pickerSize = row.picker, pages.textureScale = row.scale;
        pages.setMarker = false;
        const std::string name = std::string(row.snap) + " " + row.picker + " " + row.scale;
        const bool accepted = ApplyPreferences(editor, pages);
        EXPECT_EQ(accepted, row.refusal == nullptr) << name;
        EXPECT_EQ(editor.settings.setMarker, !accepted) << name;
        if (row.refusal == nullptr) continue;
        ASSERT_EQ(prompts.messages.size(), 1U) << name;
        EXPECT_EQ(prompts.messages[0].title, "Warning!");
        EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Exclamation);
        EXPECT_EQ(prompts.Told().front(), row.refusal) << name;
    }
}

TEST_F(PreferencesTest, ApplyingReachesFileAndViews) {
    Preferences pages = Pages();
    pages.rememberWindow = false;
    pages.keyMap[KeyFunction::ZoomIn] = 90;
    host.redraws = 0;
    EXPECT_TRUE(ApplyPreferences(editor, pages));
    EXPECT_FALSE(editor.settings.rememberWindow);
    EXPECT_EQ(editor.settings.keyMap[KeyFunction::ZoomIn], 90);
    EXPECT_EQ(FileBytes(folder.Path("Korvane.kvdat")), EncodeSettings(editor.settings));
    EXPECT_EQ(host.redraws, RedrawAll);
    EXPECT_EQ(host.schemes, 1);

    editor.dataFolder = "/no/such/folder";
    EXPECT_TRUE(ApplyPreferences(editor, pages));
    EXPECT_EQ(prompts.Told(), std::vector<std::string>{"Error: Unable to save settings!"});
}

TEST_F(PreferencesTest, DefaultsSpareTheRecentFiles) {
    editor.settings.ViewLayout = TopOnly;
    editor.settings.showRulers = false;
    editor.settings.recentFiles = {"/a"};
    editor.scene.editMode = VertexMove;
    editor.scene.createShape = Sphere;
    editor.scene.sideCount = 12;
    ResetDefaults(editor);
    Settings expected;
    expected.recentFiles = {"/a"};
    EXPECT_EQ(EncodeSettings(editor.settings), EncodeSettings(expected));
    EXPECT_EQ(editor.scene.editMode, BrushMove);
    EXPECT_EQ(editor.scene.createShape, Box);
    EXPECT_EQ(editor.scene.sideCount, 4);
    EXPECT_EQ(host.layouts, 1);
    EXPECT_EQ(host.redraws, RedrawAll);
}

TEST_F(PreferencesTest, FilesAreStoredAndBroughtBack) {
    Preferences pages = Pages();
    pages.colors[ColorItem::View2DBackground] = 7;
    pages.keyMap[KeyFunction::MoveFaster] = 0;
    const std::string scheme = folder.Path("a.kvcs"), keys = folder.Path("a.kvkm");
    prompts.paths = {scheme, keys, std::nullopt};
    SaveColorScheme(editor, pages);
    SaveKeyMap(editor, pages);
    SaveKeyMap(editor, pages);
    EXPECT_TRUE(prompts.messages.empty());
    const FileDialog& save = prompts.saveDialogs[1];
    EXPECT_EQ(save.title, "Save Keyboard Map...");
    EXPECT_EQ(save.filterName, "Korvane Keyboard Maps (*.kvkm)");
    EXPECT_EQ(save.filterPattern, "*.kvkm");
    EXPECT_EQ(save.defaultExtension, "kvkm");
    EXPECT_EQ(save.initialFolder, folder.Path());

    // Each reads its own file, then one of the other kind, then none.
    Preferences read = Pages();
    prompts.paths = {scheme, keys, keys, scheme, std::nullopt, folder.Path("gone")};
    for (int i = 0; i < 3; ++i) OpenColorScheme(editor, read), OpenKeyMap(editor, read);
    EXPECT_EQ(read.colors[ColorItem::View2DBackground], 7U);
    EXPECT_EQ(KeyOf(read, KeyFunction::MoveFaster), "{UnDefined}");
    EXPECT_EQ(prompts.Told(),
              (std::vector<std::string>{"Error: Invalid Korvane Color Scheme File!",
                                        "Error: Invalid Korvane Keyboard Map File!",
                                        "Error: Invalid Korvane Keyboard Map File!"}));
}

TEST_F(PreferencesTest, CapturedKeyIsTakenFromOthersOnlyWithYes) {
    constexpr int kSlower = 1;  // row and slot
    struct Row {
        std::deque<Answer> answers;
        const char *slower, *forward, *zoom;
    };
    const Row rows[] = {
        {{Answer::Yes, Answer::Yes}, "W", "{UnDefined}", "{UnDefined}"},
        {{Answer::Yes, Answer::No}, "CTRL", "{UnDefined}", "W"},
        {{Answer::No}, "CTRL", "W", "W"},
        {{Answer::Cancel}, "CTRL", "W", "W"},
    };
    for (const Row& row : rows) {
        Preferences pages = Pages();
        pages.keyMap[KeyFunction::ZoomIn] = 'W';
        StartKeyCapture(pages, kSlower);
        prompts.answers = row.answers;
        CaptureKey(editor, pages, kSlower, 'W');
        EXPECT_EQ(KeyOf(pages, KeyFunction::MoveSlower), row.slower);
        EXPECT_EQ(KeyOf(pages, KeyFunction::MoveForward), row.forward);
        EXPECT_EQ(KeyOf(pages, KeyFunction::ZoomIn), row.zoom);
        EXPECT_EQ(pages.capturedRow, -1);
        ASSERT_EQ(prompts.messages.size(), row.answers.size());
        EXPECT_EQ(prompts.messages[0].title, "Key Already Used...");
        EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Exclamation);
        EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::YesNoCancel);
        EXPECT_EQ(prompts.Told()[0],
                  "The key pressed (W) is already assigned\r\nto the function :Move: Forward"
                  "\r\n\r\nReasign this key?");
    }
    Preferences pages = Pages();
    constexpr int kArbitrary = 29;  // the row behind the sizes; slot 36
    EXPECT_STREQ(KeyRowFunction(kArbitrary), "Size: Arbitrarily-Sided");
    for (const int code : {48, 12}) CaptureKey(editor, pages, kArbitrary, code);
    EXPECT_TRUE(prompts.messages.empty()) << "its own key and a free one need no question";
    EXPECT_EQ(KeyOf(pages, KeyFunction::SizeArbitrary), "[KEY: 012]");
}

}  // namespace
}  // namespace korvane::test
