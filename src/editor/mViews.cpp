#include "editor/mViews.h"

namespace korvane {
namespace {

template <class Change>
void ForEachView(Editor& editor, Change change) {
    for (ViewState& view : editor.views) change(view);
    change(editor.gauge);
}

void ZoomAll(Editor& editor, std::int32_t newZoom) {
    if (newZoom == editor.views[TopView].zoom) return;
    ForEachView(editor, [newZoom](ViewState& view) { ZoomView(view, newZoom); });
    RedrawAllViews(editor);
}

}  // namespace

void ResetAllViews(Editor& editor) {
    ForEachView(editor, ResetView);
    editor.camera = Camera{};
    editor.splitX = 0.5F;
    editor.splitY = 0.5F;
}

void UpdateViewOrigins(Editor& editor) {
    ForEachView(editor, UpdateViewOrigin);
}

void ZoomIn(Editor& editor) {
    ZoomAll(editor, ZoomedIn(editor.views[TopView].zoom));
}

void ZoomOut(Editor& editor) {
    ZoomAll(editor, ZoomedOut(editor.views[TopView].zoom));
}

void ResetZoom(Editor& editor) {
    ForEachView(editor, [](ViewState& view) { view.zoom = kDefaultZoom; });
    RedrawAllViews(editor);
}

}  // namespace korvane
