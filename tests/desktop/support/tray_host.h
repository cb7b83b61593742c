// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

#include <xcb/xcb.h>

namespace pimloft::test {

/// The plainest possible tray: takes icons in and knows at once when one comes. One thread.
class TrayHost {
public:
    /// Where it is on the screen, native pixels; an icon fills it.
    static constexpr QRect frame{1560, 4, 24, 24};

    explicit TrayHost(const QString &display);
    ~TrayHost();
    TrayHost(const TrayHost &) = delete;
    TrayHost &operator=(const TrayHost &) = delete;

    /// Whether an icon has asked for its place since `forgetIcon`.
    bool hasIcon();
    void forgetIcon();

private:
    xcb_atom_t atom(const char *name) const;
    void takeIn(xcb_window_t icon);

    xcb_connection_t *connection_;
    xcb_window_t window_;
    bool hasIcon_ = false;
};

}  // namespace pimloft::test
