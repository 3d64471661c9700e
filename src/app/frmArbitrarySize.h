// The dialog that asks for a side count which has no menu item of its own.
#pragma once

#include <QDialog>

#include "editor/Editor.h"

class QLineEdit;

namespace korvane {

class frmArbitrarySize final : public QDialog {
    Q_OBJECT

  public:
    /// Shows the side count that was chosen here last, selected. Escape leaves it as it is.
    explicit frmArbitrarySize(Editor& editor, QWidget* parent = nullptr);

  private:
    void Confirm();
    void ShowSides();

    Editor& editor_;
    QLineEdit* txtSides_;
};

}  // namespace korvane
