// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <map>
#include <memory>

class QQmlComponent;
class QQmlEngine;
class QQmlIncubationController;

namespace pimloft {

/// The one QML engine of the program, made when the first view is. Some time after the last view left the
/// screen it rests: no view is kept, and memory is given back, but the next view still comes at once. Much
/// later it goes altogether. Main thread.
class QuickEngine : public QObject {
    Q_OBJECT

public:
    /// How long after the last view left the screen.
    struct Patience {
        std::chrono::milliseconds untilRest = std::chrono::seconds(60);
        std::chrono::milliseconds untilEnd = std::chrono::minutes(30);
    };

    explicit QuickEngine(const Patience &patience);
    ~QuickEngine() override;

    /// Made now if there is none.
    QQmlEngine &engine();
    bool exists() const { return engine_ != nullptr; }

    /// Keeps the types that a page is made of, for as long as the engine lives. Else they go when others
    /// come, and the next view of the page has to wait for them.
    void keepTypes(const QUrl &page);

    /// Whether something is being made a little at a time.
    bool isMakingViews() const;
    /// Makes at once what is being made a little at a time. A view that goes while it is half made leaves
    /// some of it behind.
    void completeViews();

    /// Keeps the engine while the answer lives. To be held for every view that is on screen.
    [[nodiscard]] std::shared_ptr<void> use();

signals:
    /// Nothing is being made any more.
    void viewsComplete();
    /// Every view that is left has to be destroyed now.
    void viewsHaveToGo();

private:
    void dropViews();
    void startTimers();
    void rest();
    void end();

    const std::unique_ptr<QQmlIncubationController> incubation_;
    std::unique_ptr<QQmlEngine> engine_;
    std::map<QUrl, std::unique_ptr<QQmlComponent>> kept_;
    std::weak_ptr<void> users_;
    QTimer restTimer_;
    QTimer endTimer_;
};

}  // namespace pimloft
