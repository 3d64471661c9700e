#include "editor/mCommands.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "editor/mEditCommands.h"
#include "editor/mExport.h"
#include "editor/mFileOpenSave.h"
#include "editor/mRecentFiles.h"
#include "editor/mUndo.h"
#include "editor/mViews.h"
#include "scene/mSelection.h"

namespace korvane {
namespace {

// --- what the commands do
// -------------------------------------------------------------------------

void ToggleRulers(Editor& editor) {
    editor.settings.showRulers = !editor.settings.showRulers;
    UpdateCommandStates(editor);
    RedrawAllViews(editor);
}

void Toggle3DGrid(Editor& editor) {
    editor.settings.show3DGrid = !editor.settings.show3DGrid;
    UpdateCommandStates(editor);
    editor.host.RequestRedraw(RedrawPreview);
}

void ToggleSnap(Editor& editor) {
    editor.settings.snapToGrid = !editor.settings.snapToGrid;
    UpdateCommandStates(editor);
}

void ToggleInvisible(Editor& editor) {
    editor.settings.showInvisible = !editor.settings.showInvisible;
    UpdateCommandStates(editor);
    editor.host.RequestRedraw(RedrawPreview);
}

void SetViewLayout(Editor& editor, std::int16_t layout) {
    editor.settings.ViewLayout = layout;
    UpdateCommandStates(editor);
    editor.host.LayoutPanes();
}

template <std::int16_t Layout>
void ApplyViewLayout(Editor& editor) {
    SetViewLayout(editor, Layout);
}

template <std::int16_t Mode>
void ApplyEditMode(Editor& editor) {
    editor.scene.editMode = Mode;
    ClearSelectedVertices(editor.scene);
    UpdateCommandStates(editor);
    RedrawAllViews(editor);
}

template <std::int16_t Sides>
void ApplySideCount(Editor& editor) {
    editor.scene.sideCount = Sides;
    UpdateCommandStates(editor);
}

template <std::int16_t Shape>
void ApplyCreateShape(Editor& editor) {
    editor.scene.createShape = Shape;
    UpdateCommandStates(editor);
}

void AskSideCount(Editor& editor) {
    editor.host.OpenForm(Form::ArbitrarySize);
    UpdateCommandStates(editor);
}

void ResetViewsAndPanes(Editor& editor) {
    ResetAllViews(editor);
    editor.host.LayoutPanes();
}

template <Form form>
void Open(Editor& editor) {
    editor.host.OpenForm(form);
}

/// While the form is open the preview stands alone.
void OpenOptimize(Editor& editor) {
    const std::int16_t layout = editor.settings.ViewLayout;
    SetViewLayout(editor, PreviewOnly);
    editor.host.OpenForm(Form::Optimize);
    SetViewLayout(editor, layout);
}

template <int X, int Y, int Z>
void Rotate(Editor& editor) {
    RotateBrushes(editor, X, Y, Z);
}

template <bool X, bool Y, bool Z>
void Flip(Editor& editor) {
    FlipBrushes(editor, X, Y, Z);
}

void CloseMainWindow(Editor& editor) {
    editor.host.CloseWindow();
}

void OpenHelp(Editor& editor) {
    const std::string page = editor.programFolder + "/Help/Korvane/index.htm";
    std::error_code ignored;
    if (std::filesystem::exists(std::u8string(page.begin(), page.end()), ignored)) {
        editor.host.OpenDocument(page);
    } else {
        editor.prompts.ShowMessage({"Unable to locate help contents!", "No Help Found!",
                                    MessageIcon::Exclamation, MessageButtons::Ok});
    }
}

// --- checks
// ---------------------------------------------------------------------------------------

template <std::int16_t Layout>
bool LayoutIs(const Editor& editor) {
    return editor.settings.ViewLayout == Layout;
}

template <std::int16_t Mode>
bool ModeIs(const Editor& editor) {
    return editor.scene.editMode == Mode;
}

template <std::int16_t Sides>
bool SidesAre(const Editor& editor) {
    return editor.scene.sideCount == Sides;
}

bool SidesAreMany(const Editor& editor) {
    return editor.scene.sideCount > 8;
}

template <std::int16_t Shape>
bool ShapeIs(const Editor& editor) {
    return editor.scene.createShape == Shape;
}

bool RulersShown(const Editor& editor) {
    return editor.settings.showRulers;
}
bool GridShown(const Editor& editor) {
    return editor.settings.show3DGrid;
}
bool SnapOn(const Editor& editor) {
    return editor.settings.snapToGrid;
}
bool InvisibleShown(const Editor& editor) {
    return editor.settings.showInvisible;
}

// --- the tables
// -----------------------------------------------------------------------------------

constexpr auto kSeparator = true;  // before the menu or its item, or behind the button

constexpr Menu kMenus[] = {
    {"mnuFile", "&File", nullptr, nullptr},
    {"mnuExport", "Export", "mnuFile", "mnuExit", kSeparator},
    {"mnuRecent", "Recent Files", "mnuFile", "mnuExit"},
    {"mnuEdit", "&Edit", nullptr, nullptr},
    {"mnuView", "&View", nullptr, nullptr},
    {"mnuCreate", "&Create", nullptr, nullptr},
    {"mnuCreateBaseShape", "Base Shape", "mnuCreate", "mnuSizeArbitrary"},
    {"mnuModify", "&Modify", nullptr, nullptr},
    {"mnuRotate", "Rotate", "mnuModify", "mnuInvert", kSeparator},
    {"mnuFlip", "Flip", "mnuModify", "mnuInvert"},
    {"mnuInfo", "&Info", nullptr, nullptr},
    {"mnuHelp", "&Help", nullptr, nullptr},
};

using Bar::EditBar;
using Bar::ToolBar;
using CheckKind::Radio;
using CheckKind::Toggle;
using EnabledWhen::Always;
using EnabledWhen::Clipboard;
using EnabledWhen::RedoAvailable;
using EnabledWhen::Selection;
using EnabledWhen::TwoBrushes;
using EnabledWhen::UndoAvailable;

// clang-format off
const Command kCommands[] = {
    {"mnuNew", "mnuFile", "New Object...", Always, CheckKind::None, nullptr, NewObject,
     {ToolBar, 0, "New Object...", "New Object: Clear all data from the editor"}},
    {"mnuOpen", "mnuFile", "Open Object..", Always, CheckKind::None, nullptr, OpenObject,
     {ToolBar, 1, "Open Object...", "Open Object: Clear all data from the editor and load an existing object"}},
    {"mnuMerge", "mnuFile", "Merge Object..", Always, CheckKind::None, nullptr, MergeObject,
     {ToolBar, 2, "Merge Object with Current Object...", "Merge Object: Load an existing object and merge it with the current object"}},
    {"mnuSave", "mnuFile", "Save Object", Always, CheckKind::None, nullptr, SaveCurrentObject,
     {ToolBar, 3, "Save Object", "Save Object: Save the current object"}, kSeparator},
    {"mnuSaveAs", "mnuFile", "Save Object As...", Always, CheckKind::None, nullptr, SaveObjectAs,
     {ToolBar, 4, "Save Object As...", "Save Object As: Save the current object under a different name", kSeparator}},
    {"mnuExport3DS", "mnuExport", "3DStudio Format (*.3DS)...", Always, CheckKind::None, nullptr, Export3DS,
     {ToolBar, 5, "Export Object...", "Export Object: Save the current object in different formats", kSeparator}},
    {"mnuExportOBJ", "mnuExport", "Wavefront Format (*.OBJ)...", Always, CheckKind::None, nullptr, ExportOBJ, {}},
    {"mnuExportGLB", "mnuExport", "glTF Binary Format (*.GLB)...", Always, CheckKind::None, nullptr, ExportGLB, {}},
    {"mnuExportSourceCode", "mnuExport", "Source Code (*.TXT)...", Always, CheckKind::None, nullptr, Open<Form::ExportSourceCode>, {}},
    {"mnuClearRecentFiles", "mnuRecent", "Clear Recent Files", Always, CheckKind::None, nullptr, ClearRecentFiles, {}, kSeparator},
    {"mnuExit", "mnuFile", "Exit", Always, CheckKind::None, nullptr, CloseMainWindow, {}, kSeparator},

    {"mnuUndo", "mnuEdit", "Undo", UndoAvailable, CheckKind::None, nullptr, UndoLastChange,
     {EditBar, 4, "Undo", "Undo: Undo the last action"}},
    {"mnuRedo", "mnuEdit", "Redo", RedoAvailable, CheckKind::None, nullptr, RedoLastChange,
     {EditBar, 21, "Redo", "Redo: Redo the last undone action", kSeparator, 4}},
    {"mnuCopy", "mnuEdit", "Copy", Selection, CheckKind::None, nullptr, CopyBrushes,
     {EditBar, 5, "Copy Selected Brushes", "Copy: Copy selected brushes"}, kSeparator},
    {"mnuPaste", "mnuEdit", "Paste", Clipboard, CheckKind::None, nullptr, PasteBrushes,
     {EditBar, 6, "Paste Brushes", "Paste: Paste brushes", kSeparator}},
    {"mnuSelect", "mnuEdit", "Select...", Always, CheckKind::None, nullptr, Open<Form::Select>,
     {EditBar, 7, "Select Brushes...", "Select: Select brushes by name, group, or texture name"}, kSeparator},
    {"mnuUnSelect", "mnuEdit", "UnSelect", Selection, CheckKind::None, nullptr, UnSelectCommand,
     {EditBar, 8, "UnSelect All Brushes", "UnSelect: UnSelect brushes, faces, edges and vertices"}},
    {"mnuDelete", "mnuEdit", "Delete", Selection, CheckKind::None, nullptr, DeleteBrushes,
     {EditBar, 9, "Delete Selected Brushes", "Delete: Delete selected brushes", kSeparator}},
    {"mnuPreferences", "mnuEdit", "Preferences...", Always, CheckKind::None, nullptr, Open<Form::Preferences>, {}, kSeparator},

    {"mnuRulers", "mnuView", "Rulers", Always, Toggle, RulersShown, ToggleRulers,
     {ToolBar, 11, "Show Rulers", "Show Rulers: Toggle on/off showing rulers in the views"}},
    {"mnuShow3DGrid", "mnuView", "3D Grid", Always, Toggle, GridShown, Toggle3DGrid,
     {ToolBar, 12, "Show 3D Grid", "Show 3D Grid: Toggle on/off showing the grid in the 3D preview"}},
    {"mnuSnap", "mnuView", "Snap to Grid", Always, Toggle, SnapOn, ToggleSnap,
     {ToolBar, 13, "Snap to Grid", "Snap to Grid: Toggle on/off snapping vertices, edges, and objects to grid", kSeparator}},
    {"mnuShowInvisible", "mnuView", "Show Invisible Faces", Always, Toggle, InvisibleShown, ToggleInvisible, {}},
    {"mnuView4Way", "mnuView", "4-Way Split", Always, Radio, LayoutIs<FourWay>, ApplyViewLayout<FourWay>,
     {ToolBar, 6, "View: 4-Way Split", "View 4-Way Split: View all 4 main views at the same time"}, kSeparator},
    {"mnuViewTop", "mnuView", "Top", Always, Radio, LayoutIs<TopOnly>, ApplyViewLayout<TopOnly>,
     {ToolBar, 7, "View: Top", "View Top: View only the top view"}},
    {"mnuViewLeft", "mnuView", "Left", Always, Radio, LayoutIs<LeftOnly>, ApplyViewLayout<LeftOnly>,
     {ToolBar, 8, "View: Left", "View Left: View only the left view"}},
    {"mnuViewFront", "mnuView", "Front", Always, Radio, LayoutIs<FrontOnly>, ApplyViewLayout<FrontOnly>,
     {ToolBar, 9, "View: Front", "View Front: View only the front view"}},
    {"mnuView3D", "mnuView", "3D Preview", Always, Radio, LayoutIs<PreviewOnly>, ApplyViewLayout<PreviewOnly>,
     {ToolBar, 10, "View 3D Preview", "View 3D Preview: View only the 3D preview", kSeparator}},
    {"mnuResetAllViews", "mnuView", "Reset All Views", Always, CheckKind::None, nullptr, ResetViewsAndPanes, {}, kSeparator},

    {"mnuCreateBox", "mnuCreateBaseShape", "Box", Always, Radio, ShapeIs<Box>, ApplyCreateShape<Box>,
     {ToolBar, 21, "Create Shape: Box", "Create Shape: New brushes are created as a box style shape"}},
    {"mnuCreateCone", "mnuCreateBaseShape", "Cone", Always, Radio, ShapeIs<Cone>, ApplyCreateShape<Cone>,
     {ToolBar, 22, "Create Shape: Cone", "Create Shape: New brushes are created as a cone style shape"}},
    {"mnuCreateSphere", "mnuCreateBaseShape", "Sphere", Always, Radio, ShapeIs<Sphere>, ApplyCreateShape<Sphere>,
     {ToolBar, 23, "Create Shape: Sphere", "Create Shape: New brushes are created as a sphere style shape"}},
    {"mnuSizeArbitrary", "mnuCreate", "Arbitrarily Sided...", Always, Radio, SidesAreMany, AskSideCount,
     {ToolBar, 20, "Create Sides: Arbitrarily Sided", "Create Size: New brushes are created with more than 8 sides", kSeparator}, kSeparator},
    {"mnuSize3", "mnuCreate", "3-Sided", Always, Radio, SidesAre<3>, ApplySideCount<3>,
     {ToolBar, 14, "Create Sides: 3-Sided", "Create Size: New brushes are created with 3 sides"}},
    {"mnuSize4", "mnuCreate", "4-Sided", Always, Radio, SidesAre<4>, ApplySideCount<4>,
     {ToolBar, 15, "Create Sides: 4-Sided", "Create Size: New brushes are created with 4 sides"}},
    {"mnuSize5", "mnuCreate", "5-Sided", Always, Radio, SidesAre<5>, ApplySideCount<5>,
     {ToolBar, 16, "Create Sides: 5-Sided", "Create Size: New brushes are created with 5 sides"}},
    {"mnuSize6", "mnuCreate", "6-Sided", Always, Radio, SidesAre<6>, ApplySideCount<6>,
     {ToolBar, 17, "Create Sides: 6-Sided", "Create Size: New brushes are created with 6 sides"}},
    {"mnuSize7", "mnuCreate", "7-Sided", Always, Radio, SidesAre<7>, ApplySideCount<7>,
     {ToolBar, 18, "Create Sides: 7-Sided", "Create Size: New brushes are created with 7 sides"}},
    {"mnuSize8", "mnuCreate", "8-Sided", Always, Radio, SidesAre<8>, ApplySideCount<8>,
     {ToolBar, 19, "Create Sides: 8-Sided", "Create Size: New brushes are created with 8 sides"}},

    {"mnuModeBrush", "mnuModify", "Brush Move", Always, Radio, ModeIs<BrushMove>, ApplyEditMode<BrushMove>,
     {EditBar, 0, "Brush Move Mode", "Brush Move Mode: Move selected brushes"}},
    {"mnuModeFace", "mnuModify", "Face Edit", Always, Radio, ModeIs<FaceEdit>, ApplyEditMode<FaceEdit>,
     {EditBar, 1, "Face Edit Mode", "Face Edit Mode: Select and edit faces from a brush"}},
    {"mnuModeEdge", "mnuModify", "Edge Move", Always, Radio, ModeIs<EdgeMove>, ApplyEditMode<EdgeMove>,
     {EditBar, 2, "Edge Move Mode", "Edge Move Mode: Move a selected brushes' edges"}},
    {"mnuModeVertex", "mnuModify", "Vertex Move", Always, Radio, ModeIs<VertexMove>, ApplyEditMode<VertexMove>,
     {EditBar, 3, "Vertex Move Mode", "Vertex Move Mode: Move a selected brushes' vertices", kSeparator}},
    {"mnuFreeRotate", "mnuRotate", "Free Rotate...", Selection, CheckKind::None, nullptr, Open<Form::FreeRotate>,
     {EditBar, 16, "Rotate: Free Rotate...", "Free Rotate: Rotate the selected brushes around the Rotation Marker on the X, Y, and Z axis", kSeparator}},
    {"mnuRotX", "mnuRotate", "X-Axis: 90°", Selection, CheckKind::None, nullptr, Rotate<90, 0, 0>,
     {EditBar, 10, "Rotate: X-Axis 90°", "Rotate X-Axis 90°: Rotate selected brushes by the X-Axis 90° (Clockwise)"}, kSeparator},
    {"mnuRotXc", "mnuRotate", "X-Axis: -90°", Selection, CheckKind::None, nullptr, Rotate<-90, 0, 0>,
     {EditBar, 11, "Rotate: X-Axis -90°", "Rotate X-Axis -90°: Rotate selected brushes by the X-Axis -90° (Counter Clockwise)"}},
    {"mnuRotY", "mnuRotate", "Y-Axis: 90°", Selection, CheckKind::None, nullptr, Rotate<0, 90, 0>,
     {EditBar, 12, "Rotate: Y-Axis 90°", "Rotate Y-Axis 90°: Rotate selected brushes by the Y-Axis 90° (Clockwise)"}},
    {"mnuRotYc", "mnuRotate", "Y-Axis: -90°", Selection, CheckKind::None, nullptr, Rotate<0, -90, 0>,
     {EditBar, 13, "Rotate: Y-Axis -90°", "Rotate Y-Axis -90°: Rotate selected brushes by the Y-Axis -90° (Counter Clockwise)"}},
    {"mnuRotZ", "mnuRotate", "Z-Axis: 90°", Selection, CheckKind::None, nullptr, Rotate<0, 0, -90>,
     {EditBar, 14, "Rotate: Z-Axis 90°", "Rotate Z-Axis 90°: Rotate selected brushes by the Z-Axis 90° (Clockwise)"}},
    {"mnuRotZc", "mnuRotate", "Z-Axis: -90°", Selection, CheckKind::None, nullptr, Rotate<0, 0, 90>,
     {EditBar, 15, "Rotate: Z-Axis -90°", "Rotate Z-Axis -90°: Rotate selected brushes by the Z-Axis -90° (Counter Clockwise)"}},
    {"mnuFlipX", "mnuFlip", "X-Axis", Selection, CheckKind::None, nullptr, Flip<true, false, false>,
     {EditBar, 17, "Flip: X-Axis", "Flip X: Flip selected brushes on the X-Axis"}},
    {"mnuFlipY", "mnuFlip", "Y-Axis", Selection, CheckKind::None, nullptr, Flip<false, true, false>,
     {EditBar, 18, "Flip: Y-Axis", "Flip Y: Flip selected brushes on the Y-Axis"}},
    {"mnuFlipZ", "mnuFlip", "Z-Axis", Selection, CheckKind::None, nullptr, Flip<false, false, true>,
     {EditBar, 19, "Flip: Z-Axis", "Flip Z: Flip selected brushes on the Z-Axis", kSeparator}},
    {"mnuInvert", "mnuModify", "Invert", Selection, CheckKind::None, nullptr, InvertBrushes, {}},
    {"mnuMultiply", "mnuModify", "Multiply Brushes...", Selection, CheckKind::None, nullptr, Open<Form::Multiply>,
     {EditBar, 20, "Multiply Selected Brushes...", "Multiply Brushes: Mulptiply selected brushes with offsets and rotations"}, kSeparator},
    {"mnuOptimize", "mnuModify", "Optimize Object...", TwoBrushes, CheckKind::None, nullptr, OpenOptimize, {}},

    {"mnuStatistics", "mnuInfo", "Object Statistics...", Always, CheckKind::None, nullptr, Open<Form::Statistics>, {}},

    {"mnuHelpContents", "mnuHelp", "Contents...", Always, CheckKind::None, nullptr, OpenHelp, {}},
};
// clang-format on

}  // namespace

std::span<const Menu> Menus() {
    return kMenus;
}

std::span<const Command> Commands() {
    return kCommands;
}

const Command* FindCommand(std::string_view name) {
    const auto found = std::ranges::find(kCommands, name, &Command::name);
    return found == std::end(kCommands) ? nullptr : found;
}

bool IsEnabled(const Command& command, const Editor& editor) {
    switch (command.enabled) {
        case Always:
            return true;
        case EnabledWhen::Selection:
            return SelectedBrushIndex(editor.scene) >= 0;
        case Clipboard:
            return !editor.scene.clipboard.empty();
        case TwoBrushes:
            return editor.scene.brushes.size() >= 2;
        case UndoAvailable:
            return editor.undo.UndoCount > 0;
        case RedoAvailable:
            return !editor.undo.redo.empty();
    }
    return false;
}

void RunCommand(Editor& editor, const Command& command) {
    if (!IsEnabled(command, editor)) return;
    const std::string outer = std::exchange(editor.undo.command, CommandTitle(command));
    command.run(editor);
    editor.undo.command = outer;
}

std::string CommandTitle(const Command& command) {
    const std::string_view text = command.button.statusText;
    if (const auto colon = text.find(": "); colon != text.npos)
        return std::string(text.substr(0, colon));
    const std::string_view caption = command.caption;
    return std::string(caption.substr(0, caption.find_last_not_of('.') + 1));
}

std::string StatusText(const Command& command, const Editor& editor) {
    const bool undo = command.enabled == UndoAvailable, redo = command.enabled == RedoAvailable;
    const std::string change = undo ? UndoCaption(editor) : redo ? RedoCaption(editor) : "";
    return change.empty() ? command.button.statusText : command.caption + (": " + change);
}

}  // namespace korvane
