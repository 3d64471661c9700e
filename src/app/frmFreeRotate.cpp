#include "app/frmFreeRotate.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/mDialogParts.h"
#include "editor/mFreeRotate.h"

namespace korvane {
namespace {

constexpr int kLeastWidth = 240;  // pixels, so that the title is not cut
constexpr const char* kAxes[] = {"&X:", "&Y:", "&Z:"};

}  // namespace

frmFreeRotate::frmFreeRotate(Editor& editor, QWidget* parent)
    : QDialog(parent), editor_(editor), txtRotate_{MakeBox(0), MakeBox(1), MakeBox(2)} {
    setObjectName("frmFreeRotate");
    setWindowTitle("Free Rotate");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* lblDegrees = new QLabel("Degrees about each axis:", this);
    lblDegrees->setMinimumWidth(kLeastWidth);
    auto* rows = new QFormLayout;
    for (std::size_t i = 0; i < 3; ++i) rows->addRow(kAxes[i], txtRotate_[i]);
    const OkayCancel buttons = MakeOkayCancel(this);
    connect(buttons.btnOkay, &QPushButton::clicked, this, &frmFreeRotate::Confirm);
    connect(buttons.btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblDegrees);
    column->addLayout(rows);
    column->addSpacing(6);
    column->addWidget(buttons.box);
    column->setSizeConstraint(QLayout::SetFixedSize);
    const FreeRotateTexts texts = OpenFreeRotate(editor);
    for (std::size_t i = 0; i < 3; ++i) txtRotate_[i]->setText(QString::fromStdString(texts[i]));
    txtRotate_[0]->selectAll();
    txtRotate_[0]->setFocus();
}

QLineEdit* frmFreeRotate::MakeBox(int axis) {
    QLineEdit* box = MakeKeyedBox(QString("txtRotate_%1").arg(axis), kNumberKeys, this);
    connect(box, &QLineEdit::returnPressed, this, [this, axis] {
        QLineEdit* next = txtRotate_[static_cast<std::size_t>(axis + 1) % txtRotate_.size()];
        next->setFocus();
        next->selectAll();
    });
    return box;
}

/// Enter went on to the next box; it must not press Okay as well.
void frmFreeRotate::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) QDialog::keyPressEvent(event);
}

void frmFreeRotate::Confirm() {
    RunFreeRotate(editor_,
                  {txtRotate_[0]->text().toStdString(), txtRotate_[1]->text().toStdString(),
                   txtRotate_[2]->text().toStdString()});
    accept();
}

void frmFreeRotate::done(int result) {
    CloseFreeRotate(editor_);
    QDialog::done(result);
}

}  // namespace korvane
