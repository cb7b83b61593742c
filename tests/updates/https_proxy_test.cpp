// SPDX-License-Identifier: MIT
// How the feed is reached where the network has a proxy before it.
#include "updates/https_fetcher.h"

#include "updates/https_server.h"
#include "updates/tunnel_proxy.h"

#include <QTest>

#include <gtest/gtest.h>

#include <map>

namespace pimloft {
namespace {

using namespace std::chrono_literals;

class HttpsThroughAProxy : public testing::Test {
protected:
    HttpsThroughAProxy() {
        server.serve("/appcast.xml", "200 OK", "<rss/>");
        for (const char *name : {"http_proxy", "HTTP_PROXY", "HTTPS_PROXY", "all_proxy", "ALL_PROXY",
                                 "no_proxy", "NO_PROXY", "https_proxy"})
            setVariable(name, std::nullopt);
    }
    ~HttpsThroughAProxy() override {
        for (const auto &[name, value] : before_)
            put(name, value);
    }

    void setVariable(const char *name, const std::optional<QByteArray> &value) {
        before_.try_emplace(name,
                            qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt);
        put(name, value);
    }
    void useProxy() { setVariable("https_proxy", proxy.address().toLatin1()); }

    std::string fetch() {
        std::optional<std::string> result;
        fetcher.fetch(QUrl(server.address("/appcast.xml")),
                      [&result](const std::optional<QByteArray> &document) {
                          result = document ? document->toStdString() : "nothing";
                      });
        EXPECT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 20000));
        return result.value_or("no answer");
    }

    test::HttpsServer server;
    test::TunnelProxy proxy;
    HttpsFetcher fetcher{{.bytes = 1 << 20, .time = 15s}, server.trust()};

private:
    static void put(const char *name, const std::optional<QByteArray> &value) {
        if (value)
            qputenv(name, *value);
        else
            qunsetenv(name);
    }

    std::map<const char *, std::optional<QByteArray>> before_;
};

TEST_F(HttpsThroughAProxy, fetchesByATunnelThatShowsNothingButTheHost) {
    useProxy();
    EXPECT_EQ(fetch(), "<rss/>");
    EXPECT_EQ(proxy.requests, QList<QByteArray>{"CONNECT 127.0.0.1:" +
                                                QByteArray::number(server.serverPort()) + " HTTP/1.1"});
}

TEST_F(HttpsThroughAProxy, goesStraightWhereTheDesktopHasNone) {
    EXPECT_EQ(fetch(), "<rss/>");
    EXPECT_TRUE(proxy.requests.isEmpty());
}

TEST_F(HttpsThroughAProxy, noticesAProxyThatComesLater) {
    EXPECT_EQ(fetch(), "<rss/>");
    useProxy();
    EXPECT_EQ(fetch(), "<rss/>");
    EXPECT_EQ(proxy.requests.size(), 1);
}

TEST_F(HttpsThroughAProxy, goesStraightToHostsThatAreExcepted) {
    useProxy();
    setVariable("no_proxy", "127.0.0.1");
    EXPECT_EQ(fetch(), "<rss/>");
    EXPECT_TRUE(proxy.requests.isEmpty());
}

TEST_F(HttpsThroughAProxy, takesNothingThatTheProxySaysItselfForTheDocument) {
    useProxy();
    for (const char *status : {"403 Forbidden", "407 Proxy Authentication Required", "502 Bad Gateway"}) {
        proxy.refuse(QByteArray("HTTP/1.1 ") + status +
                     "\r\nProxy-Authenticate: Basic realm=\"office\"\r\nContent-Length: 6\r\n\r\n<rss/>");
        EXPECT_EQ(fetch(), "nothing") << status;
    }
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(HttpsThroughAProxy, aProxyThatIsNotThereEndsTheFetch) {
    useProxy();
    proxy.close();
    EXPECT_EQ(fetch(), "nothing");
    EXPECT_TRUE(server.requests.isEmpty());
}

}  // namespace
}  // namespace pimloft
