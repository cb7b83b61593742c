// SPDX-License-Identifier: MIT
#include "desktop/support/screen_reader.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace pimloft::test {

namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString root = QStringLiteral("/org/a11y/atspi/accessible/root");

QDBusMessage statusMessage(const QString &interface, const QString &method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                          interface, method);
}

QDBusConnection connectToAccessibilityBus(const QDBusConnection &session, const QString &name) {
    // Asking for it starts it.
    const QDBusMessage answer =
        session.call(statusMessage(QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    if (answer.type() != QDBusMessage::ReplyMessage)
        qFatal("no accessibility bus: %s", qPrintable(answer.errorMessage()));
    return QDBusConnection::connectToBus(answer.arguments().value(0).toString(), name);
}

}  // namespace

QString Spoken::line() const {
    QString line = role + QStringLiteral(": ") + name;
    if (role == QLatin1String("check box") || role == QLatin1String("radio button"))
        line += isChecked() ? QStringLiteral(" [on]") : QStringLiteral(" [off]");
    if (isSelected())
        line += QStringLiteral(" [selected]");
    return line;
}

ScreenReader::ScreenReader(const DesktopSession &session)
    : sessionName_(QStringLiteral("screen reader of ") + session.home()),
      session_(QDBusConnection::connectToBus(
          session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), sessionName_)),
      busName_(sessionName_ + QStringLiteral(", accessibility")),
      bus_(connectToAccessibilityBus(session_, busName_)) {
}

ScreenReader::~ScreenReader() {
    QDBusConnection::disconnectFromBus(busName_);
    QDBusConnection::disconnectFromBus(sessionName_);
}

void ScreenReader::start() {
    const QString status = QStringLiteral("org.a11y.Status");
    for (const char *flag : {"IsEnabled", "ScreenReaderEnabled"})
        session_.call(statusMessage(properties, QStringLiteral("Set"))
                      << status << QString::fromLatin1(flag) << QVariant::fromValue(QDBusVariant(true)));
}

std::vector<Spoken> ScreenReader::window(const QString &program, const QString &title) const {
    std::vector<Spoken> all;
    for (const Spoken &each : topLevels(program))
        if (each.name == title && each.isVisible() && all.empty())
            walk(each, 0, all);
    return all;
}

QStringList ScreenReader::windows(const QString &program) const {
    QStringList names;
    for (const Spoken &each : topLevels(program))
        names << each.name;
    return names;
}

void ScreenReader::press(const Spoken &thing) const {
    const QString actions = QStringLiteral("org.a11y.atspi.Action");
    const auto ask = [&](const char *method, int index) {
        return bus_.call(
            QDBusMessage::createMethodCall(thing.service, thing.path, actions, QString::fromLatin1(method))
            << index);
    };
    // What can have the keyboard offers that first.
    for (int index = 0; index < 5; ++index)
        if (ask("GetName", index).arguments().value(0).toString() == QLatin1String("Press")) {
            ask("DoAction", index);
            return;
        }
    qWarning("%s cannot be pressed", qPrintable(thing.name));
}

std::vector<Spoken> ScreenReader::topLevels(const QString &program) const {
    for (const Spoken &each : childrenOf(QStringLiteral("org.a11y.atspi.Registry"), root))
        if (each.name == program)
            return childrenOf(each.service, each.path);
    return {};
}

std::vector<Spoken> ScreenReader::childrenOf(const QString &service, const QString &path) const {
    std::vector<Spoken> children;
    const QList<QVariant> answer = call(service, path, QStringLiteral("GetChildren")).arguments();
    if (answer.isEmpty())
        return children;
    const auto list = answer.first().value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        QString owner;
        QDBusObjectPath place;
        list.beginStructure();
        list >> owner >> place;
        list.endStructure();
        children.push_back(look(owner, place.path()));
    }
    return children;
}

Spoken ScreenReader::look(const QString &service, const QString &path) const {
    Spoken thing = {.service = service,
                    .path = path,
                    .role =
                        call(service, path, QStringLiteral("GetRoleName")).arguments().value(0).toString(),
                    .name = property(service, path, QStringLiteral("Name")).toString(),
                    .description = property(service, path, QStringLiteral("Description")).toString()};
    const QList<QVariant> answer = call(service, path, QStringLiteral("GetState")).arguments();
    QList<quint32> words;
    if (!answer.isEmpty())
        answer.first().value<QDBusArgument>() >> words;
    thing.states = quint64(words.value(1)) << 32 | words.value(0);
    return thing;
}

void ScreenReader::walk(const Spoken &thing, int depth, std::vector<Spoken> &all) const {
    all.push_back(thing);
    all.back().depth = depth;
    for (const Spoken &child : childrenOf(thing.service, thing.path))
        if (child.isVisible())
            walk(child, depth + 1, all);
}

QVariant ScreenReader::property(const QString &service, const QString &path, const QString &name) const {
    const QDBusMessage answer =
        bus_.call(QDBusMessage::createMethodCall(service, path, properties, QStringLiteral("Get"))
                  << accessible << name);
    return answer.arguments().value(0).value<QDBusVariant>().variant();
}

QDBusMessage ScreenReader::call(const QString &service, const QString &path, const QString &method) const {
    return bus_.call(QDBusMessage::createMethodCall(service, path, accessible, method));
}

QString lines(const std::vector<Spoken> &things) {
    QString text;
    for (const Spoken &thing : things)
        if (!thing.name.isEmpty() || thing.isFocusable())
            text += thing.line() + QLatin1Char('\n');
    return text;
}

}  // namespace pimloft::test
