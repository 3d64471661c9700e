// Draws an SVG icon into a square PNG. Usage: korvane_draw_icon SVG SIDE PNG
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    QSvgRenderer icon{QString(argv[1])};
    const int side = std::atoi(argv[2]);
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    icon.render(&painter);
    painter.end();
    return icon.isValid() && picture.save(argv[3], "PNG") ? 0 : 1;
}
