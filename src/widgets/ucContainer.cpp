#include "widgets/ucContainer.h"

#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

namespace korvane {

ucContainer::ucContainer(const QString& name, const QString& title, QWidget* parent)
    : QFrame(parent), caption_(new QLabel(title, this)), scroller_(new QScrollArea(this)) {
    setObjectName(name);
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    QFont bold = caption_->font();
    bold.setBold(true);
    caption_->setFont(bold);
    caption_->setContentsMargins(8, 4, 8, 4);
    caption_->setAutoFillBackground(true);
    caption_->setBackgroundRole(QPalette::Midlight);
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setWidgetResizable(true);
    scroller_->setFocusPolicy(Qt::NoFocus);  // it follows the focus of what is in it
    scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(caption_);
    column->addWidget(scroller_, 1);
}

void ucContainer::SetContent(QWidget* content) {
    scroller_->setWidget(content);
}

int ucContainer::LeastWidth() const {
    const int content = scroller_->widget()->minimumSizeHint().width() +
                        style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return std::max(content, caption_->minimumSizeHint().width()) + 2 * frameWidth();
}

}  // namespace korvane
