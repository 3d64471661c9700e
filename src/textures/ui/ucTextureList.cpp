#include "textures/ui/ucTextureList.h"

#include <QDir>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "base/Rounding.h"
#include "views/ui/mDevicePixels.h"

namespace korvane {
namespace {

constexpr int kWheelStep = 120;    // eighths of a degree
constexpr int kFilterWidth = 180;  // pixels, at most half the list

QColor ToQt(Color color) {
    return {int(Red(color)), int(Green(color)), int(Blue(color))};
}

QColor TextOn(const QColor& backdrop) {
    return qGray(backdrop.rgb()) < 128 ? Qt::white : Qt::black;
}

/// The font for names, which have the width of a thumbnail. One of a large font is made smaller
/// until the shortest names need no ellipsis.
QFont NameFont(QFont font) {
    constexpr double kShare = 0.85, kStep = 0.25, kSmallest = 6;  // points, the last two
    constexpr const char* kShortName = "NO Material";
    double points = font.pointSizeF() * kShare;
    for (; points > kSmallest; points -= kStep) {
        font.setPointSizeF(points);
        if (QFontMetrics(font).horizontalAdvance(kShortName) < kThumbnailPitch - 2) break;
    }
    return font;
}

/// The picture as a thumbnail for screens of that many device pixels to one.
QImage ScaledThumbnail(const QImage& picture, double ratio) {
    const int side = RoundToInt(kThumbnailSide * ratio);
    if (picture.size() == QSize(side, side)) return picture;
    return picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

ucTextureList::ucTextureList(Editor& editor, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      lblNoTextures_(new QLabel(this)),
      txtTextureFilter_(new QLineEdit(this)),
      hsViewOffset_(new QScrollBar(Qt::Horizontal, this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);  // a click leaves the keys with the views
    setAccessibleName(tr("Texture list"));
    setFont(NameFont(font()));
    lblNoTextures_->setObjectName("lblNoTextures");
    lblNoTextures_->setTextFormat(Qt::PlainText);
    lblNoTextures_->setWordWrap(true);
    txtTextureFilter_->setObjectName("txtTextureFilter");
    txtTextureFilter_->setAccessibleName(tr("Filter the textures"));
    txtTextureFilter_->setPlaceholderText(tr("Filter by name"));
    txtTextureFilter_->setClearButtonEnabled(true);
    connect(txtTextureFilter_, &QLineEdit::textChanged, this, &ucTextureList::Filter);
    hsViewOffset_->setObjectName("hsViewOffset");
    hsViewOffset_->setAccessibleName(tr("Scroll the textures"));
    connect(hsViewOffset_, &QScrollBar::valueChanged, this, [this] { update(); });
    RefreshList();
}

void ucTextureList::AddThumbnail(const QImage& picture) {
    // An earlier one that could not be made leaves a gap: thumbnail i belongs to entry i.
    thumbnails_.resize(static_cast<std::size_t>(editor_.textures.ListCount()));
    // For the densest of the screens: the window may be moved from one to another.
    thumbnails_.back() =
        ScaledThumbnail(picture, qGuiApp->devicePixelRatio()).convertToFormat(QImage::Format_RGB32);
}

void ucTextureList::SelectTexture(std::int32_t index) {
    if (index < 0 || index >= editor_.textures.ListCount()) return;
    editor_.textures.SelectTexture(index);
    RefreshList();
    mark_ = std::max(PlaceOf(index), 0);
}

void ucTextureList::ShowTexture(std::int32_t index) {
    if (index >= 0 && index < editor_.textures.ListCount() && PlaceOf(index) < 0)
        txtTextureFilter_->clear();
    SelectTexture(index);
    MoveMark(mark_);
}

void ucTextureList::Filter() {
    RefreshList();
    hsViewOffset_->setValue(0);
    mark_ = std::max(PlaceOf(editor_.textures.Selected()), 0);
}

void ucTextureList::RefreshList() {
    listed_ = editor_.textures.EntriesWith(txtTextureFilter_->text().toStdString());
    const TextureListLayout layout = Layout();
    hsViewOffset_->setRange(0, layout.scrollMaximum);
    hsViewOffset_->setPageStep(std::max(layout.visible, 1));
    hsViewOffset_->setEnabled(layout.scrollEnabled);
    setAccessibleDescription(
        QString::fromStdString(editor_.textures.TextureName(editor_.textures.Selected())));
    ShowHint();
    update();
}

/// Where the library holds nothing but its placeholder, says where textures are looked for.
void ucTextureList::ShowHint() {
    lblNoTextures_->setVisible(editor_.textures.ListCount() <= 1 && !listed_.empty());
    const QString folder = QString::fromStdString(editor_.DataFolder() + "/ObjTextures");
    lblNoTextures_->setText(tr("There are no textures yet. Put pictures (JPEG, PNG, GIF, BMP or "
                               "TGA, each side 32, 64, 128, 256, 512 or 1024 pixels) into this "
                               "folder and start Korvane again:") +
                            "\n" + QDir::toNativeSeparators(folder));
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, TextOn(ToQt(ColorBackdrop())));
    lblNoTextures_->setPalette(colors);
}

Color ucTextureList::ColorBackdrop() const {
    return editor_.settings.colors[ColorItem::TextureListBackground];
}

Color ucTextureList::ColorHighlight() const {
    return editor_.settings.colors[ColorItem::TextureListSelection];
}

TextureListLayout ucTextureList::Layout() const {
    return LayOutTextureList(width(), static_cast<std::int32_t>(listed_.size()),
                             PlaceOf(editor_.textures.Selected()), hsViewOffset_->value());
}

/// Where the entry stands in the list, or -1.
std::int32_t ucTextureList::PlaceOf(std::int32_t index) const {
    const auto found = std::ranges::lower_bound(listed_, index);
    const bool listed = found != listed_.end() && *found == index;
    return listed ? static_cast<std::int32_t>(found - listed_.begin()) : -1;
}

/// The entry whose thumbnail lies there, or -1.
std::int32_t ucTextureList::EntryAt(const QPoint& point) const {
    const std::int32_t place = ThumbnailAt(Layout(), point.x(), point.y());
    return place >= 0 ? listed_[static_cast<std::size_t>(place)] : -1;
}

/// Of the row with the filter box and the scroll bar.
int ucTextureList::RowHeight() const {
    return std::max(hsViewOffset_->sizeHint().height(), txtTextureFilter_->sizeHint().height());
}

int ucTextureList::NameHeight() const {
    return fontMetrics().height();
}

QSize ucTextureList::sizeHint() const {
    const int height =
        kThumbnailTop + kThumbnailSide + kHighlightReach + NameHeight() + RowHeight();
    return {kThumbnailPitch * 4, height};
}

void ucTextureList::resizeEvent(QResizeEvent*) {
    const int top = height() - RowHeight();
    const int filter = std::min(kFilterWidth, width() / 2);
    txtTextureFilter_->setGeometry(0, top, filter, RowHeight());
    hsViewOffset_->setGeometry(filter, top, width() - filter, RowHeight());
    constexpr int kHintLeft = kThumbnailLeft + kThumbnailPitch + 10;  // beside the placeholder
    lblNoTextures_->setGeometry(kHintLeft, 0, std::max(width() - kHintLeft, 0), top);
    RefreshList();
}

void ucTextureList::PaintThumbnail(QPainter& painter, const TextureListLayout& layout,
                                   std::int32_t place) {
    const std::int32_t index = listed_[static_cast<std::size_t>(place)];
    const QRect square(ThumbnailLeft(layout, place), kThumbnailTop, kThumbnailSide, kThumbnailSide);
    if (static_cast<std::size_t>(index) < thumbnails_.size()) {
        const QImage& thumbnail = thumbnails_[static_cast<std::size_t>(index)];
        DrawDevicePixels(painter, square.topLeft(),
                         ScaledThumbnail(thumbnail, painter.device()->devicePixelRatioF()));
    }
    constexpr int kNameReach =
        (kThumbnailPitch - kThumbnailSide) / 2 - 1;  // nearly to the neighbour
    const QRect line(square.left() - kNameReach, square.bottom() + 1 + kHighlightReach,
                     square.width() + 2 * kNameReach, NameHeight());
    if (line.bottom() >= hsViewOffset_->y()) return;
    const QString name = QString::fromStdString(editor_.textures.TextureName(index));
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter,
                     fontMetrics().elidedText(name, Qt::ElideMiddle, line.width()));
}

void ucTextureList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const TextureListLayout layout = Layout();
    const QColor backdrop = ToQt(ColorBackdrop());
    painter.fillRect(rect(), backdrop);
    if (layout.highlightShown) {
        constexpr int kFrame = kThumbnailSide + 2 * kHighlightReach;
        painter.fillRect(layout.highlightLeft, kThumbnailTop - kHighlightReach, kFrame, kFrame,
                         ToQt(ColorHighlight()));
    }
    painter.setPen(TextOn(backdrop));
    for (std::int32_t i = layout.first; i <= layout.last; ++i) PaintThumbnail(painter, layout, i);
    if (listed_.empty()) {
        painter.drawText(rect().adjusted(0, 0, 0, -RowHeight()), Qt::AlignCenter,
                         tr("No texture has this in its name"));
    }
    if (hasFocus() && mark_ >= layout.first && mark_ <= layout.last) {
        constexpr int kFrame = kThumbnailSide + 2 * kHighlightReach - 1;
        painter.drawRect(ThumbnailLeft(layout, mark_) - kHighlightReach,
                         kThumbnailTop - kHighlightReach, kFrame, kFrame);
    }
}

bool ucTextureList::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const std::int32_t index = EntryAt(help->pos());
    if (index < 0) {
        QToolTip::hideText();
        return true;
    }
    const TextureLibrary& library = editor_.textures;
    const QString size =
        QString("%1 x %2").arg(library.TextureWidth(index)).arg(library.TextureHeight(index));
    const QRect square(ThumbnailLeft(Layout(), PlaceOf(index)), kThumbnailTop, kThumbnailSide,
                       kThumbnailSide);
    QToolTip::showText(help->globalPos(),
                       QString::fromStdString(library.TextureName(index)) + "\n" + size, this,
                       square);
    return true;
}

void ucTextureList::Choose(std::int32_t index) {
    SelectTexture(index);
    emit Click(index);
}

void ucTextureList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const std::int32_t index = EntryAt(event->position().toPoint());
    if (index >= 0) Choose(index);
}

void ucTextureList::wheelEvent(QWheelEvent* event) {
    const QPoint turn = event->angleDelta();
    wheelRest_ += turn.y() != 0 ? turn.y() : turn.x();
    const int steps = wheelRest_ / kWheelStep;
    wheelRest_ -= steps * kWheelStep;
    hsViewOffset_->setValue(hsViewOffset_->value() - steps);
    event->accept();
}

void ucTextureList::MoveMark(std::int32_t place) {
    mark_ = std::clamp(place, 0, std::max(static_cast<std::int32_t>(listed_.size()) - 1, 0));
    const TextureListLayout layout = Layout();
    if (mark_ < layout.first) hsViewOffset_->setValue(mark_);
    // The last one shown may be cut off by the edge.
    const std::int32_t lastWhole = layout.first + std::max(layout.visible, 1) - 1;
    if (mark_ > lastWhole) hsViewOffset_->setValue(layout.first + mark_ - lastWhole);
    if (!listed_.empty()) {  // spoken as the mark moves
        setAccessibleDescription(QString::fromStdString(
            editor_.textures.TextureName(listed_[static_cast<std::size_t>(mark_)])));
    }
    update();
}

void ucTextureList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return MoveMark(mark_ - 1);
        case Qt::Key_Right:
            return MoveMark(mark_ + 1);
        case Qt::Key_Home:
            return MoveMark(0);
        case Qt::Key_End:
            return MoveMark(static_cast<std::int32_t>(listed_.size()) - 1);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!listed_.empty()) Choose(listed_[static_cast<std::size_t>(mark_)]);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace korvane
