// One editing session without a window: everything that commands, gestures and dialogs need, passed
// by reference. There is no global state.
#pragma once

#include <array>
#include <string>

#include "editor/EditorHost.h"
#include "editor/KeyBoard.h"
#include "editor/Prompts.h"
#include "editor/Recovery.h"
#include "editor/UndoCache.h"
#include "export/CodeTemplate.h"
#include "files/Settings.h"
#include "scene/Scene.h"
#include "scene/mTextureCoords.h"
#include "textures/core/TextureLibrary.h"
#include "views/core/Camera.h"
#include "views/core/DepthRange.h"
#include "views/core/ViewState.h"
#include "views/core/mViewEdit.h"

namespace korvane {

enum class GaugeLevel { None, HI, LO };

/// State of the mouse gesture on a 2D view; one set for all three.
struct ViewGesture {
    float lastX = 0;  ///< pixel position of the last press or pan step
    float lastY = 0;
    Vec3 dragStart;                     ///< world point at the press, on the grid with snap on
    bool creating = false;              ///< a left press began the rectangle of a new brush
    bool undoStep = false;              ///< the newest undo step is this gesture's, not yet named
    bool movesMarker = false;           ///< a left press took hold of the rotation marker
    bool dragging = false;              ///< the left button is down
    bool moved = false;                 ///< the left button has dragged since its press
    bool panning = false;               ///< the right or the middle button is down
    bool panned = false;                ///< it has dragged since its press
    bool unselects = false;             ///< it was the right one: a click unselects
    int view = 0;                       ///< the view of the press
    std::int16_t editMode = BrushMove;  ///< at the press
    MoveOrigin origin;                  ///< what a drag of the selection moves, from where
    Vec3 markerStart;                   ///< the marker at the press
};

/// What the wheel turns about.
struct WheelZoom {
    /// What stays where it is while one view or the gauge zooms.
    struct Anchor {
        double x = 0;  ///< pixels
        double y = 0;
        Vec3 point;      ///< what lies there, in world units
        ViewState left;  ///< the view as the last turn left it
    };
    int view = -1;
    float x = 0;  ///< pixel position of the mouse
    float y = 0;
    double zoom = 0;                             ///< before rounding, pixels per world unit
    std::array<Anchor, kViewCount + 1> anchors;  ///< of the views and the gauge
};

/// State of the mouse gesture on the depth gauge.
struct GaugeGesture {
    GaugeLevel level = GaugeLevel::None;
    float previous = 0;    ///< world value of the pointer at the previous step
    float lastY = 0;       ///< pixels
    bool panning = false;  ///< the right button is down
};

enum MouseLookState : std::int16_t {
    LookOff = 0,
    LookOn = 1,
    LookRecentred = 2  ///< on, and the cursor has just been put back into the middle of the view
};

/// State of the mouse over the 3D preview.
struct MouseLook {
    std::int16_t state = LookOff;
    float lastX = 0;  ///< pixel position that the next move is counted from
    float lastY = 0;
};

/// What the multiply dialog remembers between uses.
struct Multiply {
    std::int16_t count = 0;
    Vec3 move;      ///< step offset, world units
    Vec3 rotation;  ///< step rotation about X, Y, Z, degrees
};

/// The session.
struct Editor {
    /// The session asks through these two, which must outlive it.
    Editor(EditorHost& editorHost, Prompts& userPrompts) : host(editorHost), prompts(userPrompts) {}

    EditorHost& host;
    Prompts& prompts;

    Scene scene;
    TextureLibrary textures;
    Settings settings;
    KnownTextureCoords knownCoords;

    std::array<ViewState, kViewCount> views;
    ViewState gauge;      ///< only the vertical components are used
    float splitX = 0.5F;  ///< position of the four-way split, 0..1
    float splitY = 0.5F;
    Camera camera;
    DepthRange depthRange;
    Vec3 CursorPoint;  ///< world point under the mouse
    ViewGesture gesture;
    GaugeGesture gaugeGesture;
    WheelZoom wheelZoom;
    KeyBoard keyBoard;
    MouseLook mouseLook;

    UndoCache undo;
    Recovery recovery;
    Vec3 freeRotate;  ///< last angles typed into the free-rotate dialog, degrees
    Multiply multiply;
    int markerForms = 0;  ///< open dialogs that turn about the marker

    std::int32_t exportedParts = 0;  ///< mesh objects exported in this run: they number the next
    CodeTemplate codeTemplate;       ///< last used to export source code

    std::string programFolder;      ///< UTF-8, no slash at its end; Help and shipped textures
    std::string dataFolder;         ///< where that can't be written: see DataFolder
    std::string CurrentObjectPath;  ///< UTF-8; empty for a new scene
    bool SceneModified = false;     ///< changes not yet saved
    /// The file at CurrentObjectPath was chosen but could not be understood: Save must not
    /// overwrite it without asking.
    bool currentFileForeign = false;

    /// Where ObjTextures, ObjCache, settings and log lie (UTF-8, no slash at its end).
    const std::string& DataFolder() const {
        return dataFolder.empty() ? programFolder : dataFolder;
    }

    TextureSpace Space() const { return {textures, settings.TextureScale}; }
};

/// The common refresh that ends almost every command: RedrawAllViews, command states and title,
/// then the property panel.
void RefreshAll(Editor& editor);

/// Enabling, checks and window title of all commands.
void UpdateCommandStates(Editor& editor);

/// Requests a redraw of the three 2D views, the depth gauge and the preview.
void RedrawAllViews(Editor& editor);

/// Tells the user of a failure, under the title "Error!".
void ShowError(Editor& editor, std::string text);

/// The window title: "Korvane - NAME", with "*" while there are unsaved changes.
std::string WindowTitle(const Editor& editor);

}  // namespace korvane
