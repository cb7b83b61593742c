// SPDX-License-Identifier: MIT
#include "platform/filemanager/dolphin_window.h"

#include "platform/filemanager/bus_call.h"

namespace pimloft {

namespace {

const QString mainWindow = QStringLiteral("org.kde.KMainWindow");

}  // namespace

DolphinWindow::DolphinWindow(QDBusConnection bus, const FileManagerWindow &window, QObject *context)
    : bus_(std::move(bus)), service_(QStringLiteral("org.kde.dolphin-%1").arg(qint32(window.process))),
      path_(QStringLiteral("/dolphin/") + QString(window.role).replace(u'#', u'_')), context_(context) {
}

void DolphinWindow::hasSelection(std::function<void(std::optional<bool>)> done) const {
    // Of all actions that need a selection this one alone is disabled without one.
    callBus(bus_, {service_, path_, mainWindow, QStringLiteral("actionIsEnabled")},
            {QStringLiteral("invert_selection")}, context_,
            [done = std::move(done)](const QDBusMessage &answer) {
                const bool isAnswered = answer.type() == QDBusMessage::ReplyMessage;
                done(isAnswered ? std::optional(answer.arguments().value(0).toBool()) : std::nullopt);
            });
}

void DolphinWindow::copy(std::function<void(bool)> done) const {
    activate("edit_copy", std::move(done));
}

void DolphinWindow::toggleLocationField(std::function<void(bool)> done) const {
    activate("editable_location", std::move(done));
}

void DolphinWindow::activate(const char *action, std::function<void(bool)> done) const {
    callBus(bus_, {service_, path_, mainWindow, QStringLiteral("activateAction")}, {QLatin1String(action)},
            context_, [done = std::move(done)](const QDBusMessage &answer) {
                done(answer.type() == QDBusMessage::ReplyMessage);
            });
}

}  // namespace pimloft
