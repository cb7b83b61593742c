// SPDX-License-Identifier: MIT
#include "platform/workspace/default_programs.h"

#include "platform/workspace/x11_workspace.h"
#include "platform/x11/qt_connection.h"
#include "support/desktop_session.h"

#include <QDBusMessage>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

/// What the user has chosen for web links, pages and folders: a program that writes down what it is given.
class DefaultPrograms : public testing::Test {
protected:
    void SetUp() override {
        const QString data = currentSession().home() + QStringLiteral("/data/applications");
        QDir().mkpath(data);
        write(script_, "#!/bin/sh\nenv > '" + QFile::encodeName(environment_) + "'\nprintf '%s' \"$1\" > '" +
                           QFile::encodeName(opened_) + ".new'\nmv '" + QFile::encodeName(opened_) +
                           ".new' '" + QFile::encodeName(opened_) + "'\n");
        chmod(QFile::encodeName(script_).constData(), 0700);
        write(data + QStringLiteral("/opener.desktop"),
              "[Desktop Entry]\nType=Application\nName=Opener\nExec=" + QFile::encodeName(script_) +
                  " %u\nMimeType=x-scheme-handler/https;inode/directory;text/html;\n");
        write(data + QStringLiteral("/mimeapps.list"),
              "[Default Applications]\nx-scheme-handler/https=opener.desktop\n"
              "inode/directory=opener.desktop\ntext/html=opener.desktop\n");
        QFile::remove(opened_);
    }

    static void write(const QString &path, const QByteArray &bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QString opened() const {
        waitUntil([this] { return QFile::exists(opened_); });
        QFile file(opened_);
        const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
        // A file is handed over as a path or as a link.
        return text.startsWith(u'/') ? QUrl::fromLocalFile(text).toString() : text;
    }

    /// What the program that was opened last inherited.
    QByteArrayList environment() const {
        QFile file(environment_);
        return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QByteArrayList();
    }

    const QString script_ = currentSession().home() + QStringLiteral("/opener");
    const QString opened_ = currentSession().home() + QStringLiteral("/opened");
    const QString environment_ = currentSession().home() + QStringLiteral("/environment");
};

TEST_F(DefaultPrograms, openALink) {
    EXPECT_TRUE(openWithDefaultProgram(QUrl(QStringLiteral("https://example.org/a?b=c%20d"))));
    EXPECT_EQ(opened(), QStringLiteral("https://example.org/a?b=c%20d"));
}

TEST_F(DefaultPrograms, areNotToldWhatIsOnlyForQt) {
    qunsetenv("QT_QPA_PLATFORM");
    chooseQtConnection();
    ASSERT_EQ(qgetenv("QT_QPA_PLATFORM"), "xcb");
    ASSERT_TRUE(openWithDefaultProgram(QUrl(QStringLiteral("https://example.org/"))));
    opened();
    EXPECT_FALSE(environment().contains("QT_QPA_PLATFORM=xcb"));
}

TEST_F(DefaultPrograms, areToldWhatTheUserHasChosen) {
    qputenv("QT_QPA_PLATFORM", "xcb");
    chooseQtConnection();
    ASSERT_TRUE(openWithDefaultProgram(QUrl(QStringLiteral("https://example.org/"))));
    opened();
    EXPECT_TRUE(environment().contains("QT_QPA_PLATFORM=xcb"));
}

TEST_F(DefaultPrograms, areMissingForALinkThatNobodyKnows) {
    EXPECT_FALSE(openWithDefaultProgram(QUrl(QStringLiteral("unheard-of:thing"))));
    EXPECT_FALSE(openWithDefaultProgram(QUrl()));
    EXPECT_FALSE(openWithDefaultProgram(QUrl(QStringLiteral("file:///nowhere/at/all.html"))));
}

TEST_F(DefaultPrograms, openTheHelpPageForALinkToTheSettings) {
    X11Session session;
    X11ActiveWindow active(session);
    const QString help = currentSession().home() + QStringLiteral("/help");
    X11Workspace workspace(session, active, help, QDBusConnection::sessionBus());
    const QUrl link(
        QStringLiteral("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"));
    EXPECT_FALSE(workspace.open(link)) << "no page is installed";
    QDir().mkpath(help);
    write(help + QStringLiteral("/permissions.html"), "<p>");
    EXPECT_TRUE(workspace.open(link));
    EXPECT_EQ(opened(), QUrl::fromLocalFile(help + QStringLiteral("/permissions.html")).toString());
}

TEST_F(DefaultPrograms, getNothingButLinksToTheWeb) {
    X11Session session;
    X11ActiveWindow active(session);
    X11Workspace workspace(session, active, QString(), QDBusConnection::sessionBus());
    const QString page = currentSession().home() + QStringLiteral("/page.html");
    write(page, "<p>");
    ASSERT_TRUE(openWithDefaultProgram(QUrl::fromLocalFile(page)));
    opened();
    EXPECT_FALSE(workspace.open(QUrl::fromLocalFile(page)));
    EXPECT_FALSE(workspace.open(QUrl(QStringLiteral("page.html"))));
    EXPECT_FALSE(workspace.open(QUrl(QStringLiteral("smb://example.org/a"))));
    EXPECT_TRUE(workspace.open(QUrl(QStringLiteral("https://example.org/a"))));
}

/// A file manager on the bus, at another connection than the one that asks.
class FileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    FileManager() {
        bus_.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), this,
                            QDBusConnection::ExportAllSlots);
        bus_.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    }
    ~FileManager() override { QDBusConnection::disconnectFromBus(QStringLiteral("file manager")); }

    QString shown;

public slots:
    void ShowItems(const QStringList &uris, const QString &) { shown = "items " + uris.join(u' '); }
    void ShowFolders(const QStringList &uris, const QString &) { shown = "folders " + uris.join(u' '); }

private:
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("file manager"));
};

TEST_F(DefaultPrograms, revealAFileSelectedInTheFileManager) {
    FileManager manager;
    write(currentSession().home() + QStringLiteral("/a b#c.txt"), "");
    revealInFileManager(QDBusConnection::sessionBus(),
                        currentSession().home() + QStringLiteral("/a b#c.txt"));
    EXPECT_TRUE(waitUntil([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown,
              QStringLiteral("items file://") + currentSession().home() + QStringLiteral("/a%20b%23c.txt"));
}

TEST_F(DefaultPrograms, revealTheContentOfAFolder) {
    FileManager manager;
    revealInFileManager(QDBusConnection::sessionBus(), currentSession().home());
    EXPECT_TRUE(waitUntil([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown, QStringLiteral("folders file://") + currentSession().home());
}

TEST_F(DefaultPrograms, openTheFolderWhereNoFileManagerListens) {
    // A bus of its own, on which no program can be started.
    const QString configuration = currentSession().home() + QStringLiteral("/bus.conf");
    write(configuration, "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>"
                         "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                         "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
    const auto daemon = currentSession().start(
        QStringLiteral("dbus-daemon"), {QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                                        QStringLiteral("--config-file=") + configuration});
    ASSERT_TRUE(waitUntil([&] { return daemon->canReadLine(); }));
    const QString name = QStringLiteral("empty bus");
    const QDBusConnection bus =
        QDBusConnection::connectToBus(QString::fromUtf8(daemon->readLine().trimmed()), name);
    ASSERT_TRUE(bus.isConnected());
    revealInFileManager(bus, currentSession().home() + QStringLiteral("/file"));
    EXPECT_EQ(opened(), QStringLiteral("file://") + currentSession().home());
    QDBusConnection::disconnectFromBus(name);
}

TEST_F(DefaultPrograms, openTheFolderWithoutABus) {
    revealInFileManager(QDBusConnection(QStringLiteral("no bus")), currentSession().home());
    EXPECT_EQ(opened(), QStringLiteral("file://") + currentSession().home());
}

}  // namespace
}  // namespace pimloft

#include "default_programs_test.moc"
