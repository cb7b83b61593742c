// SPDX-License-Identifier: MIT
#include "updates/tunnel_proxy.h"

#include <QTcpSocket>

namespace pimloft::test {

namespace {

void pour(QTcpSocket &from, QTcpSocket &to) {
    QObject::connect(&from, &QTcpSocket::readyRead, &to, [&from, &to] { to.write(from.readAll()); });
    QObject::connect(&from, &QTcpSocket::disconnected, &to, &QTcpSocket::disconnectFromHost);
}

}  // namespace

TunnelProxy::TunnelProxy() {
    if (!listen(QHostAddress::LocalHost))
        qFatal("the proxy does not come up");
    connect(this, &QTcpServer::newConnection, this, &TunnelProxy::takeIn);
}

QString TunnelProxy::address() const {
    return QStringLiteral("http://127.0.0.1:%1").arg(serverPort());
}

void TunnelProxy::takeIn() {
    QTcpSocket *client = nextPendingConnection();
    connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    connect(client, &QTcpSocket::readyRead, this, [this, client] { open(*client); });
}

void TunnelProxy::open(QTcpSocket &client) {
    if (!client.peek(1 << 16).contains("\r\n\r\n"))
        return;
    const QByteArray request = client.readAll().split('\r').first();
    requests << request;
    // What comes now is for the other end of the tunnel.
    client.disconnect(this);
    if (!refusal_.isEmpty()) {
        client.write(refusal_);
        return client.disconnectFromHost();
    }
    auto *host = new QTcpSocket(&client);
    pour(client, *host);
    pour(*host, client);
    host->connectToHost(QHostAddress::LocalHost, request.split(' ').value(1).split(':').value(1).toUShort());
    client.write("HTTP/1.1 200 Connection established\r\n\r\n");
}

}  // namespace pimloft::test
