// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/x11_session.h"

#include <QObject>

namespace pimloft {

/// Whether something blends the windows of this desktop. Main thread.
class X11Compositor : public QObject {
    Q_OBJECT

public:
    explicit X11Compositor(X11Session &session);

    bool isRunning() const { return running_; }

signals:
    /// One came or went.
    void changed();

private:
    void handle(const xcb_generic_event_t &event);

    std::uint8_t selectionEvent_ = 0;
    bool running_ = false;
    std::unique_ptr<X11Session::Subscription> events_;
};

}  // namespace pimloft
