// SPDX-License-Identifier: MIT
#pragma once

#include "updates/appcast_fetcher.h"

#include <QObject>
#include <QSslConfiguration>

#include <chrono>
#include <memory>

class QNetworkAccessManager;

namespace pimloft {

/// Gets documents by HTTPS only, also where it is sent on to. What the server says about the request is not
/// looked at: what it sends is the document. Main thread.
///
/// Goes through the proxy that the desktop prescribes, by a tunnel: it sees the host's name and nothing else.
/// Nothing of the network is set up before the first fetch.
class HttpsFetcher final : public QObject, public AppcastFetcher {
    Q_OBJECT

public:
    /// When to give up.
    struct Limits {
        qint64 bytes = 64 << 20;
        std::chrono::milliseconds time = std::chrono::seconds(60);  ///< in all
    };

    HttpsFetcher();
    /// `trust`: whose certificates are believed, instead of those that the system believes.
    HttpsFetcher(const Limits &limits, const QSslConfiguration &trust);
    ~HttpsFetcher() override;

    void fetch(const QUrl &url, Done done) override;

private:
    QNetworkAccessManager &network();

    const Limits limits_;
    const std::optional<QSslConfiguration> trust_;
    std::unique_ptr<QNetworkAccessManager> network_;
};

}  // namespace pimloft
