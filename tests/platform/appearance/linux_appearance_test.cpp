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
    explicit Portal(uint scheme) : settings_{{colorScheme, scheme}} {
        bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                            QDBusConnection::ExportAllSlots);
        bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    static inline const QString appearance = QStringLiteral("org.freedesktop.appearance");
    static inline const QString interface = QStringLiteral("org.gnome.desktop.interface");
    static inline const QString colorScheme = QStringLiteral("color-scheme");

    void choose(uint scheme) { choose(appearance, colorScheme, scheme); }
    void choose(const QString &group, const QString &key, const QVariant &value) {
        settings_[key] = value;
        QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                         QStringLiteral("org.freedesktop.portal.Settings"),
                                                         QStringLiteral("SettingChanged"));
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        bus_.send(signal);
    }

public slots:
    QDBusVariant Read(const QString &group, const QString &key, const QDBusMessage &message) {
        EXPECT_TRUE(group == appearance || group == interface) << group.toStdString();
        if (settings_.contains(key))
            return QDBusVariant(QVariant::fromValue(QDBusVariant(settings_[key])));
        message.setDelayedReply(true);
        bus_.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                           QStringLiteral("Requested setting not found")));
        return {};
    }

private:
    QVariantMap settings_;
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
    bool becomesHighContrast(bool high) {
        return waitUntil([&] { return appearance_->isHighContrast() == high; });
    }
    bool becomesStill(bool still) {
        return waitUntil([&] { return appearance_->reducesMotion() == still; });
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

TEST_F(LinuxAppearanceTest, followsAThemeOfHighContrast) {
    watch();
    publish("Net/ThemeName \"HighContrastInverse\"\n");
    EXPECT_TRUE(becomesHighContrast(true));
    EXPECT_TRUE(appearance_->isDark());
    EXPECT_TRUE(isTold(1)) << "both at once";
    publish("Net/ThemeName \"Adwaita\"\n");
    EXPECT_TRUE(becomesHighContrast(false));
}

TEST_F(LinuxAppearanceTest, followsSettingsThatSwitchAnimationsOff) {
    watch();
    publish("Gtk/EnableAnimations 0\n");
    EXPECT_TRUE(becomesStill(true));
    publish("Gtk/EnableAnimations 1\n");
    EXPECT_TRUE(becomesStill(false));
    EXPECT_TRUE(isTold(2));
}

TEST_F(LinuxAppearanceTest, followsThePortalsWishesForContrastAndMotion) {
    watch();
    {
        Portal portal(0);
        portal.choose(Portal::appearance, QStringLiteral("contrast"), 1u);
        EXPECT_TRUE(becomesHighContrast(true));
        portal.choose(Portal::appearance, QStringLiteral("reduced-motion"), 1u);
        EXPECT_TRUE(becomesStill(true));
        portal.choose(Portal::appearance, QStringLiteral("reduced-motion"), 0u);
        EXPECT_TRUE(becomesStill(false));
        portal.choose(Portal::interface, QStringLiteral("enable-animations"), false);
        EXPECT_TRUE(becomesStill(true));
    }
    EXPECT_TRUE(becomesHighContrast(false)) << "the portal has gone";
    EXPECT_TRUE(becomesStill(false));
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
