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
        X11Diagnosis diagnosis(session_, QLatin1String(sessionType), QDBusConnection::sessionBus(), audio_);
        return line(diagnosis.findings(), subject);
    }
    bool becomes(const char *subject, const std::string &text) {
        return waitUntil([&] { return finding(subject) == text; });
    }
    X11Session session_;
    test::SoundServer soundServer_{test::SoundServer::Kind::pulseAudio};  // not started
    PulseAudio audio_;
};

TEST_F(X11DiagnosisTest, listsEveryFindingOnce) {
    X11Diagnosis diagnosis(session_, QStringLiteral("x11"), QDBusConnection::sessionBus(), audio_);
    QStringList subjects;
    for (const Finding &finding : diagnosis.findings())
        subjects.append(finding.subject);
    EXPECT_EQ(subjects.join(QStringLiteral(", ")),
              QStringLiteral("Session, Mouse events, Key events, Window manager, Compositor, Tray, Sound"));
}

TEST_F(X11DiagnosisTest, findsWhatAPlainServerOffers) {
    EXPECT_EQ(finding("Session"), "+ X11");
    EXPECT_EQ(finding("Mouse events"), "+ XInput 2.4");
    EXPECT_EQ(finding("Key events"), "+ XInput 2.4 and XTEST");
}

TEST_F(X11DiagnosisTest, saysWhatWaylandWithholds) {
    EXPECT_EQ(finding("Session", "wayland"),
              "- Wayland, where a program cannot reach other programs' windows and keys. "
              "Choose an X11 session when you log in.");
    EXPECT_EQ(finding("Mouse events", "wayland"),
              "- Out of reach under Wayland: dragging a window does not snap it.");
    EXPECT_EQ(finding("Key events", "wayland"),
              "- Out of reach under Wayland: shortcuts and key mappings do nothing.");
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
        X11Diagnosis diagnosis(session, QStringLiteral("x11"), QDBusConnection(QStringLiteral("no bus")),
                               audio_);
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
    X11Diagnosis diagnosis(session, QStringLiteral("x11"), QDBusConnection(QStringLiteral("no bus")), audio_);
    const std::vector<Finding> findings = diagnosis.findings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(line(findings, "Session"), "- There is no X server that Pimloft could talk to.");
}

}  // namespace
}  // namespace pimloft
