// SPDX-License-Identifier: MIT
#include "app/transition.h"

#include <QPointF>

namespace pimloft {

namespace {

/// A timing function as desktops define them: one cubic curve from (0, 0) to (1, 1).
QEasingCurve bezier(QPointF firstControl, QPointF secondControl) {
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(firstControl, secondControl, {1, 1});
    return curve;
}

}  // namespace

QEasingCurve easeOut() {
    return bezier({0, 0}, {0.58, 1});
}

QEasingCurve easeIn() {
    return bezier({0.42, 0}, {1, 1});
}

void Transition::run(std::chrono::milliseconds duration, const QEasingCurve &curve, Step step) {
    stop();
    duration_ = duration;
    curve_ = curve;
    step_ = std::move(step);
    start();
}

void Transition::updateCurrentTime(int currentTime) {
    step_(curve_.valueForProgress(double(currentTime) / double(duration_.count())));
}

}  // namespace pimloft
