// The pane of the 3D preview: an ordinary widget that shows the picture of the off-screen context.
#pragma once

#include <QWidget>

#include "editor/Editor.h"
#include "views/ui/LookPointer.h"
#include "views/ui/mRender.h"

namespace korvane {

/// The picture surface `pbOpenGL`. Session, context and texture table must outlive it.
class ucPreview : public QWidget {
    Q_OBJECT

  public:
    ucPreview(Editor& editor, RenderContext& context, const TextureObjects& textures,
              QWidget* parent = nullptr);

    /// Asks for a new frame in the next turn of the event loop.
    void MarkDirty();

    /// Sizes viewport and projection for the pane as it is now; to be called once the context has
    /// been created after the pane.
    void ResizeViewport();

    /// Switches mouse-look off, if it is on, and gives the cursor back.
    void EndLook();

    LookPointer& Pointer() { return pointer_; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QSize DeviceSize() const;
    PreviewScene Shown() const;
    void FitViewport();
    void PickAt(const QPointF& position);
    void RenderNow();

    Editor& editor_;
    RenderContext& context_;
    const TextureObjects& textures_;
    PreviewRenderer renderer_;
    LookPointer pointer_;
    bool dirty_ = true;
};

}  // namespace korvane
