// The dialog that shows the object in numbers, each with a bar.
#pragma once

#include <QDialog>

#include "editor/Editor.h"
#include "scene/mStatistics.h"

class QGridLayout;
class QString;

namespace korvane {

class frmStats final : public QDialog {
    Q_OBJECT

  public:
    /// Counts once what the session's scene holds now.
    explicit frmStats(const Editor& editor, QWidget* parent = nullptr);

  private:
    void AddRow(QGridLayout& rows, const char* caption, Statistic statistic);
    QWidget* MakeBar(const QString& name, double share);

    const Statistics statistics_;
};

}  // namespace korvane
