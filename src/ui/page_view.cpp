// SPDX-License-Identifier: MIT
#include "ui/page_view.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QScopedValueRollback>

#include <utility>

namespace pimloft {

PageView::PageView(QuickEngine &engine, const Page &page)
    : QQuickView(&engine.engine(), nullptr), engine_(&engine) {
    for (const QVariant &property : page.properties)
        if (auto *object = property.value<QObject *>())
            QJSEngine::setObjectOwnership(object, QJSEngine::CppOwnership);
    setResizeMode(SizeRootObjectToView);
    setInitialProperties(page.properties);
    connect(engine_, &QuickEngine::viewsComplete, this, &PageView::deliverTyped);
    setSource(page.source);
    engine.keepTypes(page.source);
}

PageView::~PageView() {
    if (engine_)
        engine_->completeViews();
}

/// However quickly it is typed: it is meant for the page that was asked for before.
bool PageView::keepsForLater(QKeyEvent &event) {
    if (!engine_ || isDelivering_ || (typed_.empty() && !engine_->isMakingViews()))
        return false;
    typed_.emplace_back(event.clone());
    event.accept();
    return true;
}

void PageView::deliverTyped() {
    while (!typed_.empty() && !engine_->isMakingViews()) {
        const std::unique_ptr<QEvent> event = std::move(typed_.front());
        typed_.pop_front();
        // What was typed before it may have closed the window.
        if (!isVisible())
            continue;
        const QScopedValueRollback delivering(isDelivering_, true);
        QCoreApplication::sendEvent(this, event.get());
    }
}

void PageView::keyReleaseEvent(QKeyEvent *event) {
    if (!keepsForLater(*event))
        QQuickView::keyReleaseEvent(event);
}

void PageView::keyPressEvent(QKeyEvent *event) {
    if (keepsForLater(*event))
        return;
    QQuickView::keyPressEvent(event);
    if (event->isAccepted())
        return;
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close)) {
        event->accept();
        emit closeKeyPressed();
    }
}

}  // namespace pimloft
