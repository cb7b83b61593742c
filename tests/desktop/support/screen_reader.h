// SPDX-License-Identifier: MIT
#pragma once

#include "support/desktop_session.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <vector>

namespace pimloft::test {

/// One thing that a program tells assistive technology about.
struct Spoken {
    QString service;
    QString path;
    int depth = 0;
    QString role;  ///< "check box", "push button"...
    QString name;
    QString description;
    quint64 states = 0;

    bool isFocusable() const { return has(11); }
    bool isChecked() const { return has(4); }
    bool isSelected() const { return has(23); }
    bool isVisible() const { return has(30); }

    /// "role: name", with [on] or [off] where that is told of its kind, and [selected].
    QString line() const;

private:
    bool has(int state) const { return states >> state & 1; }
};

/// A screen reader in a session: it has the desktop turn accessibility on and asks programs over the bus that
/// the desktop has for that. Main thread.
class ScreenReader {
public:
    explicit ScreenReader(const DesktopSession &session);
    ~ScreenReader();
    ScreenReader(const ScreenReader &) = delete;
    ScreenReader &operator=(const ScreenReader &) = delete;

    /// From now on programs are told that there is one.
    void start();

    /// What is shown of the top level window of that name, the window itself first; nothing when there is
    /// none.
    std::vector<Spoken> window(const QString &program, const QString &title) const;
    /// The names of a program's top level windows.
    QStringList windows(const QString &program) const;
    /// Presses it, and warns when it does not offer that.
    void press(const Spoken &thing) const;

private:
    std::vector<Spoken> topLevels(const QString &program) const;
    std::vector<Spoken> childrenOf(const QString &service, const QString &path) const;
    Spoken look(const QString &service, const QString &path) const;
    void walk(const Spoken &thing, int depth, std::vector<Spoken> &all) const;
    QVariant property(const QString &service, const QString &path, const QString &name) const;
    QDBusMessage call(const QString &service, const QString &path, const QString &method) const;

    QString sessionName_;
    QDBusConnection session_;
    QString busName_;
    QDBusConnection bus_;
};

/// The lines of all of them that say something, with a line break behind each.
QString lines(const std::vector<Spoken> &things);

}  // namespace pimloft::test
