// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractAnimation>
#include <QEasingCurve>

#include <chrono>
#include <functional>

namespace pimloft {

/// How a window's animation goes: at full speed at first and slowly into place, or the other way round.
QEasingCurve easeOut();
QEasingCurve easeIn();

/// Takes a window from one state to another over time. Main thread; destroying it leaves the window between.
///
/// Emits finished() when it has arrived, not when another run replaces it.
class Transition final : public QAbstractAnimation {
public:
    /// Called with 0 at once, then with growing parts of the way, and with 1 at the end.
    using Step = std::function<void(double progress)>;

    /// Replaces a run that is under way.
    void run(std::chrono::milliseconds duration, const QEasingCurve &curve, Step step);

    int duration() const override { return int(duration_.count()); }

protected:
    void updateCurrentTime(int currentTime) override;

private:
    std::chrono::milliseconds duration_{};
    QEasingCurve curve_;
    Step step_;
};

}  // namespace pimloft
