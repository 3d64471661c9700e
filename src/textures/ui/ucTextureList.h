// The texture browser at the bottom of the main window: a row of thumbnails to choose from.
#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

#include "editor/Editor.h"
#include "textures/ui/mTextureListLayout.h"

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
    void Choose(std::int32_t index);
    void MoveMark(std::int32_t index);
    void PaintThumbnail(QPainter& painter, const TextureListLayout& layout, std::int32_t index);

    Editor& editor_;
    std::vector<QImage> thumbnails_;
    QScrollBar* hsViewOffset_;
    std::int32_t mark_ = 0;  ///< entry that Space would choose
    int wheelRest_ = 0;      ///< eighths of a degree not yet turned into a step
};

}  // namespace korvane
