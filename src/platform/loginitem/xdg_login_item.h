// SPDX-License-Identifier: MIT
#pragma once

#include "platform/loginitem/login_item.h"

namespace pimloft {

/// Starts the program at login by an entry in the desktop's autostart folder. Main thread.
///
/// What the user added to the entry (a delay, conditions) stays; that it is to start, and what, is ours.
class XdgLoginItem final : public LoginItemService {
public:
    /// `autostart` is the folder of the user's entries, `program` the absolute path of the program to start.
    XdgLoginItem(const QString &autostart, QString program);

    std::optional<QString> registerMainApplication() override;
    std::optional<QString> unregisterMainApplication() override;

private:
    QString path_;
    QString program_;
};

/// A program as the Exec line of a desktop entry names it, before the escapes of the file itself: quoted
/// where it has to be. Pure; any thread.
QString execLine(const QString &program);

}  // namespace pimloft
