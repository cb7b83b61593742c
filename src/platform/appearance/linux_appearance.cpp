// SPDX-License-Identifier: MIT
#include "platform/appearance/linux_appearance.h"

#include "platform/appearance/xsettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QIcon>

namespace pimloft {

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// The portal wraps an answer into several variants.
uint number(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

}  // namespace

LinuxAppearance::LinuxAppearance(X11Session &session, QDBusConnection bus)
    : session_(session), bus_(std::move(bus)) {
    session_.select(session_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    events_ = session_.subscribe([this](const xcb_generic_event_t &event) { handle(event); });
    readSettings();
    isDark_ = hasDarkTheme_;
    if (!bus_.isConnected())
        return;
    portalWatcher_.setConnection(bus_);
    portalWatcher_.addWatchedService(portal);
    connect(&portalWatcher_, &QDBusServiceWatcher::serviceRegistered, this, &LinuxAppearance::askPortal);
    connect(&portalWatcher_, &QDBusServiceWatcher::serviceUnregistered, this, &LinuxAppearance::forgetPortal);
    // From any sender: to name the portal would wait for the bus. What it announces is asked for again.
    bus_.connect(QString(), portalPath, portalSettings, QStringLiteral("SettingChanged"), this,
                 SLOT(portalChanged(QString, QString)));
    askPortal();
}

LinuxAppearance::~LinuxAppearance() = default;

void LinuxAppearance::askPortal() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, portalSettings, QStringLiteral("Read"));
    call << appearanceGroup << colorScheme;
    call.setAutoStartService(false);
    auto *watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QVariantList answer = watcher->reply().arguments();
        const uint wish = watcher->isError() || answer.isEmpty() ? 0 : number(answer.first());
        portalWish_ = wish <= uint(Wish::light) ? Wish(wish) : Wish::none;
        update();
    });
}

void LinuxAppearance::forgetPortal() {
    portalWish_ = Wish::none;
    update();
}

void LinuxAppearance::portalChanged(const QString &group, const QString &key) {
    if (group == appearanceGroup && key == colorScheme)
        askPortal();
}

void LinuxAppearance::handle(const xcb_generic_event_t &event) {
    bool mayHaveChanged = false;
    switch (X11Session::type(event)) {
    case XCB_CLIENT_MESSAGE: {
        // A program that has just begun to publish the settings says so.
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
        mayHaveChanged = message.type == session_.atom("MANAGER") &&
                         message.data.data32[1] == session_.atom("_XSETTINGS_S0");
        break;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto &notice = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        mayHaveChanged =
            notice.window == settingsOwner_ && notice.atom == session_.atom("_XSETTINGS_SETTINGS");
        break;
    }
    case XCB_DESTROY_NOTIFY:
        mayHaveChanged = reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == settingsOwner_;
        break;
    }
    if (!mayHaveChanged)
        return;
    readSettings();
    update();
}

void LinuxAppearance::readSettings() {
    const auto cookie = xcb_get_selection_owner(session_.connection(), session_.atom("_XSETTINGS_S0"));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(session_.connection(), cookie, nullptr));
    settingsOwner_ = reply ? reply->owner : xcb_window_t(XCB_NONE);
    QVariantMap settings;
    if (settingsOwner_ != XCB_NONE) {
        // First, so that no change falls between.
        session_.select(settingsOwner_, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        settings = parseXSettings(session_.property8(settingsOwner_, session_.atom("_XSETTINGS_SETTINGS")));
    }
    hasDarkTheme_ = prefersDark(settings);
    const QString icons = settings.value(QStringLiteral("Net/IconThemeName")).toString();
    if (!icons.isEmpty())
        QIcon::setFallbackThemeName(icons);
}

void LinuxAppearance::update() {
    const bool isDark = portalWish_ == Wish::none ? hasDarkTheme_ : portalWish_ == Wish::dark;
    if (std::exchange(isDark_, isDark) == isDark)
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (onChanged)
                onChanged();
        },
        Qt::QueuedConnection);
}

}  // namespace pimloft
