// SPDX-License-Identifier: MIT
#include "updates/https_fetcher.h"

#include "app/bundle_info.h"

#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QTimer>

namespace pimloft {

namespace {

QNetworkRequest requestFor(const QUrl &url) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(10);
    // Nobody is to be recognised by a check for updates.
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Pimloft/") + appVersion());
    return request;
}

/// The way out that the user's desktop prescribes. Asked anew for each request, so that a change counts at
/// once.
class DesktopProxies final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override {
        return systemProxyForQuery(query);
    }
};

/// Whether the whole answer came, whatever it says about the request.
bool hasAnswered(QNetworkReply::NetworkError error) {
    const bool isRefusal =
        error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError;
    const bool isServersFault =
        error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError;
    return error == QNetworkReply::NoError || error == QNetworkReply::ProtocolInvalidOperationError ||
           isRefusal || isServersFault;
}

/// One document under way. Goes with its reply.
class Transfer final : public QObject {
public:
    Transfer(QNetworkReply *reply, const HttpsFetcher::Limits &limits, AppcastFetcher::Done done)
        : QObject(reply), reply_(reply), limits_(limits), done_(std::move(done)) {
        // What is not read does not come, so an endless answer takes no more memory than this.
        reply_->setReadBufferSize(1 << 20);
        connect(reply_, &QNetworkReply::readyRead, this, &Transfer::take);
        connect(reply_, &QNetworkReply::finished, this, &Transfer::end);
        QTimer::singleShot(limits_.time, reply_, &QNetworkReply::abort);
    }

private:
    void take() {
        document_ += reply_->readAll();
        if (document_.size() > limits_.bytes)
            reply_->abort();
    }

    void end() {
        const bool isWhole = hasAnswered(reply_->error());
        if (isWhole)
            document_ += reply_->readAll();
        reply_->deleteLater();
        if (isWhole && document_.size() <= limits_.bytes)
            done_(std::move(document_));
        else
            done_(std::nullopt);
    }

    QNetworkReply *reply_;
    const HttpsFetcher::Limits limits_;
    const AppcastFetcher::Done done_;
    QByteArray document_;
};

}  // namespace

HttpsFetcher::HttpsFetcher() : limits_() {
}

HttpsFetcher::HttpsFetcher(const Limits &limits, const QSslConfiguration &trust)
    : limits_(limits), trust_(trust) {
}

HttpsFetcher::~HttpsFetcher() {
    // Its replies finish now, which nobody is to be told.
    if (!network_)
        return;
    for (QNetworkReply *reply : network_->findChildren<QNetworkReply *>())
        for (QObject *transfer : reply->children())
            QObject::disconnect(reply, nullptr, transfer, nullptr);
}

QNetworkAccessManager &HttpsFetcher::network() {
    if (!network_) {
        network_ = std::make_unique<QNetworkAccessManager>();
        network_->setProxyFactory(new DesktopProxies);  // the manager's from now on
    }
    return *network_;
}

void HttpsFetcher::fetch(const QUrl &url, Done done) {
    if (!url.isValid() || url.scheme() != QLatin1String("https")) {
        QMetaObject::invokeMethod(
            this, [done = std::move(done)] { done(std::nullopt); }, Qt::QueuedConnection);
        return;
    }
    QNetworkRequest request = requestFor(url);
    if (trust_)
        request.setSslConfiguration(*trust_);
    new Transfer(network().get(request), limits_, std::move(done));
}

}  // namespace pimloft
