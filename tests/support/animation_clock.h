// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractAnimation>
#include <QAnimationDriver>
#include <QCoreApplication>

namespace pimloft::test {

/// The time of all animations, turned by a test: nothing moves by itself while one exists.
class AnimationClock final : public QAnimationDriver {
public:
    AnimationClock() {
        install();
        // Qt counts on from the real time whenever no animation is left; one that never ends prevents that.
        keepRunning_.start();
        QCoreApplication::processEvents();
    }
    ~AnimationClock() override {
        keepRunning_.stop();
        QCoreApplication::processEvents();
        uninstall();
    }

    /// Lets this much time pass, a millisecond at a time, and runs what is posted meanwhile.
    void pass(int milliseconds) {
        QCoreApplication::processEvents();
        for (int passed = 0; passed < milliseconds; ++passed) {
            ++now_;
            advanceAnimation();
            QCoreApplication::processEvents();
        }
    }

    qint64 elapsed() const override { return now_; }

private:
    class Endless final : public QAbstractAnimation {
    public:
        int duration() const override { return -1; }

    protected:
        void updateCurrentTime(int) override {}
    };

    qint64 now_ = 0;
    Endless keepRunning_;
};

}  // namespace pimloft::test
