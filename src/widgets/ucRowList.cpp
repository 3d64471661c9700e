#include "widgets/ucRowList.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr int kIndent = 4;  // pixels between the text of a row and its edge
constexpr int kMargin = 2;
constexpr int kFieldWidth = 150;

QLabel* MakeLabel(const QString& name, int row, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString("%1_%2").arg(name).arg(row));
    label->setTextFormat(Qt::PlainText);
    label->setIndent(kIndent);
    label->setMargin(kMargin);
    return label;
}

/// Marks the current row while the keys go elsewhere, on light and on dark.
QColor Muted(const QPalette& palette) {
    QColor color = palette.color(QPalette::WindowText);
    color.setAlphaF(0.2F);
    return color;
}

/// The row of the label under the mouse, -1 for none.
int RowAt(const std::array<QLabel*, ucRowList::kRows>& labels, const QPoint& at) {
    const auto hit = std::ranges::find_if(
        labels, [&](const QLabel* label) { return label->geometry().contains(at); });
    return hit == labels.end() ? -1 : static_cast<int>(hit - labels.begin());
}

}  // namespace

ucRowList::ucRowList(const Names& names, int items, std::function<Row(int)> itemAt, QWidget* parent)
    : QWidget(parent),
      items_(items),
      itemAt_(std::move(itemAt)),
      scrollBar_(new QScrollBar(Qt::Vertical, this)) {
    setFocusPolicy(Qt::StrongFocus);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    for (int row = 0; row < kRows; ++row) {
        titles_[row] = MakeLabel(names.title, row, this);
        fields_[row] = MakeLabel(names.field, row, this);
        fields_[row]->setAutoFillBackground(true);
        fields_[row]->setFrameStyle(QFrame::Box | QFrame::Plain);
        fields_[row]->setFixedWidth(kFieldWidth);
        grid->addWidget(titles_[row], row, 0);
        grid->addWidget(fields_[row], row, 1);
    }
    scrollBar_->setObjectName(names.scrollBar);
    scrollBar_->setAccessibleName(tr("Scroll the list"));
    scrollBar_->setRange(0, items - kRows);
    scrollBar_->setPageStep(kRows);
    grid->addWidget(scrollBar_, 0, 2, kRows, 1);
    connect(scrollBar_, &QScrollBar::valueChanged, this, &ucRowList::Refresh);
    Refresh();
}

void ucRowList::Refresh() {
    for (int row = 0; row < kRows; ++row) ShowRow(row);
    const Row current = itemAt_(current_);
    setAccessibleDescription(current.title + " " + current.text);
}

void ucRowList::ShowRow(int row) {
    const int item = scrollBar_->value() + row;
    const Row shown = itemAt_(item);
    titles_[row]->setText(shown.title);
    fields_[row]->setText(shown.text);
    const bool marked = item == current_;
    QPalette mark = palette();
    if (!hasFocus()) mark.setColor(QPalette::Highlight, Muted(mark));
    titles_[row]->setPalette(mark);
    titles_[row]->setAutoFillBackground(marked);
    titles_[row]->setBackgroundRole(marked ? QPalette::Highlight : QPalette::NoRole);
    titles_[row]->setForegroundRole(marked && hasFocus() ? QPalette::HighlightedText
                                                         : QPalette::WindowText);
    QPalette colors = palette();
    colors.setColor(QPalette::Window,
                    shown.color.isValid() ? shown.color : colors.color(QPalette::Base));
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Text));
    fields_[row]->setPalette(colors);
}

void ucRowList::MoveTo(int item) {
    current_ = std::clamp(item, 0, items_ - 1);
    const int first = scrollBar_->value();
    scrollBar_->setValue(std::clamp(first, current_ - kRows + 1, current_));
    Refresh();
}

void ucRowList::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

/// On the release, because what it opens may be a dialog that would swallow it.
void ucRowList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    const int field = RowAt(fields_, at);
    const int row = field >= 0 ? field : RowAt(titles_, at);
    if (row < 0) return;
    MoveTo(scrollBar_->value() + row);
    emit Activated(current_, field >= 0);
}

void ucRowList::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(scrollBar_, event);
}

void ucRowList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return MoveTo(current_ - 1);
        case Qt::Key_Down:
            return MoveTo(current_ + 1);
        case Qt::Key_PageUp:
            return MoveTo(current_ - kRows);
        case Qt::Key_PageDown:
            return MoveTo(current_ + kRows);
        case Qt::Key_Home:
            return MoveTo(0);
        case Qt::Key_End:
            return MoveTo(items_ - 1);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit Activated(current_, true);
            return;
        case Qt::Key_Delete:
            emit DeletePressed(current_);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

/// The rows have palettes of their own.
void ucRowList::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Refresh();
    QWidget::changeEvent(event);
}

void ucRowList::focusInEvent(QFocusEvent*) {
    Refresh();
}

void ucRowList::focusOutEvent(QFocusEvent*) {
    Refresh();
}

}  // namespace korvane
