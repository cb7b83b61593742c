// SPDX-License-Identifier: MIT
#include "ui/screen_space.h"

#include "base/geometry.h"

#include <QGuiApplication>
#include <QScreen>

#include <limits>

namespace pimloft {

namespace {

QRectF nativeRect(const ScreenSpace::Screen &screen) {
    return {QPointF(screen.geometry.topLeft()), QSizeF(screen.geometry.size()) * screen.ratio};
}

/// The rectangle nearest to a point. Edges belong to the first one that has them.
template <typename RectOf>
std::size_t nearest(const std::vector<ScreenSpace::Screen> &screens, QPointF point, RectOf rectOf) {
    std::size_t best = 0;
    double bestDistance = std::numeric_limits<double>::max();
    for (std::size_t index = 0; index < screens.size(); ++index) {
        const double each = squaredDistance(point, rectOf(screens[index]));
        if (each >= bestDistance)
            continue;
        best = index;
        bestDistance = each;
    }
    return best;
}

}  // namespace

ScreenSpace ScreenSpace::current() {
    std::vector<Screen> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.push_back({screen->geometry(), screen->devicePixelRatio()});
    return ScreenSpace(std::move(screens));
}

QRectF ScreenSpace::toDesktop(const QRect &qt) const {
    if (screens_.empty())
        return {};
    const Screen &screen = screens_[nearest(screens_, QRectF(qt).center(),
                                            [](const Screen &each) { return QRectF(each.geometry); })];
    const Screen &primary = screens_.front();
    const QPointF origin = screen.geometry.topLeft();
    const QPointF native = origin + (QPointF(qt.topLeft()) - origin) * screen.ratio;
    const QPointF fromTop = (native - QPointF(primary.geometry.topLeft())) / primary.ratio;
    const QSizeF size = QSizeF(qt.size()) * screen.ratio / primary.ratio;
    return {QPointF(fromTop.x(), primary.geometry.height() - fromTop.y() - size.height()), size};
}

std::optional<ScreenSpace::Place> ScreenSpace::toQt(QPointF desktop) const {
    if (screens_.empty())
        return std::nullopt;
    const Screen &primary = screens_.front();
    const QPointF fromTop(desktop.x(), primary.geometry.height() - desktop.y());
    const QPointF native = QPointF(primary.geometry.topLeft()) + fromTop * primary.ratio;
    const std::size_t index = nearest(screens_, native, nativeRect);
    const QPointF origin = screens_[index].geometry.topLeft();
    return Place{index, origin + (native - origin) / screens_[index].ratio};
}

}  // namespace pimloft
