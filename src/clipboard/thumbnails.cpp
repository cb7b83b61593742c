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

/// How many times as wide as high, or as high as wide, what is shown of a picture is at most.
constexpr int longest = 2;

/// The middle of a picture that is longer, null for others. Enlarging all of a thin line, which a program can
/// copy in a thousand bytes, would take any amount of memory. Native pixels.
QRect shownPart(QSize picture) {
    const QSize part(int(std::min<qint64>(picture.width(), qint64(picture.height()) * longest)),
                     int(std::min<qint64>(picture.height(), qint64(picture.width()) * longest)));
    const QSize beside = (picture - part) / 2;
    return part == picture ? QRect() : QRect(QPoint(beside.width(), beside.height()), part);
}

QSize shownSize(QSize picture, double ratio) {
    const double aspect = double(picture.width()) / picture.height();
    const double width = Thumbnails::height * std::clamp(aspect, 1.0 / longest, double(longest));
    return (QSizeF(width, Thumbnails::height) * ratio).toSize();
}

QImage decode(const QByteArray &bytes, double ratio) {
    QImage image = decodePicture(bytes, [ratio](QSize picture) {
        return PictureView{.part = shownPart(picture), .size = shownSize(picture, ratio)};
    });
    if (image.isNull())
        return {};
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    return image;
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
    underWay_.intersect(ids);
}

void Thumbnails::keep(const QUuid &id, const QImage &image) {
    if (!underWay_.remove(id))
        return;  // its entry has gone meanwhile
    cache_.insert(id, new QImage(image), qsizetype(std::max<qint64>(1, image.sizeInBytes())));
    emit decoded(id);
}

}  // namespace pimloft
