#include "app/frmMultiply.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/mDialogParts.h"

namespace korvane {
namespace {

constexpr int kBoxWidth = 110;  // pixels

/// Leaves a box alone that shows the text already: its cursor stays.
void SetText(QLineEdit* box, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (box->text() == shown) return;
    box->setText(shown);
    box->setCursorPosition(0);  // of a number that is too long its sign and first digits are seen
}

/// A frame with a row of steps above one of totals.
QGroupBox* MakeFrame(const QString& title, const std::array<QLineEdit*, 6>& boxes,
                     QCheckBox* chkMode) {
    static constexpr const char* axes[] = {"X", "Y", "Z"};
    static constexpr const char* rows[] = {"Each step:", "Total:"};
    auto* frame = new QGroupBox(title);
    auto* grid = new QGridLayout(frame);
    for (int column = 0; column < 3; ++column) {
        auto* label = new QLabel(axes[column], frame);
        label->setAlignment(Qt::AlignCenter);
        grid->addWidget(label, 0, column + 1);
    }
    for (int i = 0; i < 6; ++i) {
        QLineEdit* box = boxes[static_cast<std::size_t>(i)];
        box->setAccessibleName(QString("%1 %2").arg(rows[i / 3], axes[i % 3]));
        grid->addWidget(box, 1 + i / 3, 1 + i % 3);
    }
    for (int row = 0; row < 2; ++row) grid->addWidget(new QLabel(rows[row], frame), row + 1, 0);
    grid->addWidget(chkMode, 3, 1, 1, 3, Qt::AlignLeft);
    return frame;
}

}  // namespace

frmMultiply::frmMultiply(Editor& editor, QWidget* parent)
    : QDialog(parent),
      editor_(editor),
      values_(OpenMultiply(editor)),
      txtCount_(MakeBox("txtCount", kDigitKeys)),
      move_(MakeRow("txtMove", 0, "Enter &offsets as totals")),
      rotate_(MakeRow("txtRotate", 1, "Enter &rotations as totals")) {
    setObjectName("frmMultiply");
    setWindowTitle("Multiply Brushes");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* count = new QFormLayout;
    count->addRow("&Number of copies:", txtCount_);
    auto* column = new QVBoxLayout(this);
    column->addLayout(count);
    column->addWidget(MakeFrame("Offset (units)", move_.boxes, move_.chkMode));
    column->addWidget(MakeFrame("Rotation (degrees)", rotate_.boxes, rotate_.chkMode));
    const OkayCancel buttons = MakeOkayCancel(this);  // Tab comes to them last
    connect(buttons.btnOkay, &QPushButton::clicked, this, &frmMultiply::Confirm);
    connect(buttons.btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    column->addWidget(buttons.box);
    column->setSizeConstraint(QLayout::SetFixedSize);
    FollowMode(move_, values_.move);
    FollowMode(rotate_, values_.rotate);
    Show();
    txtCount_->selectAll();
    txtCount_->setFocus();
}

QLineEdit* frmMultiply::MakeBox(const QString& name, const char* keys) {
    QLineEdit* box = MakeKeyedBox(name, keys, this);
    box->setFixedWidth(kBoxWidth);
    connect(box, &QLineEdit::textEdited, this, &frmMultiply::Recompute);
    return box;
}

frmMultiply::Row frmMultiply::MakeRow(const QString& boxName, int mode,
                                      const QString& modeCaption) {
    Row row;
    for (std::size_t i = 0; i < row.boxes.size(); ++i)
        row.boxes[i] = MakeBox(QString("%1_%2").arg(boxName).arg(i), kNumberKeys);
    row.chkMode = new QCheckBox(modeCaption, this);
    row.chkMode->setObjectName(QString("chkMode_%1").arg(mode));
    return row;
}

/// Enables the boxes that are typed, from now on and whenever the check box is clicked.
void frmMultiply::FollowMode(const Row& row, StepBoxes& values) {
    const auto apply = [row, &values](bool asTotals) {
        values.asTotals = asTotals;
        for (std::size_t i = 0; i < row.boxes.size(); ++i)
            row.boxes[i]->setEnabled((i >= 3) == asTotals);
    };
    row.chkMode->setChecked(values.asTotals);
    apply(values.asTotals);
    connect(row.chkMode, &QCheckBox::toggled, this, apply);
}

void frmMultiply::Read() {
    values_.count = txtCount_->text().toStdString();
    for (std::size_t i = 0; i < move_.boxes.size(); ++i) {
        values_.move.texts[i] = move_.boxes[i]->text().toStdString();
        values_.rotate.texts[i] = rotate_.boxes[i]->text().toStdString();
    }
}

void frmMultiply::Show() {
    SetText(txtCount_, values_.count);
    for (std::size_t i = 0; i < move_.boxes.size(); ++i) {
        SetText(move_.boxes[i], values_.move.texts[i]);
        SetText(rotate_.boxes[i], values_.rotate.texts[i]);
    }
}

void frmMultiply::Recompute() {
    Read();
    UpdateDependentBoxes(values_);
    Show();
}

void frmMultiply::Confirm() {
    Read();
    if (RunMultiply(editor_, values_)) accept();
}

void frmMultiply::done(int result) {
    CloseMultiply(editor_);
    QDialog::done(result);
}

}  // namespace korvane
