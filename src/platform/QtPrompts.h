// The program's questions as real dialogs of the desktop.
#pragma once

#include <QImage>
#include <QString>
#include <functional>

#include "editor/Prompts.h"

class QFileDialog;

namespace korvane {

/// The picture of an object file in that size (pixels), null if it is none.
using ObjectPicture = std::function<QImage(const QString& path, const QSize& pixels)>;

/// Asks with QMessageBox and QFileDialog. Dialogs belong to the active window of the program, or
/// to one that is shown, and start in the folder that was chosen last; none proposes to save where
/// the user may not write.
class QtPrompts final : public Prompts {
  public:
    /// The dialog that opens objects shows them by this from now on; without, it shows none.
    void ShowObjectsBy(ObjectPicture picture) { picture_ = std::move(picture); }

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskOpenPath(const FileDialog& dialog) override;

    /// Adds the default extension to a name without one before asking whether to overwrite.
    std::optional<std::string> AskSavePath(const FileDialog& dialog) override;

    std::optional<Color> AskColor(Color color) override;

  private:
    std::optional<std::string> Ask(QFileDialog& box, const FileDialog& dialog);

    ObjectPicture picture_;
    QString folder_;  ///< of the file chosen last; empty: the system's choice
};

}  // namespace korvane
