// SPDX-License-Identifier: MIT
// draw_icons LARGE.svg SMALL.svg FOLDER: draws the application icon at each size that a system asks for, as
// FOLDER/16.png and so on. Part of the build.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

constexpr int sides[] = {16, 22, 24, 32, 48, 64, 128, 256, 512, 1024};
constexpr int smallestLarge = 48;

bool draw(QSvgRenderer &drawing, int side, const QString &path) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    return drawing.isValid() && image.save(path);
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 4)
        return 2;
    QSvgRenderer large(QString::fromLocal8Bit(argv[1]));
    QSvgRenderer small(QString::fromLocal8Bit(argv[2]));
    for (const int side : sides) {
        const QString path = QStringLiteral("%1/%2.png").arg(QString::fromLocal8Bit(argv[3])).arg(side);
        if (draw(side < smallestLarge ? small : large, side, path))
            continue;
        std::fprintf(stderr, "draw_icons: cannot draw %s\n", qPrintable(path));
        return 1;
    }
    return 0;
}
