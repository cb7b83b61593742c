// SPDX-License-Identifier: MIT
#include "platform/appearance/linux_appearance.h"

#include "platform/appearance/xsettings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QIcon>

#include <algorithm>
#include <array>
#include <utility>

namespace pimloft {

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const QString colorScheme = QStringLiteral("color-scheme");
const QString contrast = QStringLiteral("contrast");
const QString reducedMotion = QStringLiteral("reduced-motion");
const QString enableAnimations = QStringLiteral("enable-animations");

/// What the portal is asked for. Portals of some age know the animations by the desktop's own name only.
const std::array<std::pair<QString, QString>, 4> questions{{{appearanceGroup, colorScheme},
                                                            {appearanceGroup, contrast},
                                                            {appearanceGroup, reducedMotion},
                                                            {interfaceGroup, enableAnimations}}};

/// The portal's numbers for a wish of light or dark.
constexpr uint dark = 1;
constexpr uint light = 2;

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
    look_ = settings_;
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
    for (const auto &[group, key] : questions)
        askPortalFor(group, key);
}

void LinuxAppearance::askPortalFor(const QString &group, const QString &key) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, portalSettings, QStringLiteral("Read"));
    call << group << key;
    call.setAutoStartService(false);
    auto *watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, key] {
        watcher->deleteLater();
        const QVariantList answer = watcher->reply().arguments();
        if (watcher->isError() || answer.isEmpty())
            portal_.remove(key);
        else
            portal_[key] = number(answer.first());
        update();
    });
}

void LinuxAppearance::forgetPortal() {
    portal_.clear();
    update();
}

void LinuxAppearance::portalChanged(const QString &group, const QString &key) {
    if (std::find(questions.begin(), questions.end(), std::pair(group, key)) != questions.end())
        askPortalFor(group, key);
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
    settings_ = {.isDark = prefersDark(settings),
                 .isHighContrast = prefersHighContrast(settings),
                 .reducesMotion = prefersReducedMotion(settings)};
    const QString icons = settings.value(QStringLiteral("Net/IconThemeName")).toString();
    if (!icons.isEmpty())
        QIcon::setFallbackThemeName(icons);
}

LinuxAppearance::Look LinuxAppearance::wishedLook() const {
    Look look = settings_;
    const uint scheme = portal_.value(colorScheme);
    if (scheme == dark || scheme == light)
        look.isDark = scheme == dark;
    look.isHighContrast |= portal_.value(contrast) == 1;
    look.reducesMotion |= portal_.value(reducedMotion) == 1 || portal_.value(enableAnimations, 1) == 0;
    return look;
}

void LinuxAppearance::update() {
    const Look look = wishedLook();
    if (std::exchange(look_, look) == look)
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
