#include "app/ucWorkspace.h"

#include <algorithm>

#include "app/ucPropertyPanel.h"
#include "editor/mViews.h"
#include "textures/ui/ucTextureList.h"
#include "views/ui/ucDepthGauge.h"
#include "views/ui/ucPreview.h"
#include "views/ui/ucView.h"
#include "widgets/ucContainer.h"
#include "widgets/ucSplitGrip.h"

namespace korvane {
namespace {

constexpr std::int32_t kGap = 30;           // twips between neighbours
constexpr std::int32_t kPanelWidth = 3240;  // twips, as are the next ones; more for a large font
constexpr std::int32_t kGaugeWidth = 1020;
constexpr int kGripHandle = 12;  // pixels
constexpr int kGripGap = kGap / kTwipsPerPixel;
constexpr const char* kViewNames[kViewCount] = {"Top view", "Left view", "Front view"};

QRect ToPixels(const TwipRect& rect) {
    return {rect.left / kTwipsPerPixel, rect.top / kTwipsPerPixel, rect.width / kTwipsPerPixel,
            rect.height / kTwipsPerPixel};
}

void Place(QWidget* widget, const Pane& pane) {
    widget->setVisible(pane.visible);
    if (pane.visible) widget->setGeometry(ToPixels(pane.rect));
}

}  // namespace

ucWorkspace::ucWorkspace(Editor& editor, RenderContext& context, TextureObjects& textures,
                         QWidget* parent)
    : QWidget(parent), editor_(editor), conProps_(new ucContainer("conProps", "Properties", this)) {
    pbFocusKeeper_ = new QWidget(this);
    pbFocusKeeper_->setObjectName("pbFocusKeeper");
    pbFocusKeeper_->setFocusPolicy(Qt::StrongFocus);
    pbFocusKeeper_->setAccessibleName(tr("Views"));
    pbFocusKeeper_->setFixedSize(1, 1);  // a hidden widget would get no keys
    properties_ = new ucPropertyPanel(editor);
    conProps_->SetContent(properties_);
    for (int view = 0; view < kViewCount; ++view) {
        pbView_[view] = new ucView(editor, view, this);
        pbView_[view]->setObjectName(QString("pbView%1").arg(view));
        pbView_[view]->setAccessibleName(QString(kViewNames[view]));
    }
    pbDepth_ = new ucDepthGauge(editor, this);
    pbDepth_->setObjectName("pbDepth");
    pbDepth_->setAccessibleName("Depth gauge");
    pbOpenGL_ = new ucPreview(editor, context, textures, this);
    pbOpenGL_->setObjectName("pbOpenGL");
    textureList_ = new ucTextureList(editor, this);
    textureList_->setObjectName("ucTextureList");
    connect(properties_, &ucPropertyPanel::TextureAsked, textureList_, &ucTextureList::ShowTexture);
    grip_ = new ucSplitGrip(kGripHandle, kGripGap, this);
    connect(grip_, &ucSplitGrip::Dragged, this, &ucWorkspace::MoveSplit);
}

PaneFrame ucWorkspace::Frame() const {
    PaneFrame frame;
    frame.clientWidth = width() * kTwipsPerPixel;
    frame.clientHeight = height() * kTwipsPerPixel;
    frame.panelWidth = std::max(kPanelWidth, conProps_->LeastWidth() * kTwipsPerPixel + kGap);
    frame.paneLeft = frame.panelWidth;
    frame.paneTop = kGap;
    frame.gaugeTop = kGap;
    frame.gaugeWidth = kGaugeWidth;
    frame.textureListHeight = textureList_->sizeHint().height() * kTwipsPerPixel;
    return frame;  // the status bar lies outside this widget
}

void ucWorkspace::LayoutPanes() {
    const PaneFrame frame = Frame();
    const PaneLayout layout =
        korvane::LayoutPanes(frame, editor_.settings.ViewLayout, editor_.splitX, editor_.splitY);
    for (int view = 0; view < kViewCount; ++view) Place(pbView_[view], layout.views[view]);
    Place(pbOpenGL_, layout.preview);
    pbDepth_->setGeometry(ToPixels(layout.gauge));
    grip_->setVisible(layout.gripVisible);
    grip_->move(layout.gripLeft / kTwipsPerPixel, layout.gripTop / kTwipsPerPixel);
    PlaceFixed(frame);
    TellSizes();
    pbOpenGL_->ResizeViewport();
    UpdateViewOrigins(editor_);
    RedrawAllViews(editor_);
}

void ucWorkspace::PlaceFixed(const PaneFrame& frame) {
    const int listHeight = frame.textureListHeight / kTwipsPerPixel;
    const int top = frame.paneTop / kTwipsPerPixel;
    textureList_->setGeometry(0, height() - listHeight, width(), listHeight);
    conProps_->setGeometry(0, top, (frame.panelWidth - kGap) / kTwipsPerPixel,
                           height() - listHeight - top - kGap / kTwipsPerPixel);
}

void ucWorkspace::TellSizes() {
    const auto tell = [](ViewState& state, const QWidget* surface) {
        state.width = surface->width();
        state.height = surface->height();
    };
    for (int view = 0; view < kViewCount; ++view) tell(editor_.views[view], pbView_[view]);
    tell(editor_.gauge, pbDepth_);
}

void ucWorkspace::MarkDirty(unsigned redrawSet) {
    for (int view = 0; view < kViewCount; ++view) {
        if (redrawSet & RedrawView(view)) pbView_[view]->MarkDirty();
        if (redrawSet & RedrawSelection(view)) pbView_[view]->MarkSelectionDirty();
        if (redrawSet & RedrawOverlay(view)) pbView_[view]->update();
    }
    if (redrawSet & RedrawDepthGauge) pbDepth_->MarkDirty();
    if (redrawSet & RedrawPreview) pbOpenGL_->MarkDirty();
}

void ucWorkspace::RefreshPropertyPanel() {
    properties_->Refresh();
}

void ucWorkspace::ShowPointers() {
    for (ucView* view : pbView_) view->ShowPointer();
}

void ucWorkspace::FocusViews() {
    pbFocusKeeper_->setFocus(Qt::OtherFocusReason);
}

void ucWorkspace::MoveSplit(const QPoint& position) {
    const Split split =
        SplitAt(Frame(), position.x() * kTwipsPerPixel, position.y() * kTwipsPerPixel);
    editor_.splitX = split.x;
    editor_.splitY = split.y;
    LayoutPanes();
}

void ucWorkspace::resizeEvent(QResizeEvent*) {
    LayoutPanes();
}

}  // namespace korvane
