// SPDX-License-Identifier: MIT
#include "platform/diagnosis/x11_diagnosis.h"

#include "platform/audio/pulse_audio.h"
#include "platform/x11/x11_obstacle.h"
#include "platform/x11/xinput_version.h"

#include <QCoreApplication>
#include <QDBusMessage>

#include <xcb/xtest.h>

#include <algorithm>

namespace pimloft {

namespace {

/// A report is printed as it stands; who shows a line of it elsewhere translates it there.
QString text(const char *english) {
    return QString::fromUtf8(english);
}

/// "2.4", or an empty text where the extension is missing.
QString xinputText(X11Session &session) {
    const auto version = xinputVersion(session.connection());
    return version ? QStringLiteral("%1.%2").arg(version->major).arg(version->minor) : QString();
}

xcb_window_t selectionOwner(X11Session &session, const char *selection) {
    const auto cookie = xcb_get_selection_owner(session.connection(), session.atom(selection));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(session.connection(), cookie, nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_NONE);
}

/// A bus that does not answer counts as one without the name.
bool hasOwner(const QDBusConnection &bus, const QString &name) {
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    constexpr int milliseconds = 500;
    const QDBusMessage answer = bus.call(call << name, QDBus::Block, milliseconds);
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
}

}  // namespace

X11Diagnosis::X11Diagnosis(X11Session &session, const X11KeyTap &keyTap, PulseAudio &audio,
                           QString sessionType, QDBusConnection bus)
    : session_(session), keyTap_(keyTap), audio_(audio), sessionType_(std::move(sessionType)),
      bus_(std::move(bus)) {
}

std::vector<Finding> X11Diagnosis::findings() {
    if (findObstacle(session_, sessionType_) == X11Obstacle::noServer)
        return {{text("Session"), false,
                 text(QT_TRANSLATE_NOOP("Diagnosis", "There is no X server that Pimloft could talk to."))}};
    return {desktopSession(), mouseEvents(), keyEvents(), keyMappings(),
            windowManager(),  compositor(),  tray(),      sound()};
}

Finding X11Diagnosis::desktopSession() const {
    if (findObstacle(session_, sessionType_) != X11Obstacle::wayland)
        return {text("Session"), true, text("X11")};
    return {text("Session"), false,
            text(QT_TRANSLATE_NOOP("Diagnosis",
                                   "Wayland, where a program cannot reach other programs' windows and keys. "
                                   "Choose an X11 session when you log in."))};
}

Finding X11Diagnosis::mouseEvents() {
    const QString subject = text("Mouse events");
    switch (findObstacle(session_, sessionType_)) {
    case X11Obstacle::wayland:
        return {subject, false,
                text(QT_TRANSLATE_NOOP("Diagnosis",
                                       "Out of reach under Wayland: dragging a window does not snap it."))};
    case X11Obstacle::noXInput:
        return {
            subject, false,
            text(QT_TRANSLATE_NOOP(
                "Diagnosis", "The X server does not offer XInput 2.2: dragging a window does not snap it."))};
    default:
        return {subject, true, text("XInput %1").arg(xinputText(session_))};
    }
}

Finding X11Diagnosis::keyEvents() {
    const QString subject = text("Key events");
    switch (findObstacle(session_, sessionType_)) {
    case X11Obstacle::wayland:
        return {subject, false,
                text(QT_TRANSLATE_NOOP(
                    "Diagnosis", "Out of reach under Wayland: shortcuts and key mappings do nothing."))};
    case X11Obstacle::noXInput:
        return {subject, false,
                text(QT_TRANSLATE_NOOP("Diagnosis",
                                       "The X server does not offer XInput 2.2: key mappings do nothing."))};
    case X11Obstacle::noXTest:
        return {
            subject, false,
            text(QT_TRANSLATE_NOOP(
                "Diagnosis", "The X server does not offer XTEST: shortcuts and key mappings do nothing."))};
    default:
        return {subject, true, text("XInput %1 and XTEST").arg(xinputText(session_))};
    }
}

Finding X11Diagnosis::keyMappings() {
    const QString subject = text("Key mappings");
    if (findObstacle(session_, sessionType_) != X11Obstacle::none)
        return {subject, false, text("They need key events.")};
    switch (keyTap_.status()) {
    case X11KeyTap::Status::running:
        return {subject, true, text("Active")};
    case X11KeyTap::Status::lost:
        return {subject, false, text("Ended, because Pimloft held up the keyboard.")};
    case X11KeyTap::Status::unguarded:
        return {subject, false,
                text("The program that would give the keyboard back is missing: key mappings do nothing.")};
    case X11KeyTap::Status::resting:
        break;
    }
    const auto keyboards = keyDevices(session_.connection());
    const bool canBeTaken = std::any_of(keyboards.begin(), keyboards.end(), [](const KeyDevice &each) {
        return !each.typesForPrograms && !each.floats;
    });
    if (!canBeTaken)
        return {subject, false,
                text("There is no keyboard that another program does not have: key mappings do nothing.")};
    return {subject, true, text("Ready")};
}

Finding X11Diagnosis::windowManager() {
    const QString subject = text("Window manager");
    const xcb_atom_t check = session_.atom("_NET_SUPPORTING_WM_CHECK");
    const auto named = session_.property32(session_.root(), check);
    // A window manager that was killed leaves its properties on the root, but not this window.
    if (named.empty() || session_.property32(named.front(), check) != named)
        return {subject, false, text("None is running, so there is no window to place.")};
    const QString name = QString::fromUtf8(session_.property8(named.front(), session_.atom("_NET_WM_NAME")));
    return {subject, true, name.isEmpty() ? text("Running, without a name") : name};
}

Finding X11Diagnosis::compositor() {
    const QString subject = text("Compositor");
    if (selectionOwner(session_, "_NET_WM_CM_S0") == XCB_NONE)
        return {subject, false, text("None is running: the snap preview is an outline, and nothing fades.")};
    return {subject, true, text("Running")};
}

Finding X11Diagnosis::tray() {
    const QString subject = text("Tray");
    if (hasOwner(bus_, QStringLiteral("org.kde.StatusNotifierWatcher")))
        return {subject, true, text("StatusNotifierItem")};
    if (selectionOwner(session_, "_NET_SYSTEM_TRAY_S0") != XCB_NONE)
        return {subject, true, text("System tray")};
    return {subject, false, text("None is running. To open Pimloft's panel, start Pimloft once more.")};
}

Finding X11Diagnosis::sound() {
    const QString subject = text("Sound");
    const PulseAudio::Summary summary = audio_.summary();
    if (summary.server.isEmpty())
        return {subject, false, text("No sound server answers: the volume mixer stays empty.")};
    if (summary.output.isEmpty())
        return {subject, false, text("%1, without an output device").arg(summary.server)};
    return {subject, true, text("%1, playing to %2").arg(summary.server, summary.output)};
}

}  // namespace pimloft
