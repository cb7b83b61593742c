// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class QQmlEngine;

namespace pimloft {

/// The one QML engine of the program. It is made when the first view is, and dropped with its memory some
/// time after the last view left the screen. Main thread.
class QuickEngine : public QObject {
    Q_OBJECT

public:
    /// `idle`: how long it outlives the last view on screen.
    explicit QuickEngine(std::chrono::milliseconds idle = std::chrono::seconds(60));
    ~QuickEngine() override;

    /// Made now if there is none.
    QQmlEngine &engine();
    bool exists() const { return engine_ != nullptr; }

    /// Keeps the engine while the answer lives. To be held for every view that is on screen.
    [[nodiscard]] std::shared_ptr<void> use();

signals:
    /// Every view that is left has to be destroyed now.
    void aboutToDrop();

private:
    void drop();

    std::unique_ptr<QQmlEngine> engine_;
    std::weak_ptr<void> users_;
    QTimer idleTimer_;
};

}  // namespace pimloft
