// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace pimloft::test {

/// A desktop of its own for one test: X server, session bus, home folder and, if wanted, a window manager.
/// Everything it started ends with it, also when the test crashes.
class DesktopSession {
public:
    struct Options {
        QString windowManager;  ///< "openbox", "xfwm4", or empty for none
        QString screen = QStringLiteral("1600x1000x24");
        QStringList serverArguments;  ///< for example {"-extension", "XTEST"}
    };
    explicit DesktopSession(const Options &options);
    ~DesktopSession();

    /// For programs that are to run in it; also what this process's own environment was set to.
    const QProcessEnvironment &environment() const { return environment_; }
    QString display() const { return environment_.value(QStringLiteral("DISPLAY")); }
    QString home() const { return home_.path(); }

    /// Starts a program in the session. It ends with the session or with the returned object.
    std::unique_ptr<QProcess> start(const QString &program, const QStringList &arguments = {}) const;

    /// Runs a program to its end and answers its standard output.
    QString run(const QString &program, const QStringList &arguments = {}) const;

    /// What sessions do at login: Qt's programs come to the bus of the screen readers only where it runs
    /// before them.
    void startAccessibility() const;

    void startWindowManager(const QString &name);
    void stopWindowManager();

    /// Ends the X server and the session bus as a crash does.
    void killServer();
    void killBus();
    /// A bus at the address of the one that was killed.
    void startBus();

private:
    void startServer(const Options &options);

    QTemporaryDir home_;
    QProcessEnvironment environment_;
    std::unique_ptr<QProcess> server_;
    std::unique_ptr<QProcess> bus_;
    std::unique_ptr<QProcess> windowManager_;
};

/// Turns the event loop until `condition` holds. False when it does not within `milliseconds`.
bool waitUntil(const std::function<bool()> &condition, int milliseconds = 15000);

/// The session that the running test binary was started with, where it asks for one.
DesktopSession &currentSession();

}  // namespace pimloft::test
