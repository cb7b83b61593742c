// SPDX-License-Identifier: MIT
#include "ui/quick_engine.h"

#include "platform/memory/memory.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

#include <utility>

namespace pimloft {

namespace {

/// These windows are small and mostly still: drawing them by the processor takes a third of the memory and of
/// the time to the first frame. Where windows are layers of the graphics system anyway, Qt knows better.
void chooseRenderer() {
    // It holds for the process and cannot be said again once there was a window.
    static bool chosen = false;
    if (!std::exchange(chosen, true) && QGuiApplication::platformName() != QLatin1String("cocoa"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

}  // namespace

QuickEngine::QuickEngine(const Patience &patience) {
    for (QTimer *timer : {&restTimer_, &endTimer_})
        timer->setSingleShot(true);
    restTimer_.setInterval(patience.untilRest);
    endTimer_.setInterval(patience.untilEnd);
    connect(&restTimer_, &QTimer::timeout, this, &QuickEngine::rest);
    connect(&endTimer_, &QTimer::timeout, this, &QuickEngine::end);
}

QuickEngine::~QuickEngine() {
    if (engine_)
        emit viewsHaveToGo();
}

QQmlEngine &QuickEngine::engine() {
    if (engine_)
        return *engine_;
    chooseRenderer();
    engine_ = std::make_unique<QQmlEngine>();
    engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    // It may have been made for a view that never comes on screen.
    startTimers();
    return *engine_;
}

void QuickEngine::startTimers() {
    restTimer_.start();
    endTimer_.start();
}

std::shared_ptr<void> QuickEngine::use() {
    restTimer_.stop();
    endTimer_.stop();
    if (auto users = users_.lock())
        return users;
    std::shared_ptr<void> users(this, [engine = QPointer(this)](void *) {
        if (engine && engine->exists())
            engine->startTimers();
    });
    users_ = users;
    return users;
}

void QuickEngine::rest() {
    if (!engine_ || !users_.expired())
        return;
    emit viewsHaveToGo();
    engine_->collectGarbage();
    returnFreeMemory();
}

void QuickEngine::end() {
    rest();
    if (!users_.expired())
        return;
    engine_.reset();
    returnFreeMemory();
}

}  // namespace pimloft
