// The running program on a stage: its window over a folder of its own, played with mouse and keys
// as a user would, and pictures of what it shows.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "app/frmMain.h"
#include "platform/QtPrompts.h"
#include "tools/manual/Marks.h"

namespace korvane {
class ObjectPainter;
}

namespace korvane::manual {

/// A place in a control, in its own pixels.
struct Place {
    QWidget* control;
    QPoint at;
};

/// A mark in a control; with `from` the way of a drag.
struct PlacedMark {
    Place at;
    QString text = {};
    std::optional<Place> from = {};
};

class Stage {
  public:
    /// Starts the program with the textures and sample objects of the folder `examples`. Pictures
    /// go to the folder `pictures`.
    Stage(const QString& examples, const QString& pictures);
    ~Stage();

    frmMain& Window() { return *window_; }
    Editor& Session() { return window_->Session(); }

    /// The program's folder for objects, which its file dialogs start in.
    QString ObjectPath(const QString& name) const;

    /// The control of that object name in the window or the dialog; there must be one.
    template <class T = QWidget>
    T* Find(const QString& name, QWidget* in = nullptr) {
        return qobject_cast<T*>(FindObject(name, in != nullptr ? in : window_.get()));
    }

    /// Notes a fault, unless the condition holds.
    void Expect(bool holds, const QString& what);
    bool Failed() const { return failed_; }

    /// Where a world point lies in a flat view (0 Top, 1 Left, 2 Front), or a depth on the gauge.
    Place InView(int view, const Vec3& point);
    Place OnGauge(float depth);
    /// Where a texture lies in the browser, which must show it.
    Place OnTexture(const char* name);
    Place Middle(const QString& control);

    void Click(const Place& place, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = {});
    /// Drags; what is to be seen before the button goes up is done in `midway`.
    void Drag(const Place& from, const Place& to, const std::function<void()>& midway = {});
    void TurnWheel(const Place& place, int notches);
    /// Types into a text box in place of what it holds, and presses Enter.
    void Type(QWidget* box, const QString& text, bool enter = true);
    /// Holds a key of the keyboard map down for that many hundredths of a second.
    void HoldKey(Qt::Key key, int ticks);

    /// Chooses a command from its menu; it must be possible.
    void Choose(const char* command);
    /// The same for one that opens modal windows: each act meets the next of them and closes it.
    using Act = std::function<void(QWidget&)>;
    void Choose(const char* command, std::initializer_list<Act> acts);

    /// Acts for common windows: naming a file, and pressing a button by its text.
    Act NameFile(const QString& name, const QString& picture = {});
    Act PressButton(const QString& text, const QString& picture = {});

    /// Takes a picture of a window with its frame, or of a control of one, under that name.
    void Picture(const QString& name, QWidget& shown, const std::vector<PlacedMark>& marks = {});
    void Picture(const QString& name, const std::vector<PlacedMark>& marks = {}) {
        Picture(name, *window_, marks);
    }

    /// The names of the pictures taken.
    const std::set<QString>& Pictures() const { return pictures_; }
    /// Texts of the controls in the pictures, as Plain gives them.
    const std::set<QString>& Texts() const { return texts_; }

    /// Opens an object of the examples in place of the present one, without questions.
    void OpenExample(const QString& name);
    /// Starts an empty object, with everything else as at a start.
    void StartOver();

  private:
    QObject* FindObject(const QString& name, QWidget* in);
    void NoteTexts(const QWidget& window);

    QTemporaryDir folder_;
    QString folderOfPictures_;
    QtPrompts prompts_;
    std::unique_ptr<frmMain> window_;
    std::unique_ptr<ObjectPainter> painter_;
    std::set<QString> pictures_;
    std::set<QString> texts_;
    bool failed_ = false;
};

/// A text of the program without mnemonic, dots and colon at its end.
QString Plain(QString text);

}  // namespace korvane::manual
