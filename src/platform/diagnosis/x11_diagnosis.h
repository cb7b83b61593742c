// SPDX-License-Identifier: MIT
#pragma once

#include "platform/diagnosis/diagnosis.h"
#include "platform/events/x11_key_tap.h"
#include "platform/x11/x11_session.h"

#include <QDBusConnection>

namespace pimloft {

class PulseAudio;

/// What an X11 desktop grants and refuses. Main thread; asks the server and the bus, and waits for them.
class X11Diagnosis final : public DiagnosisService {
public:
    /// `sessionType` is what the login tells in XDG_SESSION_TYPE, `bus` the session's, connected or not.
    X11Diagnosis(X11Session &session, const X11KeyTap &keyTap, PulseAudio &audio, QString sessionType,
                 QDBusConnection bus);

    std::vector<Finding> findings() override;

private:
    Finding desktopSession() const;
    Finding mouseEvents();
    Finding keyEvents();
    Finding keyMappings();
    Finding windowManager();
    Finding compositor();
    Finding tray();
    Finding sound();

    X11Session &session_;
    const X11KeyTap &keyTap_;
    PulseAudio &audio_;
    QString sessionType_;
    QDBusConnection bus_;
};

}  // namespace pimloft
