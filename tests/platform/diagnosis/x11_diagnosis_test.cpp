// SPDX-License-Identifier: MIT
#include "platform/diagnosis/x11_diagnosis.h"

#include "platform/audio/pulse_audio.h"
#include "support/desktop_session.h"
#include "support/sound_server.h"

#include <QDBusConnection>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::currentSession;
using test::DesktopSession;
using test::waitUntil;

/// "subject: + detail", or "-" where it is refused.
std::string line(const std::vector<Finding> &findings, const char *subject) {
    for (const Finding &finding : findings)
        if (finding.subject == QLatin1String(subject))
            return (QLatin1String(finding.granted ? "+ " : "- ") + finding.detail).toStdString();
    return "(not looked at)";
}

class X11DiagnosisTest : public testing::Test {
protected:
    std::string finding(const char *subject, const char *sessionType = "x11") {
        X11Diagnosis diagnosis(session_, tap_, audio_, QLatin1String(sessionType),
                               QDBusConnection::sessionBus());
        return line(diagnosis.findings(), subject);
    }
    bool becomes(const char *subject, const std::string &text) {
        return waitUntil([&] { return finding(subject) == text; });
    }
    X11Session session_;
    X11RawInput input_{session_};
    X11Keyboard keyboard_{session_, input_};
    X11KeyTap tap_{keyboard_, QStringLiteral(KEY_GUARD)};
    test::SoundServer soundServer_{test::SoundServer::Kind::pulseAudio};  // not started
    PulseAudio audio_;
};

/// Leaves every key alone.
struct PlainFilter final : KeyFilter {
    KeyEvent filter(KeyEvent event, std::string_view, Instant) noexcept override { return event; }
};

TEST_F(X11DiagnosisTest, listsEveryFindingOnce) {
    X11Diagnosis diagnosis(session_, tap_, audio_, QStringLiteral("x11"), QDBusConnection::sessionBus());
    QStringList subjects;
    for (const Finding &finding : diagnosis.findings())
        subjects.append(finding.subject);
    EXPECT_EQ(subjects.join(QStringLiteral(", ")),
              QStringLiteral("Session, Mouse events, Key events, Key mappings, Window manager, "
                             "Compositor, Tray, Sound"));
}

TEST_F(X11DiagnosisTest, findsWhatAPlainServerOffers) {
    EXPECT_EQ(finding("Session"), "+ X11");
    EXPECT_EQ(finding("Mouse events"), "+ XInput 2.4");
    EXPECT_EQ(finding("Key events"), "+ XInput 2.4 and XTEST");
    EXPECT_EQ(finding("Key mappings"), "+ Ready");
}

TEST_F(X11DiagnosisTest, saysWhetherKeysAreMapped) {
    ASSERT_TRUE(tap_.install(std::make_shared<PlainFilter>()));
    EXPECT_EQ(finding("Key mappings"), "+ Active");
    {
        // Another one finds no keyboard left.
        const X11KeyTap second(keyboard_, QStringLiteral(KEY_GUARD));
        X11Diagnosis diagnosis(session_, second, audio_, QStringLiteral("x11"),
                               QDBusConnection::sessionBus());
        EXPECT_EQ(line(diagnosis.findings(), "Key mappings"),
                  "- There is no keyboard that another program does not have: key mappings do nothing.");
    }
    tap_.remove();
    EXPECT_EQ(finding("Key mappings"), "+ Ready");
}

TEST_F(X11DiagnosisTest, saysThatNobodyWouldGiveTheKeyboardBack) {
    const X11KeyTap unguarded(keyboard_, QStringLiteral("/nowhere/pimloft-keyguard"));
    X11Diagnosis diagnosis(session_, unguarded, audio_, QStringLiteral("x11"), QDBusConnection::sessionBus());
    EXPECT_EQ(line(diagnosis.findings(), "Key mappings"),
              "- The program that would give the keyboard back is missing: key mappings do nothing.");
}

TEST_F(X11DiagnosisTest, saysWhatWaylandWithholds) {
    EXPECT_EQ(finding("Session", "wayland"),
              "- Wayland, where a program cannot reach other programs' windows and keys. "
              "Choose an X11 session when you log in.");
    EXPECT_EQ(finding("Mouse events", "wayland"),
              "- Out of reach under Wayland: dragging a window does not snap it.");
    EXPECT_EQ(finding("Key events", "wayland"),
              "- Out of reach under Wayland: shortcuts and key mappings do nothing.");
    EXPECT_EQ(finding("Key mappings", "wayland"), "- They need key events.");
}

TEST_F(X11DiagnosisTest, namesTheWindowManager) {
    EXPECT_EQ(finding("Window manager"), "- None is running, so there is no window to place.");
    const auto manager = currentSession().start(QStringLiteral("openbox"));
    EXPECT_TRUE(becomes("Window manager", "+ Openbox"));
    manager->kill();
    EXPECT_TRUE(becomes("Window manager", "- None is running, so there is no window to place."));
}

TEST_F(X11DiagnosisTest, noticesACompositor) {
    EXPECT_EQ(finding("Compositor"), "- None is running: the snap preview is an outline, and nothing fades.");
    const auto picom = currentSession().start(QStringLiteral("picom"),
                                              {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                               QStringLiteral("--config"), QStringLiteral("/dev/null")});
    EXPECT_TRUE(becomes("Compositor", "+ Running"));
}

TEST_F(X11DiagnosisTest, noticesATray) {
    EXPECT_EQ(finding("Tray"), "- None is running. To open Pimloft's panel, start Pimloft once more.");
    // A panel shows itself under a window manager only.
    currentSession().startWindowManager(QStringLiteral("openbox"));
    const auto panel = currentSession().start(QStringLiteral("tint2"));
    EXPECT_TRUE(becomes("Tray", "+ System tray"));
}

TEST_F(X11DiagnosisTest, noticesAStatusNotifierTray) {
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("tray"));
    ASSERT_TRUE(bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")));
    EXPECT_EQ(finding("Tray"), "+ StatusNotifierItem");
    QDBusConnection::disconnectFromBus(QStringLiteral("tray"));
}

TEST_F(X11DiagnosisTest, tellsTheSoundServerAndWhatItPlaysTo) {
    EXPECT_EQ(finding("Sound"), "- No sound server answers: the volume mixer stays empty.");
    soundServer_.start();
    EXPECT_TRUE(becomes("Sound", "- PulseAudio 16.1, without an output device"));
    soundServer_.addSink(QStringLiteral("speakers"), QStringLiteral("Speakers"));
    EXPECT_TRUE(becomes("Sound", "+ PulseAudio 16.1, playing to Speakers"));
}

TEST_F(X11DiagnosisTest, saysWhatAServerWithoutExtensionsRefuses) {
    const QByteArray display = qgetenv("DISPLAY");
    {
        const DesktopSession poor(
            {.windowManager = {},
             .screen = QStringLiteral("640x480x24"),
             .serverArguments = {QStringLiteral("-extension"), QStringLiteral("XTEST")}});
        X11Session session;
        X11Diagnosis diagnosis(session, tap_, audio_, QStringLiteral("x11"),
                               QDBusConnection(QStringLiteral("no bus")));
        EXPECT_EQ(line(diagnosis.findings(), "Key events"),
                  "- The X server does not offer XTEST: shortcuts and key mappings do nothing.");
        EXPECT_EQ(line(diagnosis.findings(), "Mouse events"), "+ XInput 2.4");
    }
    qputenv("DISPLAY", display);
}

TEST_F(X11DiagnosisTest, saysThatThereIsNoServer) {
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":nowhere");
    X11Session session;
    qputenv("DISPLAY", display);
    X11Diagnosis diagnosis(session, tap_, audio_, QStringLiteral("x11"),
                           QDBusConnection(QStringLiteral("no bus")));
    const std::vector<Finding> findings = diagnosis.findings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(line(findings, "Session"), "- There is no X server that Pimloft could talk to.");
}

}  // namespace
}  // namespace pimloft
