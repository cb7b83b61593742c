// SPDX-License-Identifier: MIT
#include "platform/pasteboard/x11_pasteboard.h"

#include <QMetaObject>
#include <QObject>

namespace pimloft {

void X11Pasteboard::origin(qint64, QObject *context, std::function<void(std::optional<PasteOrigin>)> done) {
    QMetaObject::invokeMethod(
        context, [done = std::move(done)] { done(std::nullopt); }, Qt::QueuedConnection);
}

void X11Pasteboard::read(qint64, std::vector<PasteType>, qsizetype, QObject *context,
                         std::function<void(PasteData)> done) {
    QMetaObject::invokeMethod(
        context,
        [done = std::move(done)] {
            done({PasteData::failed, PasteType::plainText, {}});
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
