// SPDX-License-Identifier: MIT
#pragma once

#include "platform/displays/displays.h"
#include "platform/displays/monitor_list.h"
#include "platform/displays/x11_struts.h"
#include "platform/x11/point_space.h"
#include "platform/x11/x11_session.h"

#include <QObject>

namespace pimloft {

/// The monitors that RandR lists, less the struts that windows reserve on each. Main thread.
///
/// The list is kept until the server or a window tells of a change. The connection brings such a notice
/// before the mouse events that follow it, so a drag never sees a display that is gone.
class X11Displays final : public QObject, public DisplayService {
    Q_OBJECT

public:
    /// `scale`: native pixels per point.
    X11Displays(X11Session &session, double scale);
    ~X11Displays() override;

    const std::vector<Display> &displays() override;
    std::optional<Display> mainDisplay() override;

    /// For the other X11 services; follows the primary monitor.
    PointSpace pointSpace();

private:
    void handle(const xcb_generic_event_t &event);
    bool isMonitorNotice(const xcb_generic_event_t &event);
    void invalidate();
    void announce();
    void update();
    std::vector<Monitor> readMonitors(QSize root);
    QSize rootSize();

    X11Session &session_;
    X11Struts struts_;
    PointSpace space_;
    int randrEvents_ = -1;  ///< the number of RandR's first event; -1 without RandR 1.5
    std::vector<Display> displays_;
    std::vector<Display> announced_;
    bool isCurrent_ = false;
    bool isAnnouncing_ = false;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
