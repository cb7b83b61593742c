// SPDX-License-Identifier: MIT
#pragma once

#include "platform/instance/instance.h"

#include <QLocalServer>
#include <QObject>

class QLocalSocket;

namespace pimloft {

/// Where the running instance of a login is found. A value; any thread.
struct InstancePaths {
    InstancePaths(const QString &runtime, const QString &login);

    QString lock;    ///< locked by the running instance for as long as its process lives
    QString socket;  ///< takes commands
};

/// The running instance: holds a lock that ends with the process, however it ends, and takes commands at a
/// local socket that only this user can reach. Main thread.
///
/// A request is one line; the answer is its text, then a zero byte. Whoever sends anything else, or takes
/// more than 5 s, is cut off.
class LocalInstance final : public QObject, public Instance {
    Q_OBJECT

public:
    /// Nothing when another process has the lock.
    static std::unique_ptr<LocalInstance> claim(const QString &runtime, const QString &login);
    ~LocalInstance() override;

private:
    LocalInstance(int lock, const InstancePaths &paths);
    void acceptClients();
    void readRequest(QLocalSocket *socket);
    void answer(QLocalSocket *socket, InstanceCommand command);

    const int lock_;  ///< a descriptor, or -1
    int clients_ = 0;
    QLocalServer server_;
};

}  // namespace pimloft
