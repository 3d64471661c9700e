// When the scene is stored for a crash that nobody hopes for: a few seconds after the last change.
#pragma once

#include <QObject>
#include <QTimer>

namespace korvane {

struct Editor;

/// Stores recovery files in idle moments, between paints and never in the middle of a gesture.
class Autosave final : public QObject {
    Q_OBJECT

  public:
    /// The session must outlive it.
    explicit Autosave(Editor& editor);

    /// Something may have changed: the scene is stored when nothing more happens for a while, or
    /// has happened without a pause for too long.
    void NoteActivity();

  private:
    void Store();

    Editor& editor_;
    QTimer pause_;
    QTimer longest_;
};

}  // namespace korvane
