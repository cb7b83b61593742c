// SPDX-License-Identifier: MIT
#pragma once

#include "support/desktop_session.h"

#include <QHash>

#include <sys/types.h>

namespace pimloft::test {

using Variables = QHash<QString, QString>;

/// The built program, running in a session as a user would have it. Main thread.
class Program {
public:
    explicit Program(const DesktopSession &session, const QStringList &arguments = {},
                     const Variables &variables = {});
    /// Asks it to end, and kills it when it does not.
    ~Program();

    /// Whether another launch would find it.
    bool isReachable() const;
    /// Whether another launch gets an answer, and so whether it has dealt with what happened before.
    bool answers() const;
    bool isRunning() const { return process_->state() == QProcess::Running; }
    pid_t pid() const { return pid_t(process_->processId()); }

    /// Sends a signal.
    void signal(int number);
    /// Waits for its end and answers its exit code; -1 when a signal ended it, or when it does not end.
    int waitForEnd();

    QString output() const { return read(QStringLiteral("/output")); }
    /// What it complained about. Nobody but a developer ever sees it, so it is to be empty.
    QString complaints() const { return read(QStringLiteral("/complaints")); }

private:
    QString read(const QString &file) const;

    const DesktopSession &session_;
    QTemporaryDir folder_;
    std::unique_ptr<QProcess> process_;
};

/// A launch that ends by itself, such as `--version`.
struct Launch {
    int exitCode;
    QString output;
    QString complaints;
};
Launch launch(const DesktopSession &session, const QStringList &arguments, const Variables &variables = {});

}  // namespace pimloft::test
