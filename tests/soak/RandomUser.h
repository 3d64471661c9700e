// A user without a plan: clicks, drags, types, chooses menu items and answers questions at random,
// and never does what the window would not let a hand do.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabBar>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <random>

#include "app/frmMain.h"
#include "editor/mCommands.h"
#include "platform/QtPrompts.h"

namespace korvane::soak {

constexpr const char* kSurfaces[] = {"view pbView0",     "view pbView1",     "view pbView2",
                                     "preview pbOpenGL", "preview pbOpenGL", "gauge pbDepth"};

/// The sliders of the property panel, and the boxes that enable them.
constexpr std::pair<const char*, const char*> kFaceSliders[] = {
    {"hsRotate", "chkRotate"}, {"hsTransparent", "chkFlagTransparent"}};

constexpr Qt::Key kKeys[] = {
    Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Left,   Qt::Key_Right,   Qt::Key_PageUp,
    Qt::Key_Home,   Qt::Key_End,       Qt::Key_Insert, Qt::Key_Delete,  Qt::Key_Escape,
    Qt::Key_Return, Qt::Key_Tab,       Qt::Key_Space,  Qt::Key_Shift,   Qt::Key_Control,
    Qt::Key_Plus,   Qt::Key_Minus,     Qt::Key_A,      Qt::Key_C,       Qt::Key_D,
    Qt::Key_E,      Qt::Key_F,         Qt::Key_M,      Qt::Key_Q,       Qt::Key_R,
    Qt::Key_S,      Qt::Key_V,         Qt::Key_W,      Qt::Key_X,       Qt::Key_Z,
    Qt::Key_1,      Qt::Key_2,         Qt::Key_3,      Qt::Key_F1,      Qt::Key_F5,
    Qt::Key_F10,    Qt::Key_Backspace, Qt::Key_Alt,    Qt::Key_PageDown};

constexpr const char* kTexts[] = {"0",  "1",  "-1",   "2",    "3",  "0.25", "-3.5",
                                  "45", "90", "-200", "64",   "65", "999",  "1e9",
                                  "",   "-",  "1..",  "wall", "%",  "ä€",   "123456789012"};

/// How often each thing was done: "command mnuUndo", "button btnStart of frmOptimize".
using Tally = std::map<std::string, unsigned>;

/// Random decisions. Each action starts a stream of its own, so that one which took another turn
/// (by the clock) does not change all that come after it.
class Dice {
  public:
    void Start(unsigned seed, unsigned action) {
        std::seed_seq sequence{seed, action};
        random_.seed(sequence);
    }
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }
    template <class List>
    const auto& OneOf(const List& list) {
        return list[static_cast<std::size_t>(Pick(0, static_cast<int>(std::size(list)) - 1))];
    }
    /// Of three at random the one that was done least: what is many does not bury what is few.
    template <class List, class Name>
    const auto& LeastDone(const List& list, const Tally& tally, Name name) {
        const auto times = [&](const auto& item) {
            const auto found = tally.find(name(item));
            return found == tally.end() ? 0 : found->second;
        };
        const auto* least = &OneOf(list);
        for (int i = 0; i < 2; ++i)
            if (const auto* other = &OneOf(list); times(*other) < times(*least)) least = other;
        return *least;
    }

  private:
    std::mt19937 random_;
};

/// The object name, or the class of what has none.
inline std::string NameOf(const QObject& object) {
    const QString name = object.objectName();
    return name.isEmpty() ? object.metaObject()->className() : name.toStdString();
}

/// A control that a hand can use: shown, enabled and not under the edge of its window.
inline bool IsUsable(const QWidget& control) {
    return control.isVisible() && control.isEnabled() && !control.visibleRegion().isEmpty();
}

/// The kind of a control that does something; empty for any other.
inline std::string KindOf(const QWidget& control) {
    if (qobject_cast<const QLineEdit*>(&control) || qobject_cast<const QPlainTextEdit*>(&control))
        return "text";
    if (qobject_cast<const QAbstractSlider*>(&control)) return "slider";
    if (qobject_cast<const QAbstractButton*>(&control)) return "button";
    if (control.inherits("korvane::ucSplitGrip")) return "grip";
    const bool list =
        qobject_cast<const QComboBox*>(&control) || qobject_cast<const QTabBar*>(&control) ||
        qobject_cast<const QAbstractItemView*>(&control) ||
        control.inherits("korvane::ucRowList") || control.inherits("korvane::ucTextureList");
    return list ? "list" : "";
}

inline std::string WhatOf(const QWidget& control) {
    return KindOf(control) + " " + NameOf(control) + " of " + NameOf(*control.window());
}

inline std::vector<QWidget*> ControlsOf(QWidget& root) {
    const QList<QWidget*> all = root.findChildren<QWidget*>();
    std::vector<QWidget*> controls(all.begin(), all.end());
    std::erase_if(controls, [&](const QWidget* control) {
        return KindOf(*control).empty() || control->window() != &root || !IsUsable(*control);
    });
    return controls;
}

/// One control of each kind.
inline std::vector<QWidget*> KindsOf(const std::vector<QWidget*>& controls) {
    std::map<std::string, QWidget*> kinds;
    for (QWidget* control : controls) kinds.emplace(KindOf(*control), control);
    std::vector<QWidget*> list;
    for (const auto& [kind, control] : kinds) list.push_back(control);
    return list;
}

/// Shows real message boxes; answers for paths and colours at random. Most paths are good ones;
/// some name files that are damaged, missing, or can't be written.
class RandomPrompts final : public Prompts {
  public:
    RandomPrompts(Dice& dice, Tally& tally, std::filesystem::path folder)
        : dice_(dice), tally_(tally), folder_(std::move(folder)) {}

    Answer ShowMessage(const Message& message) override { return boxes_.ShowMessage(message); }

    std::optional<std::string> AskOpenPath(const FileDialog& dialog) override {
        ++tally_["answer a path to open"];
        if (dice_.Chance(15)) return std::nullopt;
        std::vector<std::string> paths{(folder_ / "missing").string()};
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            if (entry.path().extension() == "." + dialog.defaultExtension || dice_.Chance(3))
                paths.push_back(entry.path().string());
        }
        std::ranges::sort(paths);
        return dice_.OneOf(paths);
    }

    std::optional<std::string> AskSavePath(const FileDialog& dialog) override {
        ++tally_["answer a path to save"];
        if (dice_.Chance(15)) return std::nullopt;
        if (dice_.Chance(10)) return (folder_ / "no folder" / "x").string();
        return (folder_ /
                ("saved" + std::to_string(dice_.Pick(0, 5)) + "." + dialog.defaultExtension))
            .string();
    }

    std::optional<Color> AskColor(Color color) override {
        ++tally_["answer a colour"];
        if (dice_.Chance(20)) return std::nullopt;
        return color ^ static_cast<Color>(dice_.Pick(0, 0xFFFFFF));
    }

  private:
    Dice& dice_;
    Tally& tally_;
    std::filesystem::path folder_;
    QtPrompts boxes_;
};

/// The hands. Input enters at the windows, as that of a window system does, so that modality,
/// grabs and focus count.
class RandomUser {
  public:
    /// Files that are dropped lie in the folder. `announce` is called with what will be done,
    /// before it happens.
    RandomUser(Dice& dice, Tally& tally, std::filesystem::path folder,
               std::function<void(const std::string&)> announce)
        : dice_(dice), tally_(tally), folder_(std::move(folder)), announce_(std::move(announce)) {}

    /// Does one thing in the window or in what stands over it.
    void Act(frmMain& window) {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            ActInPopup(*popup);
        } else if (QWidget* dialog = QApplication::activeModalWidget()) {
            dice_.Chance(15) ? PressKeys(*dialog) : UseControl(*dialog);
        } else if (window.isVisible()) {
            ActInWindow(window);
        }
    }

  private:
    void ActInWindow(frmMain& window) {
        std::vector<QWidget*> modeless;
        for (QWidget* dialog : window.findChildren<QDialog*>())
            if (dialog->isVisible()) modeless.push_back(dialog);
        if (!modeless.empty() && dice_.Chance(25)) return UseControl(*dice_.OneOf(modeless));
        const int kind = dice_.Pick(1, 100);
        if (kind <= 42) return UseSurface(window);
        if (kind <= 70) return ChooseCommand(window);
        if (kind <= 80) return UseControl(window);
        if (kind <= 85) return UseFaceSlider(window);
        if (kind <= 98) return PressKeys(window);
        if (kind <= 99) return DropFile(window);
        announce_("window resize");
        window.resize(dice_.Pick(640, 1600), dice_.Pick(480, 1100));
    }

    void ActInPopup(QWidget& popup) {
        if (dice_.Chance(50)) {
            announce_("popup Escape in " + NameOf(popup));
            QTest::keyClick(&popup, Qt::Key_Escape);
            return;
        }
        announce_("popup click into " + NameOf(popup));
        Click(popup, PointIn(popup), Qt::LeftButton, {});
    }

    /// Drawing and editing come more often than what leaves the object behind.
    void ChooseCommand(frmMain& window) {
        static constexpr const char* kRare[] = {"mnuNew", "mnuOpen", "mnuExit", "mnuRecentFile_"};
        std::vector<QAction*> actions;
        for (const Command& command : Commands())
            actions.push_back(window.findChild<QAction*>(command.name));
        for (int i = 0; i < static_cast<int>(kRecentFiles); ++i)
            actions.push_back(window.findChild<QAction*>("mnuRecentFile_" + QString::number(i)));
        std::erase_if(actions, [](const QAction* a) { return !a->isEnabled() || !a->isVisible(); });
        const auto what = [](const QAction* action) { return "command " + NameOf(*action); };
        QAction& action = *dice_.LeastDone(actions, tally_, what);
        const bool rare = std::ranges::any_of(
            kRare, [&](const char* name) { return NameOf(action).starts_with(name); });
        if (rare && dice_.Chance(85)) return UseSurface(window);
        announce_(what(&action));
        action.trigger();
    }

    void UseSurface(frmMain& window) {
        const std::string what = dice_.OneOf(kSurfaces);
        auto* surface = window.findChild<QWidget*>(what.substr(what.find(' ') + 1).c_str());
        if (!IsUsable(*surface)) return ChooseCommand(window);
        const bool onVertex = what.starts_with("view") && dice_.Chance(50);
        const QPoint from =
            onVertex ? PlaceOfVertex(window, what.back() - '0', *surface) : PointIn(*surface);
        announce_(what);
        if (what.starts_with("preview") && dice_.Chance(40)) return Pick(window, *surface);
        dice_.Chance(8) ? Turn(*surface, from) : Drag(*surface, from);
    }

    void UseControl(QWidget& root) {
        std::vector<QWidget*> controls = ControlsOf(root);
        if (controls.empty()) return PressKeys(root);
        // The kind comes first: of buttons there are many.
        const std::string kind = KindOf(*dice_.OneOf(KindsOf(controls)));
        std::erase_if(controls, [&](const QWidget* control) { return KindOf(*control) != kind; });
        const auto what = [](const QWidget* control) { return WhatOf(*control); };
        QWidget& control = *dice_.LeastDone(controls, tally_, what);
        announce_(what(&control));
        if (kind == "text" && dice_.Chance(80)) return TypeInto(control);
        if (kind == "grip" || (kind == "slider" && dice_.Chance(60)))
            return Drag(control, PointIn(control));
        const bool left = kind == "text" || dice_.Chance(95);
        Click(control, PointIn(control), left ? Qt::LeftButton : Qt::RightButton, Modifiers());
    }

    /// Works towards a slider of the faces: a brush must be selected, and the box beside it
    /// checked.
    void UseFaceSlider(frmMain& window) {
        const auto& [slider, box] = dice_.OneOf(kFaceSliders);
        auto* control = window.findChild<QWidget*>(slider);
        if (!IsUsable(*control)) control = window.findChild<QWidget*>(box);
        if (!IsUsable(*control)) return UseSurface(window);
        announce_(WhatOf(*control));
        if (KindOf(*control) == "slider") return Drag(*control, PointIn(*control));
        Click(*control, PointIn(*control), Qt::LeftButton, {});
    }

    void TypeInto(QWidget& box) {
        const QPointer<QWidget> watched = &box;
        Click(box, box.rect().center(), Qt::LeftButton, {});
        if (!watched) return;
        const QPointer<QWindow> window = box.window()->windowHandle();
        if (dice_.Chance(70)) QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
        for (const QChar c : QString::fromUtf8(dice_.OneOf(kTexts)))
            if (watched && watched->hasFocus())
                QTest::sendKeyEvent(QTest::Click, watched, Qt::Key_unknown, c, {});
        if (watched && window && dice_.Chance(70))
            QTest::keyClick(window, dice_.Chance(80) ? Qt::Key_Return : Qt::Key_Tab);
    }

    /// Up to three keys, held over each other for a while: long enough to fly.
    void PressKeys(QWidget& root) {
        const QPointer<QWindow> window = root.windowHandle();
        std::vector<Qt::Key> held;
        announce_("keys to " + NameOf(root));
        const Qt::KeyboardModifiers keys = Modifiers();
        for (int i = dice_.Pick(1, 3); i > 0 && window; --i) {
            const Qt::Key key = dice_.OneOf(kKeys);
            held.push_back(key);
            QTest::keyPress(window, key, keys);
            if (dice_.Chance(50)) QCoreApplication::processEvents();
        }
        if (dice_.Chance(30)) QTest::qWait(dice_.Pick(1, 40));
        for (const Qt::Key key : held)
            if (window && dice_.Chance(97)) QTest::keyRelease(window, key, keys);
    }

    void DropFile(frmMain& window) {
        announce_("window drop");
        QMimeData data;
        const std::string file = "saved" + std::to_string(dice_.Pick(0, 5)) + ".kvobject";
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString((folder_ / file).string()))});
        QDropEvent event(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Modifiers());
        QApplication::sendEvent(&window, &event);
    }

    /// From where the camera sees the middle of the world, if it did not fly off meanwhile.
    void Pick(frmMain& window, QWidget& preview) {
        if (dice_.Chance(50)) window.findChild<QAction*>("mnuResetAllViews")->trigger();
        for (int i = 0; i < 4; ++i)
            Click(preview, PointIn(preview), Qt::LeftButton, Qt::ControlModifier);
    }

    /// A button goes down, moves, and comes up; now and then something comes in between.
    void Drag(QWidget& surface, const QPoint& from) {
        const Qt::MouseButton button = dice_.OneOf(std::array{
            Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton});
        const Qt::KeyboardModifiers keys = Modifiers();
        const QPointer<QWindow> window = surface.window()->windowHandle();
        QPoint at = surface.mapTo(surface.window(), from);
        QTest::mousePress(window, button, keys, at);
        const int steps = dice_.Pick(0, 4);
        for (int i = 0; i < steps && window; ++i) {
            at += QPoint(dice_.Pick(-60, 60), dice_.Pick(-60, 60));
            QTest::mouseMove(window, at);
            if (dice_.Chance(4)) QTest::keyClick(window, Qt::Key_Escape);
            if (dice_.Chance(30)) QCoreApplication::processEvents();
        }
        if (window) QTest::mouseRelease(window, button, keys, at);
        if (window && dice_.Chance(5)) QTest::mouseDClick(window, button, keys, at);
    }

    void Turn(QWidget& surface, const QPoint& at) {
        ++tally_["wheel"];
        QWheelEvent event(at, surface.mapToGlobal(at), {}, {0, dice_.Pick(-3, 3) * 120}, {},
                          Modifiers(), Qt::NoScrollPhase, false);
        QApplication::sendEvent(&surface, &event);
    }

    void Click(QWidget& control, const QPoint& at, Qt::MouseButton button,
               Qt::KeyboardModifiers keys) {
        if (QWindow* window = control.window()->windowHandle())
            QTest::mouseClick(window, button, keys, control.mapTo(control.window(), at));
    }

    QPoint PointIn(const QWidget& control) {
        const QRect shown = control.visibleRegion().boundingRect();
        if (shown.isEmpty()) return {};
        return {dice_.Pick(shown.left(), shown.right()), dice_.Pick(shown.top(), shown.bottom())};
    }

    /// Where a vertex, or the middle between two, lies in a view: picks and drags meet something.
    QPoint PlaceOfVertex(frmMain& window, int view, const QWidget& surface) {
        const auto& brushes = window.Session().scene.brushes;
        if (brushes.empty()) return PointIn(surface);
        const Brush& brush = dice_.OneOf(brushes);
        if (brush.vertices.empty()) return PointIn(surface);
        const Vec3 a = dice_.OneOf(brush.vertices).Position();
        const Vec3 b = dice_.Chance(50) ? a : dice_.OneOf(brush.vertices).Position();
        const ScreenPoint at = WorldToScreen(window.Session().views[static_cast<std::size_t>(view)],
                                             view, Midpoint(a, b));
        const QRectF shown = surface.rect();
        return shown.contains(at.x, at.y) ? QPointF(at.x, at.y).toPoint() : PointIn(surface);
    }

    Qt::KeyboardModifiers Modifiers() {
        return dice_.OneOf(std::array<Qt::KeyboardModifiers, 6>{
            Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
            Qt::ShiftModifier});
    }

    Dice& dice_;
    Tally& tally_;
    std::filesystem::path folder_;
    std::function<void(const std::string&)> announce_;
};

}  // namespace korvane::soak
