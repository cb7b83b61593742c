// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace/program_directory.h"
#include "platform/workspace/workspace.h"
#include "platform/x11/x11_active_window.h"

#include <QDBusConnection>
#include <QFileIconProvider>

namespace pimloft {

/// The programs of an X11 desktop: its windows, the processes that the server talks to, and the desktop
/// entries. Main thread.
class X11Workspace final : public WorkspaceService {
public:
    /// `help` is the folder of the installed help pages, `bus` the session's, connected or not.
    X11Workspace(X11Session &session, X11ActiveWindow &active, QString help, QDBusConnection bus);
    ~X11Workspace() override;

    std::optional<Application> frontmostApplication() override;
    std::vector<Application> runningApplications() override;
    QIcon icon(const Application &application) override;
    QIcon fileIcon(const QString &path) override;
    bool open(const QUrl &url) override;
    void reveal(const QString &path) override;

    /// How the program in front wants to be told a shortcut of the platform. Cheap.
    ShortcutChord frontmostChord();

    /// The identifier of a running program; nothing where the desktop does not know it.
    std::optional<QString> bundleId(ProcessId process);
    /// The identifier of the program that a window is of; that of the file manager for the desktop.
    std::optional<QString> bundleIdOf(xcb_window_t window);
    /// Which application a media player is.
    std::optional<QString> identifyPlayer(const MprisPlayer &player) {
        return programs_.identifyPlayer(player);
    }

private:
    struct Front {
        std::optional<Application> application;
        ShortcutChord chord = ShortcutChord::control;
    };
    QIcon lookUpIcon(const Application &application);
    const Front &front();
    Front look(xcb_window_t window);
    void frontMayHaveChanged();

    X11Session &session_;
    X11ActiveWindow &active_;
    QString help_;
    QDBusConnection bus_;
    ProgramDirectory programs_;
    std::optional<Front> front_;  ///< nothing while it has to be looked up
    std::optional<Application> announced_;
    /// The icons of running programs, as long as their entries are the same.
    struct KnownIcon {
        quint64 start;  ///< of the program
        QIcon icon;
    };
    QHash<qint32, KnownIcon> icons_;
    QFileIconProvider fileIcons_;
    QObject events_;  ///< receives the notices
};

}  // namespace pimloft
