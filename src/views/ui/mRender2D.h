// Composes the 2D views and the depth gauge, in the order of their layers.
#pragma once

#include <QPainter>

#include "editor/Editor.h"
#include "editor/mViewGestures.h"
#include "views/ui/Backdrop.h"
#include "views/ui/PaintSurface.h"

namespace korvane {

/// Composes view 0..2 in the surface, at the size its ViewState names: grid, unselected brushes,
/// selected brushes with their nodes, rotation marker, rulers and caption. Any other index does
/// nothing.
void PaintView(const Editor& editor, int view, PaintSurface& surface);

/// Composes the same picture, pixel for pixel, where nothing but the selected brushes and the
/// rotation marker has changed since the last paint with this backdrop. A backdrop that is empty,
/// or kept for another size, pan, zoom or pixel ratio, is made anew first, which costs a PaintView.
void PaintMoveStep(const Editor& editor, int view, PaintSurface& surface, Backdrop& backdrop);

/// Composes the depth gauge in the surface, at the size its ViewState names.
void PaintDepthGauge(const Editor& editor, PaintSurface& surface);

/// Draws the text that stands at the cursor while edges or vertices are dragged.
void PaintReadOut(QPainter& painter, const ReadOut& readOut, Color color, const QFont& font);

/// Draws the rectangle of a creation drag with its three texts over a view.
void PaintRubberBand(QPainter& painter, const RubberBand& band, Color color, const QFont& font);

}  // namespace korvane
