// SPDX-License-Identifier: MIT
#include "platform/panels/mac_floating_windows.h"

#include "platform/panels/mac_panel_window.h"

#include <QCoreApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

namespace pimloft {

namespace {

bool hasMadeWindow(const QEvent &event) {
    return event.type() == QEvent::PlatformSurface &&
           static_cast<const QPlatformSurfaceEvent &>(event).surfaceEventType() ==
               QPlatformSurfaceEvent::SurfaceCreated;
}

}  // namespace

MacFloatingWindows::MacFloatingWindows(ViewOf viewOf) : viewOf_(std::move(viewOf)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool MacFloatingWindows::eventFilter(QObject *object, QEvent *event) {
    if (!hasMadeWindow(*event))
        return false;
    auto *window = qobject_cast<QWindow *>(object);
    if (window && window->flags().testFlag(Qt::WindowStaysOnTopHint))
        floatWindowOf(viewOf_(*window));
    return false;
}

}  // namespace pimloft
