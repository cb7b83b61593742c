// SPDX-License-Identifier: MIT
#include "platform/appearance/linux_appearance.h"

#include "support/desktop_session.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>
#include <QIcon>

#include <gtest/gtest.h>

#include <csignal>

namespace pimloft {
namespace {

using test::currentSession;
using test::waitUntil;

/// The desktop portal, at a connection of its own.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(uint scheme) : scheme_(scheme) {
        bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                            QDBusConnection::ExportAllSlots);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    void choose(uint scheme) {
        scheme_ = scheme;
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                         QStringLiteral("org.freedesktop.portal.Settings"),
                                                         QStringLiteral("SettingChanged"));
        signal << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
               << QVariant::fromValue(QDBusVariant(scheme));
        bus_.send(signal);
    }

public slots:
    QDBusVariant Read(const QString &group, const QString &key) {
        EXPECT_EQ(group, QStringLiteral("org.freedesktop.appearance"));
        EXPECT_EQ(key, QStringLiteral("color-scheme"));
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme_)));
    }

private:
    uint scheme_;
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
};

class LinuxAppearanceTest : public testing::Test {
protected:
    /// A real program publishes the settings.
    void publish(const QByteArray &settings) {
        const QString path = currentSession().home() + QStringLiteral("/xsettings");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(settings);
        file.close();
        if (publisher_) {
            kill(pid_t(publisher_->processId()), SIGHUP);
            return;
        }
        publisher_ = currentSession().start(QStringLiteral("xsettingsd"), {QStringLiteral("-c"), path});
    }

    void watch() {
        appearance_ = std::make_unique<LinuxAppearance>(session_, QDBusConnection::sessionBus());
        appearance_->onChanged = [this] { ++changes_; };
    }
    bool becomes(bool dark) {
        return waitUntil([&] { return appearance_->isDark() == dark; });
    }
    bool isTold(int changes) {
        return waitUntil([&] { return changes_ == changes; });
    }

    X11Session session_;
    std::unique_ptr<QProcess> publisher_;
    std::unique_ptr<LinuxAppearance> appearance_;
    int changes_ = 0;
};

TEST_F(LinuxAppearanceTest, isLightWhereTheDesktopSaysNothing) {
    testing::internal::CaptureStderr();
    watch();
    EXPECT_FALSE(appearance_->isDark());
    QCoreApplication::processEvents();
    EXPECT_FALSE(appearance_->isDark());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(LinuxAppearanceTest, followsTheThemeOfTheSettings) {
    watch();
    publish("Net/ThemeName \"Adwaita-dark\"\nNet/IconThemeName \"Adwaita\"\n");
    EXPECT_TRUE(becomes(true));
    EXPECT_TRUE(isTold(1));
    EXPECT_EQ(QIcon::fallbackThemeName(), QStringLiteral("Adwaita"));
    publish("Net/ThemeName \"Adwaita\"\n");
    EXPECT_TRUE(becomes(false));
    EXPECT_TRUE(isTold(2));
}

TEST_F(LinuxAppearanceTest, knowsSettingsThatWereThereBefore) {
    publish("Net/ThemeName \"Adwaita-dark\"\n");
    watch();
    ASSERT_TRUE(becomes(true));
    appearance_.reset();
    changes_ = 0;
    watch();
    EXPECT_TRUE(appearance_->isDark());
    QCoreApplication::processEvents();
    EXPECT_EQ(changes_, 0);
}

TEST_F(LinuxAppearanceTest, isLightAgainWhenTheSettingsGoAway) {
    watch();
    publish("Net/ThemeName \"Adwaita-dark\"\n");
    ASSERT_TRUE(becomes(true));
    publisher_.reset();
    EXPECT_TRUE(becomes(false));
    publish("Net/ThemeName \"Adwaita-dark\"\n");
    EXPECT_TRUE(becomes(true));
}

TEST_F(LinuxAppearanceTest, prefersWhatThePortalSays) {
    watch();
    publish("Net/ThemeName \"Adwaita-dark\"\n");
    ASSERT_TRUE(becomes(true));
    Portal portal(2);
    EXPECT_TRUE(becomes(false));
    portal.choose(1);
    EXPECT_TRUE(becomes(true));
    portal.choose(2);
    EXPECT_TRUE(becomes(false));
    portal.choose(0);
    EXPECT_TRUE(becomes(true)) << "no wish: the theme counts";
    portal.choose(77);
    EXPECT_FALSE(waitUntil([&] { return !appearance_->isDark(); }, 100)) << "an unheard-of wish is none";
}

TEST_F(LinuxAppearanceTest, followsAPortalThatComesAndGoes) {
    watch();
    {
        const Portal portal(1);
        EXPECT_TRUE(becomes(true));
    }
    EXPECT_TRUE(becomes(false));
    const Portal again(1);
    EXPECT_TRUE(becomes(true));
    EXPECT_TRUE(isTold(3));
}

TEST_F(LinuxAppearanceTest, worksWithoutABus) {
    testing::internal::CaptureStderr();
    appearance_ = std::make_unique<LinuxAppearance>(session_, QDBusConnection(QStringLiteral("no bus")));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    publish("Net/ThemeName \"Adwaita-dark\"\n");
    EXPECT_TRUE(becomes(true));
}

}  // namespace
}  // namespace pimloft

#include "linux_appearance_test.moc"
