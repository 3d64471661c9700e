// Everything between the tool bars and the status bar: property panel, panes, depth gauge, texture
// browser and split grip, and where they lie.
#pragma once

#include <QWidget>
#include <array>

#include "editor/Editor.h"
#include "views/core/PaneLayout.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

class ucContainer;
class ucDepthGauge;
class ucPreview;
class ucPropertyPanel;
class ucSplitGrip;
class ucTextureList;
class ucView;

class ucWorkspace final : public QWidget {
    Q_OBJECT

  public:
    /// Shows the session; the preview draws in the context.
    ucWorkspace(Editor& editor, RenderContext& context, TextureObjects& textures,
                QWidget* parent = nullptr);

    /// Places everything for the session's view layout and split, and tells the session the sizes
    /// of its surfaces.
    void LayoutPanes();

    /// Marks the screens of a RedrawSet for the next paint.
    void MarkDirty(unsigned redrawSet);

    /// Fills the property panel from the selection.
    void RefreshPropertyPanel();

    /// Shows over the 2D views what a press would do now.
    void ShowPointers();

    /// Gives the keyboard focus to the views.
    void FocusViews();

    ucTextureList& TextureList() { return *textureList_; }
    QWidget& FocusKeeper() { return *pbFocusKeeper_; }
    ucPreview& Preview() { return *pbOpenGL_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    PaneFrame Frame() const;
    void MoveSplit(const QPoint& position);
    void PlaceFixed(const PaneFrame& frame);
    void TellSizes();

    Editor& editor_;
    ucContainer* conProps_;
    ucPropertyPanel* properties_;
    std::array<ucView*, kViewCount> pbView_;
    ucDepthGauge* pbDepth_;
    ucPreview* pbOpenGL_;
    ucTextureList* textureList_;
    ucSplitGrip* grip_;
    QWidget* pbFocusKeeper_;
};

}  // namespace korvane
