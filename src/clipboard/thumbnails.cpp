// SPDX-License-Identifier: MIT
#include "clipboard/thumbnails.h"

#include "clipboard/picture_decoder.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace pimloft {

namespace {

/// Bytes of decoded pictures that are kept.
constexpr int bound = 8 << 20;

/// The size to decode a picture in, so that it covers what is shown of it. Native pixels.
QSize coveringSize(QSize picture, QSize shown) {
    return picture.scaled(shown, Qt::KeepAspectRatioByExpanding).expandedTo(shown);
}

QSize shownSize(QSize picture, double ratio) {
    const double aspect = double(picture.width()) / picture.height();
    const double width = Thumbnails::height * std::clamp(aspect, 0.5, 2.0);
    return (QSizeF(width, Thumbnails::height) * ratio).toSize();
}

QImage middle(const QImage &image, QSize size) {
    const QSize beside = (image.size() - size) / 2;
    return image.copy(QRect(QPoint(beside.width(), beside.height()), size));
}

QImage decode(const QByteArray &bytes, double ratio) {
    QSize shown;
    const QImage image = decodePicture(bytes, [&](QSize size) {
        shown = shownSize(size, ratio);
        return coveringSize(size, shown);
    });
    if (image.isNull())
        return {};
    QImage part = middle(image, shown).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    part.setDevicePixelRatio(ratio);
    return part;
}

}  // namespace

Thumbnails::Thumbnails() : cache_(bound) {
    thread_.setMaxThreadCount(1);
}

Thumbnails::~Thumbnails() {
    thread_.clear();
    thread_.waitForDone();
}

std::optional<QImage> Thumbnails::thumbnail(const QUuid &id, const QByteArray &bytes) {
    if (const QImage *image = cache_.object(id))
        return *image;
    if (underWay_.contains(id))
        return std::nullopt;
    underWay_.insert(id);
    thread_.start(
        [this, id, bytes, ratio = std::ceil(qGuiApp->devicePixelRatio())] {
            QMetaObject::invokeMethod(
                this, [this, id, image = decode(bytes, ratio)] { keep(id, image); }, Qt::QueuedConnection);
        },
        ++asked_);
    return std::nullopt;
}

void Thumbnails::keepOnly(const QSet<QUuid> &ids) {
    for (const QUuid &id : cache_.keys())
        if (!ids.contains(id))
            cache_.remove(id);
}

void Thumbnails::keep(const QUuid &id, const QImage &image) {
    underWay_.remove(id);
    cache_.insert(id, new QImage(image), qsizetype(std::max<qint64>(1, image.sizeInBytes())));
    emit decoded(id);
}

}  // namespace pimloft
