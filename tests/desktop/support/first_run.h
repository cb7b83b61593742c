// SPDX-License-Identifier: MIT
#pragma once

#include "support/desktop_session.h"

#include <QJsonObject>

namespace pimloft::test {

/// Where a session's user has the program's preferences.
QString preferencesFile(const DesktopSession &session);

/// What they are now; empty where there are none.
QJsonObject storedPreferences(const DesktopSession &session);

/// Has the session's user know the program: its first run and the news of this version, or of `lastSeen`, lie
/// behind them. `preferences` are what they have set besides. Before the program is started.
void skipFirstRun(const DesktopSession &session, const QJsonObject &preferences = {},
                  const QString &lastSeen = {});

/// As if the program had never been started there.
void forgetPreferences(const DesktopSession &session);

}  // namespace pimloft::test
