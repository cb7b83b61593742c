// SPDX-License-Identifier: MIT
#include "updates/https_server.h"

#include <QFile>
#include <QProcess>
#include <QSslSocket>
#include <QTemporaryDir>

namespace pimloft::test {

namespace {

QByteArray read(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

HttpsServer::HttpsServer() {
    const QTemporaryDir folder;
    const QString key = folder.filePath(QStringLiteral("key"));
    const QString certificate = folder.filePath(QStringLiteral("certificate"));
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"),
                  QStringLiteral("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 "
                                 "-subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1")
                          .split(QLatin1Char(' ')) +
                      QStringList{QStringLiteral("-keyout"), key, QStringLiteral("-out"), certificate});
    if (!openssl.waitForFinished() || openssl.exitCode() != 0)
        qFatal("openssl makes no certificate");
    key_ = QSslKey(read(key), QSsl::Ec);
    certificate_ = QSslCertificate(read(certificate));
    if (key_.isNull() || certificate_.isNull() || !listen(QHostAddress::LocalHost))
        qFatal("the web site does not come up");
}

void HttpsServer::serve(const QByteArray &path, const QByteArray &status, const QByteArray &body,
                        const QByteArray &headers) {
    const QByteArray whole = "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                             "\r\nConnection: close\r\n" + headers + "\r\n" + body;
    serve(path, [whole](QSslSocket &socket) {
        socket.write(whole);
        socket.disconnectFromHost();
    });
}

QString HttpsServer::address(const QByteArray &path) const {
    return QStringLiteral("https://127.0.0.1:%1").arg(serverPort()) + QString::fromLatin1(path);
}

QSslConfiguration HttpsServer::trust() const {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates({certificate_});
    return configuration;
}

void HttpsServer::incomingConnection(qintptr handle) {
    auto *socket = new QSslSocket(this);
    socket->setSocketDescriptor(handle);
    socket->setLocalCertificate(certificate_);
    socket->setPrivateKey(key_);
    connect(socket, &QSslSocket::readyRead, this, [this, socket] { answer(*socket); });
    connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    socket->startServerEncryption();
}

void HttpsServer::answer(QSslSocket &socket) {
    const QByteArray head = socket.peek(1 << 16);
    if (!head.contains("\r\n\r\n"))
        return;
    requests << socket.readAll();
    const auto page = pages_.constFind(head.split(' ').value(1));
    if (page == pages_.cend())
        qFatal("a page is asked for that is not there: %s", head.constData());
    (*page)(socket);
}

}  // namespace pimloft::test
