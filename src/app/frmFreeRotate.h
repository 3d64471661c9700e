// The modeless dialog that turns the selection about the rotation marker.
#pragma once

#include <QDialog>
#include <array>

#include "editor/Editor.h"

class QLineEdit;

namespace korvane {

class frmFreeRotate final : public QDialog {
    Q_OBJECT

  public:
    /// Shows the marker for as long as the dialog is open, and deletes itself when it is closed.
    frmFreeRotate(Editor& editor, QWidget* parent);

    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QLineEdit* MakeBox(int axis);
    void Confirm();

    Editor& editor_;
    std::array<QLineEdit*, 3> txtRotate_;
};

}  // namespace korvane
