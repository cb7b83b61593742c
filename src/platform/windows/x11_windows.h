// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/windows.h"
#include "platform/x11/x11_obstacle.h"
#include "platform/x11/x11_session.h"

#include <QObject>

#include <map>

namespace pimloft {

class X11Displays;
class X11Placement;

/// Other programs' windows, as the window manager knows them. Main thread.
class X11Windows final : public QObject, public WindowService {
    Q_OBJECT

public:
    /// `displays` tells where points are; `sessionType` is what the login says in XDG_SESSION_TYPE.
    X11Windows(X11Session &session, X11Displays &displays, const QString &sessionType);
    ~X11Windows() override;

    bool isTrusted() override { return obstacle_ == X11Obstacle::none; }
    std::optional<WindowReference> focusedWindow() override;
    std::optional<ProcessId> processId(const WindowReference &window) override;
    std::optional<QPointF> position(const WindowReference &window) override;
    std::optional<QSizeF> size(const WindowReference &window) override;
    void place(const WindowReference &window, const QRectF &frame) override;

private:
    struct Window;
    struct Journey {
        QRectF target;  ///< accessibility points, as it was asked for
        std::unique_ptr<X11Placement> placement;
    };

    void forget(const xcb_generic_event_t &event);
    xcb_window_t resolve(const WindowReference &window) const;
    std::optional<QRectF> frame(const WindowReference &window);
    void endJourney(xcb_window_t window);

    X11Session &session_;
    X11Displays &displays_;
    const X11Obstacle obstacle_;
    std::map<xcb_window_t, std::weak_ptr<Window>> known_;
    std::map<xcb_window_t, Journey> journeys_;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
