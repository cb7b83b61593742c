// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTcpServer>

#include <functional>

class QSslSocket;

namespace pimloft::test {

/// A web site on the loopback interface, with a certificate that nobody believes who is not told to.
/// Main thread.
class HttpsServer final : public QTcpServer {
public:
    /// Sends what a page answers, and closes the connection or leaves it open.
    using Page = std::function<void(QSslSocket &)>;

    HttpsServer();

    /// What is at `path`, which begins with a slash.
    void serve(const QByteArray &path, Page page) { pages_[path] = std::move(page); }
    /// With that status line and headers, complete.
    void serve(const QByteArray &path, const QByteArray &status, const QByteArray &body,
               const QByteArray &headers = {});

    QString address(const QByteArray &path) const;
    /// For who is to believe its certificate.
    QSslConfiguration trust() const;

    /// The head of each request, oldest first.
    QList<QByteArray> requests;

protected:
    void incomingConnection(qintptr handle) override;

private:
    void answer(QSslSocket &socket);

    QSslCertificate certificate_;
    QSslKey key_;
    QHash<QByteArray, Page> pages_;
};

}  // namespace pimloft::test
