// How menus are drawn: as the desktop does, but for the icon of the highlighted item.
#pragma once

#include <QProxyStyle>

namespace korvane {

/// Draws the icon of the highlighted item in the colour of its text: the icons' own colours are
/// made for the grounds of windows, and are lost on that of a highlight.
class MenuStyle final : public QProxyStyle {
  public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace korvane
