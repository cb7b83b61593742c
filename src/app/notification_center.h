// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace pimloft {

/// Tells whoever listens that something has happened, by its name: neither end knows the other. Main thread.
class NotificationCenter : public QObject {
    Q_OBJECT

public:
    static NotificationCenter &shared();

    /// Calls the observers of that name, in the order in which they came.
    void post(const QString &name);
    /// Calls `action` at each notification of that name, for as long as `context` lives.
    void observe(const QString &name, QObject *context, std::function<void()> action);

signals:
    void posted(const QString &name);
};

}  // namespace pimloft
