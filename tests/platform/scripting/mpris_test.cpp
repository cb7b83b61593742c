// SPDX-License-Identifier: MIT
// Scripts for players on a real session bus, with a real player and with pretended ones.
#include "platform/scripting/player_script.h"
#include "platform/scripting/player_scripts.h"
#include "platform/workspace/program_directory.h"
#include "support/desktop_session.h"

#include <QDBusInterface>
#include <QDBusVariant>
#include <QDir>
#include <QFile>

#include <csignal>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

/// A player that takes whatever volume it is given.
class Player : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(double Volume MEMBER volume)

public:
    explicit Player(const char *name)
        : name_(QStringLiteral("org.mpris.MediaPlayer2.") + QLatin1String(name)),
          bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)) {
        bus_.registerObject(QStringLiteral("/org/mpris/MediaPlayer2"), this,
                            QDBusConnection::ExportAllProperties);
        EXPECT_TRUE(bus_.registerService(name_));
    }
    ~Player() override { QDBusConnection::disconnectFromBus(name_); }

    double volume = 1;

private:
    QString name_;
    QDBusConnection bus_;
};

class MprisTest : public testing::Test {
protected:
    MprisTest()
        : scripts(QDBusConnection::sessionBus(), [](const MprisPlayer &player) -> std::optional<QString> {
              if (player.busName == QLatin1String("tunes") || player.busName == QLatin1String("mpv"))
                  return QStringLiteral("com.apple.Music");
              return QStringLiteral("other");
          }) {}

    void setVolume(int percent) {
        EXPECT_TRUE(scripts.handle(setVolumeScript(QStringLiteral("Music"), percent),
                                   [this](const ScriptResult &result) { results.push_back(result); }));
    }
    /// Waits for the next result and answers its error, or "done".
    std::string result() {
        const std::size_t next = taken++;
        if (!waitUntil([&] { return results.size() > next; }))
            return "no result";
        return results[next].error.value_or(QStringLiteral("done")).toStdString();
    }

    /// Starts mpv, silently, and waits until it is on the bus under this name.
    std::unique_ptr<QProcess> startMpv(const QString &name) {
        auto mpv = currentSession().start(QStringLiteral("mpv"),
                                          {QStringLiteral("--idle"), QStringLiteral("--vo=null"),
                                           QStringLiteral("--ao=null"), QStringLiteral("--no-terminal"),
                                           QStringLiteral("--no-config"),
                                           QStringLiteral("--script=/usr/lib/mpv-mpris/mpris.so")});
        const QString service =
            name.isEmpty() ? QStringLiteral("org.mpris.MediaPlayer2.mpv")
                           : QStringLiteral("org.mpris.MediaPlayer2.mpv.instance%1").arg(mpv->processId());
        EXPECT_TRUE(waitUntil([&] { return volumeOf(service).has_value(); }, 20000)) << service.toStdString();
        return mpv;
    }
    static std::optional<double> volumeOf(const QString &service) {
        QDBusMessage question = QDBusMessage::createMethodCall(
            service, QStringLiteral("/org/mpris/MediaPlayer2"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        question << QStringLiteral("org.mpris.MediaPlayer2.Player") << QStringLiteral("Volume");
        question.setAutoStartService(false);
        const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, 1000);
        if (answer.type() != QDBusMessage::ReplyMessage)
            return std::nullopt;
        return answer.arguments().value(0).value<QDBusVariant>().variant().toDouble();
    }

    PlayerScripts scripts;
    std::vector<ScriptResult> results;
    std::size_t taken = 0;
};

TEST_F(MprisTest, otherTextsAreNotForPlayers) {
    EXPECT_FALSE(scripts.handle(QStringLiteral("tell application \"Finder\" to activate"),
                                [](const ScriptResult &) { FAIL(); }));
}

TEST_F(MprisTest, aPlayerThatIsNotRunningIsAnErrorAndIsNotStarted) {
    const QString services = currentSession().home() + QStringLiteral("/data/dbus-1/services");
    ASSERT_TRUE(QDir().mkpath(services));
    const QString mark = currentSession().home() + QStringLiteral("/started");
    QFile service(services + QStringLiteral("/org.mpris.MediaPlayer2.tunes.service"));
    ASSERT_TRUE(service.open(QFile::WriteOnly));
    service.write("[D-BUS Service]\nName=org.mpris.MediaPlayer2.tunes\nExec=/usr/bin/touch " + mark.toUtf8() +
                  "\n");
    service.close();
    currentSession().run(QStringLiteral("dbus-send"),
                         {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                          QStringLiteral("--dest=org.freedesktop.DBus"), QStringLiteral("/"),
                          QStringLiteral("org.freedesktop.DBus.ReloadConfig")});
    setVolume(50);
    EXPECT_EQ(result(), "The player is not running.");
    EXPECT_FALSE(QFile::exists(mark));
}

TEST_F(MprisTest, everyRunningPlayerOfThatIdentityIsSet) {
    Player first("tunes");
    Player second("tunes.instance7");
    Player other("spotify");
    setVolume(30);
    EXPECT_EQ(result(), "done");
    EXPECT_EQ(first.volume, 0.3);
    EXPECT_EQ(second.volume, 0.3);
    EXPECT_EQ(other.volume, 1.0);
}

TEST_F(MprisTest, theVolumeStaysBetweenNothingAndFull) {
    Player player("tunes");
    setVolume(170);
    EXPECT_EQ(result(), "done");
    EXPECT_EQ(player.volume, 1.0);
    setVolume(-50);
    EXPECT_EQ(result(), "done");
    EXPECT_EQ(player.volume, 0.0);
}

TEST_F(MprisTest, playersThatComeLaterAreFoundAndThoseThatWentAreForgotten) {
    {
        Player player("tunes");
        setVolume(30);
        EXPECT_EQ(result(), "done");
    }
    EXPECT_TRUE(waitUntil([&] {
        setVolume(40);
        return result() == "The player is not running.";
    }));
    Player later("tunes");
    EXPECT_TRUE(waitUntil([&] {
        setVolume(40);
        return result() == "done";
    }));
    EXPECT_EQ(later.volume, 0.4);
}

TEST_F(MprisTest, theLastOfManyVolumesCounts) {
    Player player("tunes");
    for (int percent = 0; percent <= 60; ++percent)
        setVolume(percent);
    for (int percent = 0; percent <= 60; ++percent)
        EXPECT_EQ(result(), "done");
    EXPECT_EQ(player.volume, 0.6);
}

TEST_F(MprisTest, aRealPlayerTakesItAndOneThatHangsIsGivenUp) {
    const auto mpv = startMpv({});
    setVolume(30);
    EXPECT_EQ(result(), "done");
    EXPECT_NEAR(volumeOf(QStringLiteral("org.mpris.MediaPlayer2.mpv")).value_or(-1), 0.3, 1e-6);

    const auto second = startMpv(QStringLiteral("instance"));
    EXPECT_TRUE(waitUntil([&] {
        setVolume(70);
        return result() == "done" &&
               volumeOf(QStringLiteral("org.mpris.MediaPlayer2.mpv.instance%1").arg(second->processId())) ==
                   0.7;
    }));
    second->kill();
    second->waitForFinished();
    ::kill(pid_t(mpv->processId()), SIGSTOP);
    EXPECT_TRUE(waitUntil([&] {
        setVolume(50);
        return result() != "done";
    }));
    ::kill(pid_t(mpv->processId()), SIGCONT);
}

TEST_F(MprisTest, aPlayerIsKnownByWhatItSaysOfItself) {
    const QString folder = currentSession().home() + QStringLiteral("/data/applications");
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile entry(folder + QStringLiteral("/org.test.Tunes.desktop"));
    ASSERT_TRUE(entry.open(QFile::WriteOnly));
    entry.write("[Desktop Entry]\nType=Application\nName=Tunes\nExec=true\nCategories=Audio;Player;\n");
    entry.close();
    ProgramDirectory programs;
    const auto identity = [&](const char *busName, const char *desktopEntry = "") {
        return programs
            .identifyPlayer({.busName = QLatin1String(busName), .desktopEntry = QLatin1String(desktopEntry)})
            .value_or(QStringLiteral("unknown"))
            .toStdString();
    };
    EXPECT_TRUE(waitUntil([&] { return identity("tunes", "org.test.Tunes") == "com.apple.Music"; }));
    EXPECT_EQ(identity("Tunes"), "com.apple.Music");
    EXPECT_EQ(identity("spotify"), "com.spotify.client");
    EXPECT_EQ(identity("whatever", "spotify_spotify"), "com.spotify.client") << "which is not installed";
    EXPECT_EQ(identity("mpv"), "io.mpv");
    EXPECT_EQ(identity("firefox"), "org.mozilla.firefox");
    EXPECT_EQ(identity("nobody-knows-me"), "unknown");
}

TEST(MprisWithoutBus, isAnError) {
    PlayerScripts scripts(QDBusConnection(QStringLiteral("no bus")),
                          [](const MprisPlayer &) { return std::optional<QString>(); });
    std::vector<ScriptResult> results;
    EXPECT_TRUE(scripts.handle(setVolumeScript(QStringLiteral("Music"), 5),
                               [&](const ScriptResult &result) { results.push_back(result); }));
    ASSERT_EQ(results.size(), 1u);
    EXPECT_TRUE(results[0].error);
}

}  // namespace
}  // namespace pimloft

#include "mpris_test.moc"
