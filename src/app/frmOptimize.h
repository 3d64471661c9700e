// The dialog that runs the optimizer over the object, and can pause and stop it.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <array>
#include <memory>

#include "optimizer/mOptimizeDialog.h"
#include "views/ui/mOGL3D.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace korvane {

class PercentBar;

class frmOptimize final : public QDialog {
    Q_OBJECT

  public:
    /// Works on the session's scene. The reference engine picks in the context, whose viewport sets
    /// the pixel that a stop looks through.
    frmOptimize(Editor& editor, RenderContext& context, QWidget* parent = nullptr);

    /// Escape and the title bar do what "Cancel" or "Stop" does.
    void reject() override;
    void done(int result) override;

  private:
    QGroupBox* MakeDetails();
    QWidget* MakeProgress();
    void EnableChoices();
    OptimizeChoices Choices() const;
    std::unique_ptr<OptimizeEngine> MakeEngine();
    void StartPressed();
    void Run();
    void TellEnd(const OptimizeResult& result);
    void EnterState(OptimizeState state);
    bool Poll(const OptimizeProgress& progress);
    void ShowProgress(const OptimizeProgress& progress);

    Editor& editor_;
    RenderContext& context_;
    std::array<QRadioButton*, kDetailSteps.size()> optDetail_{};
    std::array<QCheckBox*, 2> chkExtras_{};
    QCheckBox* chkCovered_;
    QGroupBox* details_;
    QComboBox* cboEngine_;
    QWidget* lblEngine_;
    PercentBar* pbPercent_;
    QLabel* lblInfo_;
    QLabel* lblTime_;
    QPushButton* btnStart_;
    QPushButton* btnCancel_;
    OptimizeState state_ = OptimizeState::Idle;
    QElapsedTimer clock_;       ///< since the run was started or continued
    double clockedBefore_ = 0;  ///< seconds that it ran before that
};

}  // namespace korvane
