// SPDX-License-Identifier: MIT
#include "ui/page_view.h"

#include "ui/quick_engine.h"

#include <QKeyEvent>
#include <QQmlEngine>

namespace pimloft {

PageView::PageView(QuickEngine &engine, const Page &page) : QQuickView(&engine.engine(), nullptr) {
    for (const QVariant &property : page.properties)
        if (auto *object = property.value<QObject *>())
            QJSEngine::setObjectOwnership(object, QJSEngine::CppOwnership);
    setResizeMode(SizeRootObjectToView);
    setInitialProperties(page.properties);
    setSource(page.source);
}

void PageView::keyPressEvent(QKeyEvent *event) {
    QQuickView::keyPressEvent(event);
    if (event->isAccepted())
        return;
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
        event->accept();
        emit closeKeyPressed();
    }
}

}  // namespace pimloft
