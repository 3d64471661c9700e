#include "app/frmOptimize.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "optimizer/ExactEngine.h"
#include "optimizer/FastEngine.h"
#include "views/ui/mSelectionEngine.h"

namespace korvane {

/// A bar of 0 to 100.
class PercentBar final : public QFrame {
  public:
    explicit PercentBar(QWidget* parent) : QFrame(parent) {
        setFrameStyle(QFrame::Panel | QFrame::Sunken);
        setFixedHeight(18);
    }

    void SetPercent(int percent) {
        if (percent == percent_) return;
        percent_ = percent;
        update();
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QRect filled = contentsRect();
        filled.setWidth(filled.width() * percent_ / 100);
        QPainter(this).fillRect(filled, QColor(0, 0, 255));
        QFrame::paintEvent(event);
    }

  private:
    int percent_ = 0;
};

namespace {

constexpr const char* kDetails[] = {"Extremely High", "High", "Normal", "Low", "Extremely Low"};
constexpr const char* kExtras[] = {"Include a Z-Axis Pass", "Include Polar Passes"};
constexpr int kWidth = 380;  // pixels, or what the longest text needs
constexpr const char* kLongestText = "10,000 polygons hidden, 10,000 polygons made visible again";
enum Engine { FastEngineRow, ReferenceEngineRow };

QCheckBox* MakeCheckBox(const char* caption, const QString& name, QWidget* parent) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    return box;
}

QLabel* MakeLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    return label;
}

}  // namespace

frmOptimize::frmOptimize(Editor& editor, RenderContext& context, QWidget* parent)
    : QDialog(parent),
      editor_(editor),
      context_(context),
      chkCovered_(MakeCheckBox("Only Faces That Are Completely Covered", "chkCovered", this)),
      details_(MakeDetails()),
      cboEngine_(new QComboBox(this)),
      btnStart_(new QPushButton("Start", this)),
      btnCancel_(new QPushButton("Cancel", this)) {
    setObjectName("frmOptimize");
    setWindowTitle("Optimize Object");
    chkCovered_->setToolTip(
        "Hide a face only where other brushes cover all of it, instead of "
        "looking from some directions");
    cboEngine_->setObjectName("cboEngine");
    cboEngine_->addItems({"Fast", "Reference (OpenGL)"});
    btnStart_->setObjectName("btnStart");
    btnStart_->setDefault(true);
    btnCancel_->setObjectName("btnCancel");
    connect(btnStart_, &QPushButton::clicked, this, &frmOptimize::StartPressed);
    connect(btnCancel_, &QPushButton::clicked, this, &frmOptimize::reject);
    connect(chkCovered_, &QCheckBox::toggled, this, &frmOptimize::EnableChoices);

    auto* engine = new QFormLayout;
    engine->addRow("&Engine:", cboEngine_);
    lblEngine_ = engine->labelForField(cboEngine_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnStart_);
    buttons->addWidget(btnCancel_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(details_);
    for (QCheckBox* box : chkExtras_) column->addWidget(box);
    column->addLayout(engine);
    column->addWidget(chkCovered_);
    column->addWidget(MakeProgress());
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(cboEngine_, chkCovered_);
    setTabOrder(chkCovered_, btnStart_);
}

QGroupBox* frmOptimize::MakeDetails() {
    auto* frame = new QGroupBox("Optimize Picker Detail", this);
    auto* column = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < optDetail_.size(); ++i) {
        optDetail_[i] = new QRadioButton(kDetails[i], frame);
        optDetail_[i]->setObjectName(QString("optDetail_%1").arg(i));
        optDetail_[i]->setToolTip(QString("Looks every %1°").arg(double{kDetailSteps[i]}));
        column->addWidget(optDetail_[i]);
    }
    optDetail_[0]->setChecked(true);
    for (std::size_t i = 0; i < chkExtras_.size(); ++i) {
        chkExtras_[i] = MakeCheckBox(kExtras[i], QString("chkExtras_%1").arg(i), this);
        chkExtras_[i]->setChecked(true);
    }
    return frame;
}

QWidget* frmOptimize::MakeProgress() {
    auto* panel = new QWidget(this);
    panel->setFixedWidth(std::max(kWidth, fontMetrics().horizontalAdvance(kLongestText)));
    pbPercent_ = new PercentBar(panel);
    pbPercent_->setObjectName("pbPercent");
    pbPercent_->setAccessibleName("Progress");
    lblInfo_ = MakeLabel("lblInfo", panel);
    lblInfo_->setText("Press Start to optimize the object.");
    lblTime_ = MakeLabel("lblTime", panel);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 6, 0, 6);
    for (QWidget* row : std::initializer_list<QWidget*>{lblInfo_, pbPercent_, lblTime_}) {
        column->addWidget(row);
    }
    return panel;
}

/// What is chosen counts from the start of a run to its end; the exact mode samples nothing.
void frmOptimize::EnableChoices() {
    const bool idle = state_ == OptimizeState::Idle;
    const bool sampled = idle && !chkCovered_->isChecked();
    details_->setEnabled(sampled);
    for (QCheckBox* box : chkExtras_) box->setEnabled(sampled);
    cboEngine_->setEnabled(sampled);
    lblEngine_->setEnabled(sampled);
    chkCovered_->setEnabled(idle);
}

OptimizeChoices frmOptimize::Choices() const {
    OptimizeChoices choices;
    for (std::size_t i = 0; i < optDetail_.size(); ++i) {
        if (optDetail_[i]->isChecked()) choices.detail = i;
    }
    choices.zAxisPass = chkExtras_[0]->isChecked();
    choices.polarPasses = chkExtras_[1]->isChecked();
    choices.completelyCovered = chkCovered_->isChecked();
    choices.reference = cboEngine_->currentIndex() == ReferenceEngineRow;
    return choices;
}

std::unique_ptr<OptimizeEngine> frmOptimize::MakeEngine() {
    const OptimizeChoices choices = Choices();
    if (choices.completelyCovered) return MakeExactEngine(editor_.scene);
    const OptimizeOptions options = OptionsOf(choices, context_.width, context_.height);
    if (choices.reference) return MakeSelectionEngine(context_, editor_.scene, options);
    return MakeFastEngine(editor_.scene, options);
}

void frmOptimize::StartPressed() {
    switch (state_) {
        case OptimizeState::Idle:
            Run();
            break;
        case OptimizeState::Running:
            EnterState(OptimizeState::Paused);
            break;
        case OptimizeState::Paused:
            EnterState(OptimizeState::Running);
            break;
        case OptimizeState::Stopping:
            break;
    }
}

/// Runs inside the event of the button; the user's further input comes in through Poll.
void frmOptimize::Run() {
    EnterState(OptimizeState::Running);
    const auto engine = MakeEngine();
    const OptimizeResult result = OptimizeObject(
        editor_, *engine, [this](const OptimizeProgress& progress) { return Poll(progress); });
    state_ = OptimizeState::Idle;
    if (result.finished) TellEnd(result);
    done(result.finished ? Accepted : Rejected);
}

void frmOptimize::TellEnd(const OptimizeResult& result) {
    const std::int32_t all = editor_.scene.brushCount();
    ShowProgress({all - 1, all, 1});
    pbPercent_->SetPercent(100);
    lblInfo_->setText(QString::fromStdString(ResultText(result)));
    btnStart_->setEnabled(false);
    btnCancel_->setEnabled(false);
    editor_.prompts.ShowMessage(FinishedMessage(result));
}

void frmOptimize::EnterState(OptimizeState state) {
    if (state_ == OptimizeState::Running) clockedBefore_ += double(clock_.elapsed()) / 1000;
    state_ = state;
    if (state == OptimizeState::Running) clock_.start();
    btnStart_->setText(state == OptimizeState::Paused ? "Continue" : "Pause");
    btnCancel_->setText("Stop");
    if (state == OptimizeState::Paused) lblInfo_->setText("Paused");
    if (state == OptimizeState::Stopping) lblInfo_->setText("Stopping...");
    EnableChoices();
}

bool frmOptimize::Poll(const OptimizeProgress& progress) {
    ShowProgress(progress);
    QCoreApplication::processEvents();
    while (state_ == OptimizeState::Paused) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return state_ != OptimizeState::Stopping;
}

void frmOptimize::ShowProgress(const OptimizeProgress& progress) {
    lblInfo_->setText(QString::fromStdString(ProgressText(progress)));
    pbPercent_->SetPercent(ProgressPercent(progress));
    const double elapsed = clockedBefore_ + double(clock_.elapsed()) / 1000;
    lblTime_->setText(QString::fromStdString(TimeText(elapsed, progress)));
}

void frmOptimize::reject() {
    if (state_ == OptimizeState::Idle) {
        QDialog::reject();
    } else {
        EnterState(OptimizeState::Stopping);
    }
}

void frmOptimize::done(int result) {
    CloseOptimize(editor_);
    QDialog::done(result);
}

}  // namespace korvane
