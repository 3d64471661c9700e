// The modeless dialog that makes rows, rings and spirals of copies of the selection.
#pragma once

#include <QDialog>
#include <array>

#include "editor/mMultiply.h"

class QCheckBox;
class QLineEdit;

namespace korvane {

class frmMultiply final : public QDialog {
    Q_OBJECT

  public:
    /// Shows the rotation marker for as long as the dialog is open, and deletes itself when it is
    /// closed.
    frmMultiply(Editor& editor, QWidget* parent);

    void done(int result) override;

  private:
    /// Steps 0..2 and totals 3..5 along X, Y, Z, and which of them are typed.
    struct Row {
        std::array<QLineEdit*, 6> boxes;
        QCheckBox* chkMode;
    };

    Row MakeRow(const QString& boxName, int mode, const QString& modeCaption);
    QLineEdit* MakeBox(const QString& name, const char* keys);
    void FollowMode(const Row& row, StepBoxes& values);
    void Read();
    void Show();
    void Recompute();
    void Confirm();

    Editor& editor_;
    MultiplyBoxes values_;
    QLineEdit* txtCount_;
    Row move_;
    Row rotate_;
};

}  // namespace korvane
