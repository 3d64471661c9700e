// The small window that shows how start-up proceeds.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <array>

#include "app/mStartUpLog.h"

class QLabel;

namespace korvane {

/// Ten lines that scroll, traced to a log file at the same time. Closing it completes the file.
class frmStartUp final : public QWidget, public StartUpLog {
    Q_OBJECT

  public:
    /// `owner` is the main window; `logPath` the log file (UTF-8).
    frmStartUp(const std::string& logPath, QWidget* owner);

    void AddText(const std::string& text) override;
    void AppendText(const std::string& text) override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void ShowLines();

    StartUpLines lines_;
    std::array<QLabel*, StartUpLines::kVisible> lblText_;
    QElapsedTimer sincePaint_;
};

}  // namespace korvane
