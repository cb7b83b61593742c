// SPDX-License-Identifier: MIT
#include "ui/quick_engine.h"

#include "platform/memory/memory.h"

#include <QBasicTimer>
#include <QGuiApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlIncubationController>
#include <QQuickWindow>

#include <functional>
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

/// Makes what need not be there at once, between the events that the program gets. Qt's own is a window's,
/// and leaves things half made when that goes.
class Incubation final : public QObject, public QQmlIncubationController {
public:
    explicit Incubation(std::function<void()> onComplete) : onComplete_(std::move(onComplete)) {}

private:
    void incubatingObjectCountChanged(int count) override {
        if (count > 0)
            return turns_.start(0, this);
        turns_.stop();
        onComplete_();
    }
    void timerEvent(QTimerEvent *) override { incubateFor(longestStep); }

    static constexpr int longestStep = 5;  ///< milliseconds
    const std::function<void()> onComplete_;
    QBasicTimer turns_;
};

}  // namespace

QuickEngine::QuickEngine(const Patience &patience)
    : incubation_(std::make_unique<Incubation>([this] {
          // Whoever made it may still have to put it into its place.
          QMetaObject::invokeMethod(this, &QuickEngine::viewsComplete, Qt::QueuedConnection);
      })) {
    for (QTimer *timer : {&restTimer_, &endTimer_})
        timer->setSingleShot(true);
    restTimer_.setInterval(patience.untilRest);
    endTimer_.setInterval(patience.untilEnd);
    connect(&restTimer_, &QTimer::timeout, this, &QuickEngine::rest);
    connect(&endTimer_, &QTimer::timeout, this, &QuickEngine::end);
}

QuickEngine::~QuickEngine() {
    if (engine_)
        dropViews();
}

QQmlEngine &QuickEngine::engine() {
    if (engine_)
        return *engine_;
    chooseRenderer();
    engine_ = std::make_unique<QQmlEngine>();
    engine_->setIncubationController(incubation_.get());
    engine_->addImportPath(QStringLiteral("qrc:/qt/qml"));
    // It may have been made for a view that never comes on screen.
    startTimers();
    return *engine_;
}

void QuickEngine::keepTypes(const QUrl &page) {
    auto &kept = kept_[page];
    if (!kept)
        kept = std::make_unique<QQmlComponent>(&engine(), page);
}

bool QuickEngine::isMakingViews() const {
    return incubation_->incubatingObjectCount() > 0;
}

void QuickEngine::completeViews() {
    constexpr int step = 1000;  // milliseconds
    while (isMakingViews())
        incubation_->incubateFor(step);
}

void QuickEngine::dropViews() {
    completeViews();
    emit viewsHaveToGo();
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
    dropViews();
    engine_->collectGarbage();
    returnFreeMemory();
}

void QuickEngine::end() {
    if (!engine_ || !users_.expired())
        return;
    dropViews();
    kept_.clear();
    engine_.reset();
    returnFreeMemory();
}

}  // namespace pimloft
