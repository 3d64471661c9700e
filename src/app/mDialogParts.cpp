#include "app/mDialogParts.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

namespace korvane {

QLineEdit* MakeKeyedBox(const QString& name, const char* keys, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setValidator(new QRegularExpressionValidator(QRegularExpression(keys), box));
    return box;
}

OkayCancel MakeOkayCancel(QWidget* parent) {
    auto* box = new QDialogButtonBox(parent);
    QPushButton* btnOkay = box->addButton("Okay", QDialogButtonBox::AcceptRole);
    QPushButton* btnCancel = box->addButton("Cancel", QDialogButtonBox::RejectRole);
    btnOkay->setObjectName("btnOkay");
    btnOkay->setDefault(true);
    btnCancel->setObjectName("btnCancel");
    return {box, btnOkay, btnCancel};
}

}  // namespace korvane
