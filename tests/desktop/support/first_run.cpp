// SPDX-License-Identifier: MIT
#include "desktop/support/first_run.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace pimloft::test {

QString preferencesFile(const DesktopSession &session) {
    return session.home() + QStringLiteral("/config/Pimloft/preferences.json");
}

QJsonObject storedPreferences(const DesktopSession &session) {
    QFile file(preferencesFile(session));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

void skipFirstRun(const DesktopSession &session, const QJsonObject &preferences, const QString &lastSeen) {
    QJsonObject all = preferences;
    all[QStringLiteral("pimloft.general.hasCompletedOnboarding")] = true;
    all[QStringLiteral("pimloft.general.lastSeenVersion")] =
        lastSeen.isEmpty() ? QStringLiteral(PIMLOFT_VERSION) : lastSeen;
    QFile file(preferencesFile(session));
    QDir().mkpath(QFileInfo(file).path());
    const QByteArray text = QJsonDocument(all).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("the preferences cannot be written");
}

void forgetPreferences(const DesktopSession &session) {
    QDir(QFileInfo(preferencesFile(session)).path()).removeRecursively();
}

}  // namespace pimloft::test
