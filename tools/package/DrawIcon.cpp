// draw-icon SVG PIXELS PNG: draws a picture as a square of so many pixels.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
    const int pixels = argc == 4 ? QByteArray(argv[2]).toInt() : 0;
    if (pixels <= 0) {
        std::fputs("Usage: draw-icon SVG PIXELS PNG\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    if (!drawing.isValid() || !image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "draw-icon: %s cannot be drawn as %s\n", argv[1], argv[3]);
        return 1;
    }
    return 0;
}
