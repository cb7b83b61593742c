// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <QUuid>

#include <optional>

namespace pimloft {

/// Small pictures of the images in the history. They are decoded one by one on a thread of their own, what
/// was asked for last first, and kept up to a bound. Main thread.
class Thumbnails : public QObject {
    Q_OBJECT

public:
    /// Points. A thumbnail has this height; wide pictures are wider up to the double of it, narrow ones
    /// narrower down to a half, and what does not fit is cut off on both sides.
    static constexpr int height = 48;

    Thumbnails();
    /// Waits for the picture that is being decoded.
    ~Thumbnails() override;

    /// The picture of the entry `id`, as sharp as the sharpest screen; a null image when `bytes` are none
    /// that can be read to its end. Nothing while it is being decoded; then `decoded` tells.
    std::optional<QImage> thumbnail(const QUuid &id, const QByteArray &bytes);

    /// Drops the pictures of all other entries, also those that are still being decoded.
    void keepOnly(const QSet<QUuid> &ids);
    bool isEmpty() const { return cache_.isEmpty() && underWay_.isEmpty(); }

signals:
    void decoded(const QUuid &id);

private:
    void keep(const QUuid &id, const QImage &image);

    QCache<QUuid, QImage> cache_;
    QSet<QUuid> underWay_;
    int asked_ = 0;
    QThreadPool thread_;
};

}  // namespace pimloft
