// The dialog that selects brushes by their groups, names and textures.
#pragma once

#include <QDialog>
#include <vector>

#include "editor/mSelectDialog.h"

class QListWidget;

namespace korvane {

class frmSelect final : public QDialog {
    Q_OBJECT

  public:
    /// Lists what the session's scene holds now. Okay adds the brushes of the chosen rows to the
    /// selection.
    explicit frmSelect(Editor& editor, QWidget* parent = nullptr);

  private:
    QListWidget* MakeList(const char* name, const char* caption,
                          const std::vector<std::string>& rows);
    void Confirm();

    Editor& editor_;
    const SelectLists lists_;
    QListWidget* lstGroups_;
    QListWidget* lstBrushes_;
    QListWidget* lstTextures_;
};

}  // namespace korvane
