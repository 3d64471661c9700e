#include "platform/ObjectView.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

namespace korvane {
namespace {

constexpr QSize kPicture(240, 180);
constexpr QSize kDialog(860, 480);  // room for the list beside the picture
constexpr int kDelay = 120;         // milliseconds

}  // namespace

ObjectView::ObjectView(ObjectPicture picture, QWidget* parent)
    : QWidget(parent),
      picture_(std::move(picture)),
      lblObjectPicture_(new QLabel),
      lblObjectName_(new QLabel) {
    lblObjectPicture_->setObjectName("lblObjectPicture");
    lblObjectPicture_->setAccessibleName(tr("Picture of the chosen object"));
    lblObjectPicture_->setFixedSize(kPicture);
    lblObjectPicture_->setAlignment(Qt::AlignCenter);
    lblObjectPicture_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    lblObjectName_->setObjectName("lblObjectName");
    lblObjectName_->setAlignment(Qt::AlignHCenter);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(lblObjectPicture_);
    column->addWidget(lblObjectName_);
    column->addStretch(1);
    delay_.setSingleShot(true);
    delay_.setInterval(kDelay);
    connect(&delay_, &QTimer::timeout, this, &ObjectView::Show);
    Show();
}

void ObjectView::Choose(const QString& path) {
    path_ = QFileInfo(path).isFile() ? path : QString();
    delay_.start();
}

void ObjectView::Show() {
    const qreal ratio = devicePixelRatioF();
    QImage picture = path_.isEmpty() ? QImage() : picture_(path_, kPicture * ratio);
    if (picture.isNull()) {
        lblObjectPicture_->setText(path_.isEmpty() ? tr("Choose an object") : tr("No picture"));
    } else {
        picture.setDevicePixelRatio(ratio);
        lblObjectPicture_->setPixmap(QPixmap::fromImage(picture));
    }
    const QString name = QFileInfo(path_).completeBaseName();
    lblObjectName_->setText(
        lblObjectName_->fontMetrics().elidedText(name, Qt::ElideMiddle, kPicture.width()));
}

void AddObjectView(QFileDialog& box, ObjectPicture picture) {
    box.setOption(QFileDialog::DontUseNativeDialog);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr) return;
    auto* view = new ObjectView(std::move(picture), &box);
    grid->addWidget(view, 1, grid->columnCount());
    box.resize(kDialog);
    QObject::connect(&box, &QFileDialog::currentChanged, view, &ObjectView::Choose);
    // A name that is typed marks its row, but the dialog tells nobody.
    if (const auto* name = box.findChild<QLineEdit*>("fileNameEdit")) {
        QObject::connect(name, &QLineEdit::textChanged, view, [view, &box] {
            const QStringList typed = box.selectedFiles();
            if (!typed.isEmpty()) view->Choose(typed[0]);
        });
    }
}

}  // namespace korvane
