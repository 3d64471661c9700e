// A picture of the chosen object beside the list of a file dialog.
#pragma once

#include <QTimer>
#include <QWidget>

#include "platform/QtPrompts.h"

class QFileDialog;
class QLabel;

namespace korvane {

/// Shows the object file that was chosen last, a moment after: who runs through a list with the
/// arrow keys does not wait for every file.
class ObjectView final : public QWidget {
    Q_OBJECT

  public:
    explicit ObjectView(ObjectPicture picture, QWidget* parent = nullptr);

    /// The file to show next; a folder shows nothing.
    void Choose(const QString& path);

  private:
    void Show();

    ObjectPicture picture_;
    QString path_;
    QTimer delay_;
    QLabel* lblObjectPicture_;
    QLabel* lblObjectName_;
};

/// Puts the view beside the list of the dialog, which becomes one of the toolkit's own.
void AddObjectView(QFileDialog& box, ObjectPicture picture);

}  // namespace korvane
