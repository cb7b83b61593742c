// SPDX-License-Identifier: MIT
#include "ui/kit/symbols.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace pimloft {

namespace {

QString fileOf(const QString &name) {
    return QStringLiteral(":/qt/qml/Pimloft/Kit/symbols/%1.svg").arg(name);
}

/// How much bolder the pen is than in the drawing: lines of one weight would look thin on small symbols and
/// heavy on large ones.
double penFactor(double points) {
    if (points <= 18)
        return 1.12;
    if (points <= 28)
        return 1;
    return points <= 40 ? 0.9 : 0.8;
}

QByteArray withPen(const QByteArray &svg, double factor) {
    constexpr QByteArrayView attribute("stroke-width=\"");
    QByteArray result = svg;
    for (qsizetype at = 0; (at = result.indexOf(attribute, at)) >= 0;) {
        at += attribute.size();
        const qsizetype length = result.indexOf('"', at) - at;
        result.replace(at, length, QByteArray::number(result.mid(at, length).toDouble() * factor));
    }
    return result;
}

/// The parsed drawings for each weight of the pen, each read when it is first used.
QSvgRenderer *drawing(const QString &name, double points) {
    static std::map<std::pair<QString, double>, std::unique_ptr<QSvgRenderer>> drawings;
    const double factor = penFactor(points);
    auto found = drawings.find({name, factor});
    if (found == drawings.end()) {
        std::unique_ptr<QSvgRenderer> renderer;
        QFile file(fileOf(name));
        if (hasSymbol(name) && file.open(QFile::ReadOnly))
            renderer = std::make_unique<QSvgRenderer>(withPen(file.readAll(), factor));
        found = drawings.emplace(std::pair(name, factor), std::move(renderer)).first;
    }
    return found->second.get();
}

/// The drawing as a mask of `side` native pixels.
QImage mask(QSvgRenderer &renderer, int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, side, side));
    return image;
}

/// `tint` where the mask is opaque.
QImage tinted(QImage mask, const QBrush &tint) {
    QPainter painter(&mask);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(mask.rect(), tint);
    return mask;
}

/// Gradients are given for the unit square and stretched over the symbol.
QBrush stretched(QBrush tint, int side) {
    if (tint.gradient())
        tint.setTransform(QTransform::fromScale(side, side));
    return tint;
}

/// Draws a symbol at whatever size it is asked for.
class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(QString name, QColor color, QColor halo)
        : name_(std::move(name)), color_(color), halo_(halo) {}

    QIconEngine *clone() const override { return new SymbolIconEngine(name_, color_, halo_); }

    // Trays that take images by D-Bus ask which sizes there are.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        QList<QSize> sizes;
        for (const int side : {16, 18, 22, 24, 32, 44, 48, 64})
            sizes << QSize(side, side);
        return sizes;
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override {
        if (halo_.isValid())
            paintHalo(*painter, rect);
        paintSymbol(*painter, name_, rect, color_);
    }

private:
    void paintHalo(QPainter &painter, const QRectF &rect) const {
        const double distance = std::max(1.0, rect.width() / 22);
        for (int step = 0; step < 8; ++step) {
            const double angle = step * M_PI / 4;
            paintSymbol(painter, name_,
                        rect.translated(distance * std::cos(angle), distance * std::sin(angle)), halo_);
        }
    }

    QString name_;
    QColor color_;
    QColor halo_;
};

}  // namespace

bool hasSymbol(const QString &name) {
    return !name.isEmpty() && QFile::exists(fileOf(name));
}

void paintSymbol(QPainter &painter, const QString &name, const QRectF &rect, const QBrush &tint) {
    if (rect.isEmpty())
        return;
    // The scene scales the painter where an icon scales its device; this is both.
    const double ratio = std::abs(painter.deviceTransform().m11());
    const double side = std::min(rect.width(), rect.height());
    const int pixels = std::max(1, qRound(side * ratio));
    QSvgRenderer *renderer = drawing(name, side);
    if (!renderer)
        return;
    QImage image = tinted(mask(*renderer, pixels), stretched(tint, pixels));
    image.setDevicePixelRatio(pixels / side);
    painter.drawImage(QPointF(rect.center().x() - side / 2, rect.center().y() - side / 2), image);
}

QIcon symbolIcon(const QString &name, const QColor &color, const QColor &halo) {
    return QIcon(new SymbolIconEngine(name, color, halo));
}

}  // namespace pimloft
