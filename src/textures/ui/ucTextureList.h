// The texture browser at the bottom of the main window: a row of thumbnails to choose from, and a
// box that filters them by name.
#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

#include "editor/Editor.h"
#include "textures/ui/mTextureListLayout.h"

class QLabel;
class QLineEdit;
class QScrollBar;

namespace korvane {

/// The browser. It shows the session's texture library; the session must outlive it. Mouse: a click
/// chooses, the wheel scrolls. Keys: arrows, Home and End move a mark, Space and Enter choose.
class ucTextureList : public QWidget {
    Q_OBJECT

  public:
    explicit ucTextureList(Editor& editor, QWidget* parent = nullptr);

    /// Takes the picture of the library's newest entry, scaled to a thumbnail.
    void AddThumbnail(const QImage& picture);

    /// Selects the entry in the library and shows it; an index outside changes nothing.
    void SelectTexture(std::int32_t index);

    /// The same, and brings it into sight: scrolls there, and drops a filter that hides it.
    void ShowTexture(std::int32_t index);

    /// Brings scroll bar, thumbnails and highlight in line with library, selection and colours.
    void RefreshList();

    /// Background, from the colour scheme.
    Color ColorBackdrop() const;
    /// Frame around the selected thumbnail, from the colour scheme.
    Color ColorHighlight() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    /// The user chose an entry; the library's selection is already the new one.
    void Click(int index);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    TextureListLayout Layout() const;
    int NameHeight() const;
    int RowHeight() const;
    std::int32_t PlaceOf(std::int32_t index) const;
    std::int32_t EntryAt(const QPoint& point) const;
    void Filter();
    void ShowHint();
    void Choose(std::int32_t index);
    void MoveMark(std::int32_t place);
    void PaintThumbnail(QPainter& painter, const TextureListLayout& layout, std::int32_t place);

    Editor& editor_;
    std::vector<QImage> thumbnails_;    ///< as many pixels as the densest screen needs
    std::vector<std::int32_t> listed_;  ///< entries that pass the filter, place by place
    QLabel* lblNoTextures_;
    QLineEdit* txtTextureFilter_;
    QScrollBar* hsViewOffset_;
    std::int32_t mark_ = 0;  ///< place of the entry that Space would choose
    int wheelRest_ = 0;      ///< eighths of a degree not yet turned into a step
};

}  // namespace korvane
