// SPDX-License-Identifier: MIT
#include "updates/https_fetcher.h"

#include "updates/https_server.h"

#include <QSslSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using namespace std::chrono_literals;

class HttpsFetcherTest : public testing::Test {
protected:
    /// What comes of fetching an address: the document, "nothing", or "no answer".
    std::string fetch(HttpsFetcher &fetcher, const QString &address) {
        std::optional<std::string> result;
        fetcher.fetch(QUrl(address), [&result](const std::optional<QByteArray> &document) {
            EXPECT_FALSE(result) << "it answers twice";
            result = document ? document->toStdString() : "nothing";
        });
        EXPECT_FALSE(result) << "it answers before it returns";
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 20000));
        return result.value_or("no answer");
    }
    std::string fetch(const QByteArray &path) { return fetch(trusting, server.address(path)); }

    test::HttpsServer server;
    HttpsFetcher trusting{{.bytes = 1 << 20, .time = 15s}, server.trust()};
    HttpsFetcher impatient{{.bytes = 1 << 20, .time = 300ms}, server.trust()};
};

TEST_F(HttpsFetcherTest, fetchesADocument) {
    server.serve("/appcast.xml", "200 OK", "<rss/>");
    EXPECT_EQ(fetch("/appcast.xml"), "<rss/>");
}

TEST_F(HttpsFetcherTest, tellsNothingOfTheUserButTheProgram) {
    server.serve("/appcast.xml", "200 OK", "<rss/>", "Set-Cookie: who=you\r\n");
    fetch("/appcast.xml");
    fetch("/appcast.xml");
    ASSERT_EQ(server.requests.size(), 2);
    for (const QByteArray &request : server.requests) {
        EXPECT_TRUE(request.contains("User-Agent: Pimloft/1.0.0\r\n")) << request.toStdString();
        EXPECT_FALSE(request.toLower().contains("cookie")) << request.toStdString();
    }
}

TEST_F(HttpsFetcherTest, whatTheServerSaysAboutTheRequestDoesNotMatter) {
    for (const char *status :
         {"400 Bad Request", "401 Unauthorized", "403 Forbidden", "404 Not Found", "410 Gone", "418 Teapot",
          "500 Internal Server Error", "503 Service Unavailable", "203 Non-Authoritative Information"}) {
        server.serve("/appcast.xml", status, "<rss/>");
        EXPECT_EQ(fetch("/appcast.xml"), "<rss/>") << status;
    }
}

TEST_F(HttpsFetcherTest, anEmptyDocumentIsOne) {
    server.serve("/appcast.xml", "200 OK", "");
    EXPECT_EQ(fetch("/appcast.xml"), "");
}

TEST_F(HttpsFetcherTest, isSentOnToAnotherAddress) {
    server.serve("/old", "301 Moved", "", "Location: /new\r\n");
    server.serve("/new", "200 OK", "<rss/>");
    EXPECT_EQ(fetch("/old"), "<rss/>");
}

TEST_F(HttpsFetcherTest, isNeverSentOnToWhatIsNotEncrypted) {
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    server.serve("/old", "302 Found", "<rss/>",
                 "Location: http://127.0.0.1:" + QByteArray::number(plain.serverPort()) + "/\r\n");
    EXPECT_EQ(fetch("/old"), "nothing");
    EXPECT_FALSE(plain.hasPendingConnections());
}

TEST_F(HttpsFetcherTest, isNotSentRoundForEver) {
    server.serve("/round", "302 Found", "", "Location: /round\r\n");
    EXPECT_EQ(fetch("/round"), "nothing");
    EXPECT_LE(server.requests.size(), 11);
}

TEST_F(HttpsFetcherTest, asksNobodyWhereTheAddressIsNotEncrypted) {
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    const QString host = QStringLiteral("127.0.0.1:%1/").arg(plain.serverPort());
    for (const QString &address : {QStringLiteral("http://") + host, QStringLiteral("ftp://") + host,
                                   QStringLiteral("file:///etc/hostname"), QString()})
        EXPECT_EQ(fetch(trusting, address), "nothing") << address.toStdString();
    EXPECT_FALSE(plain.hasPendingConnections());
}

TEST_F(HttpsFetcherTest, doesNotBelieveACertificateThatNobodyVouchesFor) {
    server.serve("/appcast.xml", "200 OK", "<rss/>");
    HttpsFetcher cautious;
    EXPECT_EQ(fetch(cautious, server.address("/appcast.xml")), "nothing");
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(HttpsFetcherTest, doesNotBelieveTheCertificateOfAnotherHost) {
    server.serve("/appcast.xml", "200 OK", "<rss/>");
    QUrl other(server.address("/appcast.xml"));
    other.setHost(QStringLiteral("localhost"));
    EXPECT_EQ(fetch(trusting, other.toString()), "nothing");
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(HttpsFetcherTest, aServerThatRefusesEndsTheFetch) {
    const QString address = server.address("/appcast.xml");
    server.close();
    EXPECT_EQ(fetch(trusting, address), "nothing");
}

TEST_F(HttpsFetcherTest, aServerThatSaysNothingEndsTheFetchInTime) {
    server.serve("/silent", [](QSslSocket &) {});
    EXPECT_EQ(fetch(impatient, server.address("/silent")), "nothing");
}

TEST_F(HttpsFetcherTest, theTimeCountsAsAWholeForAServerThatTrickles) {
    server.serve("/slow", [](QSslSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\n\r\n");
        auto *drop = new QTimer(&socket);
        QObject::connect(drop, &QTimer::timeout, &socket, [&socket] { socket.write("a"); });
        drop->start(20ms);
    });
    EXPECT_EQ(fetch(impatient, server.address("/slow")), "nothing");
}

TEST_F(HttpsFetcherTest, anEndlessDocumentEndsAtTheLimit) {
    qint64 sent = 0;
    server.serve("/endless", [&sent](QSslSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\n\r\n");
        const auto more = [&socket, &sent] {
            if (socket.encryptedBytesToWrite() == 0)
                sent += socket.write(QByteArray(1 << 16, 'a'));
        };
        QObject::connect(&socket, &QSslSocket::encryptedBytesWritten, &socket, more);
        more();
    });
    EXPECT_EQ(fetch("/endless"), "nothing");
    EXPECT_LT(sent, 64 << 20);
}

TEST_F(HttpsFetcherTest, aDocumentOfExactlyTheLimitIsTaken) {
    server.serve("/large", "200 OK", QByteArray(1 << 20, 'a'));
    EXPECT_EQ(fetch("/large").size(), 1U << 20);
    server.serve("/larger", "200 OK", QByteArray((1 << 20) + 1, 'a'));
    EXPECT_EQ(fetch("/larger"), "nothing");
}

TEST_F(HttpsFetcherTest, theLimitCountsWhatIsUnpacked) {
    // What qCompress makes, without its own header, is what the web calls "deflate".
    const QByteArray packed = qCompress(QByteArray(8 << 20, 'a'), 9).sliced(4);
    ASSERT_LT(packed.size(), 1 << 15);
    server.serve("/packed", "200 OK", packed, "Content-Encoding: deflate\r\n");
    EXPECT_EQ(fetch("/packed"), "nothing");
}

TEST_F(HttpsFetcherTest, aDocumentThatBreaksOffIsNone) {
    server.serve("/cut", [](QSslSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n<rss><item/>");
        socket.disconnectFromHost();
    });
    EXPECT_EQ(fetch("/cut"), "nothing");
}

TEST_F(HttpsFetcherTest, severalFetchesAreIndependent) {
    server.serve("/silent", [](QSslSocket &) {});
    server.serve("/appcast.xml", "200 OK", "<rss/>");
    bool silentAnswers = false;
    trusting.fetch(QUrl(server.address("/silent")), [&](const auto &) { silentAnswers = true; });
    EXPECT_EQ(fetch("/appcast.xml"), "<rss/>");
    EXPECT_FALSE(silentAnswers);
}

TEST_F(HttpsFetcherTest, itsEndIsNoAnswer) {
    bool reached = false;
    server.serve("/silent", [&reached](QSslSocket &) { reached = true; });
    bool answers = false;
    {
        HttpsFetcher fetcher({.bytes = 1 << 20, .time = 15s}, server.trust());
        fetcher.fetch(QUrl(server.address("/silent")), [&](const auto &) { answers = true; });
        fetcher.fetch(QUrl(), [&](const auto &) { answers = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return reached; }));
        answers = false;
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(answers);
}

}  // namespace
}  // namespace pimloft
