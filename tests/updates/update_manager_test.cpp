// SPDX-License-Identifier: MIT
#include "updates/update_manager.h"

#include "updates/appcast_fetcher.h"

#include "platform/fake_desktop.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>

namespace pimloft {
namespace {

/// A network in which each document comes when the test says so.
class FakeFetcher final : public AppcastFetcher {
public:
    void fetch(const QUrl &url, Done done) override {
        asked << url;
        waiting.push_back(std::move(done));
    }
    void answer(std::optional<QByteArray> document) {
        const Done done = std::move(waiting.front());
        waiting.pop_front();
        done(std::move(document));
    }

    QList<QUrl> asked;
    std::deque<Done> waiting;
};

QByteArray release(const QByteArray &version, const QByteArray &notes = "Notes") {
    return "<item><description>" + notes + "</description><enclosure url=\"https://a.example/" + version +
           "\" sparkle:shortVersionString=\"" + version + "\"/></item>";
}

class UpdateManagerTest : public testing::Test {
protected:
    UpdateManagerTest() : UpdateManagerTest(QStringLiteral("1.9.3")) {}
    explicit UpdateManagerTest(const QString &running)
        : manager(QStringLiteral("https://pimloft.example/appcast.xml"), running,
                  std::unique_ptr<AppcastFetcher>(fetcher), desktop.workspace) {}

    void check(std::optional<QByteArray> document) {
        manager.checkForUpdatesNow();
        fetcher->answer(std::move(document));
        EXPECT_TRUE(QTest::qWaitFor([this] { return !manager.isCheckingForUpdates(); }));
    }
    /// "version | notes | address | newer", with a dash for what is not known.
    std::string known() const {
        return (manager.latestVersion().value_or(QStringLiteral("-")) + QStringLiteral(" | ") +
                manager.releaseNotes().value_or(QStringLiteral("-")) + QStringLiteral(" | ") +
                (manager.downloadURL() ? manager.downloadURL()->toString() : QStringLiteral("-")) +
                (manager.updateAvailable() ? QStringLiteral(" | newer") : QString()))
            .toStdString();
    }

    FakeDesktop desktop;
    FakeFetcher *fetcher = new FakeFetcher;
    UpdateManager manager;
};

TEST_F(UpdateManagerTest, knowsNothingAndChecksNothingAtTheStart) {
    QCoreApplication::processEvents();
    EXPECT_EQ(known(), "- | - | -");
    EXPECT_FALSE(manager.isCheckingForUpdates());
    EXPECT_TRUE(fetcher->asked.isEmpty());
    EXPECT_EQ(desktop.log(), "");
}

TEST_F(UpdateManagerTest, aNewerReleaseIsPublishedWithItsNotesAndAddress) {
    check("<rss>" + release("2.0") + "</rss>");
    EXPECT_EQ(known(), "2.0 | Notes | https://a.example/2.0 | newer");
    EXPECT_EQ(fetcher->asked, QList{QUrl(QStringLiteral("https://pimloft.example/appcast.xml"))});
}

TEST_F(UpdateManagerTest, theFirstReleaseIsPublishedAlsoWhenItIsTheOlder) {
    check("<rss>" + release("1.0") + release("3.0") + "</rss>");
    EXPECT_EQ(known(), "1.0 | Notes | https://a.example/1.0");
}

TEST_F(UpdateManagerTest, theRunningReleaseIsNotNewer) {
    check("<rss>" + release("1.9.3") + "</rss>");
    EXPECT_EQ(known(), "1.9.3 | Notes | https://a.example/1.9.3");
}

TEST_F(UpdateManagerTest, aReleaseWithoutAVersionIsPublishedWithAnEmptyOne) {
    check(QByteArray("<rss><item/></rss>"));
    EXPECT_EQ(known(), " |  | -");
}

TEST_F(UpdateManagerTest, whatFailsLeavesWhatIsKnown) {
    check("<rss>" + release("2.0") + "</rss>");
    for (const std::optional<QByteArray> &document :
         {std::optional<QByteArray>(), std::optional<QByteArray>("<rss/>"), std::optional<QByteArray>(""),
          std::optional<QByteArray>("not XML"), std::optional<QByteArray>("<rss><item>")}) {
        check(document);
        EXPECT_EQ(known(), "2.0 | Notes | https://a.example/2.0 | newer");
    }
}

TEST_F(UpdateManagerTest, aLaterCheckReplacesEverything) {
    check("<rss>" + release("2.0") + "</rss>");
    check("<rss><item><sparkle:version>1.0</sparkle:version></item></rss>");
    EXPECT_EQ(known(), "1.0 |  | -");
}

TEST_F(UpdateManagerTest, isCheckingFromTheCallUntilTheEnd) {
    QSignalSpy changes(&manager, &UpdateManager::isCheckingForUpdatesChanged);
    manager.checkForUpdatesNow();
    EXPECT_TRUE(manager.isCheckingForUpdates());
    fetcher->answer(std::nullopt);
    EXPECT_FALSE(manager.isCheckingForUpdates());
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(UpdateManagerTest, twoChecksRunBesideEachOtherAndTheFirstToEndEndsTheWaiting) {
    manager.checkForUpdatesNow();
    manager.checkForUpdatesNow();
    EXPECT_EQ(fetcher->asked.size(), 2);
    fetcher->answer("<rss>" + release("2.0") + "</rss>");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !manager.isCheckingForUpdates(); }));
    EXPECT_EQ(known(), "2.0 | Notes | https://a.example/2.0 | newer");
    fetcher->answer("<rss>" + release("3.0") + "</rss>");
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager.latestVersion() == QStringLiteral("3.0"); }));
}

TEST_F(UpdateManagerTest, publishesTheVersionFirstAndWhetherItIsNewerLast) {
    QStringList order;
    QObject::connect(&manager, &UpdateManager::latestVersionChanged, [&] { order << "version"; });
    QObject::connect(&manager, &UpdateManager::releaseNotesChanged, [&] { order << "notes"; });
    QObject::connect(&manager, &UpdateManager::downloadURLChanged, [&] { order << "address"; });
    QObject::connect(&manager, &UpdateManager::updateAvailableChanged, [&] { order << "newer"; });
    QObject::connect(&manager, &UpdateManager::isCheckingForUpdatesChanged, [&] { order << "checking"; });
    check("<rss>" + release("2.0") + "</rss>");
    EXPECT_EQ(order.join(QLatin1Char(' ')).toStdString(), "checking version notes address newer checking");
}

TEST_F(UpdateManagerTest, theDownloadIsTheUsersBrowsersBusiness) {
    manager.downloadUpdate();
    EXPECT_EQ(desktop.log(), "");
    check("<rss>" + release("2.0") + "</rss>");
    manager.downloadUpdate();
    EXPECT_EQ(desktop.log(), "open https://a.example/2.0\n");
}

TEST_F(UpdateManagerTest, storesNothing) {
    check("<rss>" + release("2.0") + "</rss>");
    EXPECT_TRUE(desktop.preferences.stored.isEmpty());
    EXPECT_EQ(UpdateManager::lastCheckKey, QStringLiteral("pimloft.updates.lastCheck"));
    EXPECT_EQ(UpdateManager::checkInterval, 86400.0);
}

TEST(UpdateManager, anAddressThatIsNoneEndsTheCheck) {
    FakeDesktop desktop;
    auto fetcher = std::make_unique<FakeFetcher>();
    FakeFetcher &network = *fetcher;
    UpdateManager manager(QStringLiteral("https://a b"), QStringLiteral("1.0"), std::move(fetcher),
                          desktop.workspace);
    manager.checkForUpdatesNow();
    EXPECT_FALSE(network.asked.value(0).isValid());
}

TEST(UpdateManager, mayGoWhileADocumentIsRead) {
    FakeDesktop desktop;
    auto fetcher = std::make_unique<FakeFetcher>();
    FakeFetcher &network = *fetcher;
    {
        UpdateManager manager(QStringLiteral("https://a.example/"), QStringLiteral("1.0"), std::move(fetcher),
                              desktop.workspace);
        manager.checkForUpdatesNow();
        manager.checkForUpdatesNow();
        network.answer(QByteArray("<rss>") + QByteArray("<a/>").repeated(1 << 18));
    }
    QCoreApplication::processEvents();
}

}  // namespace
}  // namespace pimloft
