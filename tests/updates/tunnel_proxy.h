// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>

class QTcpSocket;

namespace pimloft::test {

/// A proxy on the loopback interface that makes tunnels, as offices have them. It leads every tunnel to the
/// loopback interface, whatever host is asked for. Main thread.
class TunnelProxy final : public QTcpServer {
public:
    TunnelProxy();

    QString address() const;

    /// From now on it answers this instead of making a tunnel.
    void refuse(const QByteArray &answer) { refusal_ = answer; }

    /// The first line of each request, oldest first.
    QList<QByteArray> requests;

private:
    void takeIn();
    void open(QTcpSocket &client);

    QByteArray refusal_;
};

}  // namespace pimloft::test
