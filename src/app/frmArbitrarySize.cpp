#include "app/frmArbitrarySize.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/mDialogParts.h"
#include "editor/mArbitrarySize.h"

namespace korvane {
namespace {

constexpr int kLeastWidth = 280;  // pixels, so that the title is not cut

}  // namespace

frmArbitrarySize::frmArbitrarySize(Editor& editor, QWidget* parent)
    : QDialog(parent), editor_(editor), txtSides_(MakeKeyedBox("txtSides", kDigitKeys, this)) {
    setObjectName("frmArbitrarySize");
    setWindowTitle("Arbitrarily Sided");
    auto* lblSides =
        new QLabel(QString("Number of &sides (%1 to %2):").arg(kLeastSides).arg(kMostSides), this);
    lblSides->setObjectName("lblSides");
    lblSides->setBuddy(txtSides_);
    lblSides->setMinimumWidth(kLeastWidth);
    const OkayCancel buttons = MakeOkayCancel(this);
    connect(buttons.btnOkay, &QPushButton::clicked, this, &frmArbitrarySize::Confirm);
    connect(buttons.btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lblSides);
    column->addWidget(txtSides_);
    column->addSpacing(6);
    column->addWidget(buttons.box);
    column->setSizeConstraint(QLayout::SetFixedSize);
    ShowSides();
}

void frmArbitrarySize::Confirm() {
    if (SetArbitrarySides(editor_.scene, txtSides_->text().toStdString())) {
        accept();
        return;
    }
    editor_.prompts.ShowMessage(SidesOutOfRange());
    ShowSides();
}

void frmArbitrarySize::ShowSides() {
    txtSides_->setText(QString::number(editor_.scene.arbitrarySideCount));
    txtSides_->selectAll();
    txtSides_->setFocus();
}

}  // namespace korvane
