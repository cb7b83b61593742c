// SPDX-License-Identifier: MIT
// Before Qt, which makes a macro of a name that GIO uses.
#include <gio/gio.h>

#include "platform/workspace/default_programs.h"

#include "platform/x11/qt_connection.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QMimeDatabase>

#include <memory>

namespace pimloft {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

using Program = std::unique_ptr<GAppInfo, Unref>;
using Surroundings = std::unique_ptr<GAppLaunchContext, Unref>;

/// What a program that is opened from here inherits.
Surroundings surroundings() {
    Surroundings context(g_app_launch_context_new());
    for (const QByteArray &each : variablesForQt())
        g_app_launch_context_unsetenv(context.get(), each.constData());
    return context;
}

Program programFor(const QUrl &url) {
    if (!url.isLocalFile())
        return Program(g_app_info_get_default_for_uri_scheme(url.scheme().toUtf8().constData()));
    if (!QFileInfo::exists(url.toLocalFile()))
        return nullptr;
    const QByteArray type = QMimeDatabase().mimeTypeForFile(url.toLocalFile()).name().toUtf8();
    return Program(g_app_info_get_default_for_type(type.constData(), false));
}

}  // namespace

bool openWithDefaultProgram(const QUrl &url) {
    const Program program = programFor(url);
    if (!program)
        return false;
    QByteArray text = url.toEncoded();
    GList links{text.data(), nullptr, nullptr};
    g_app_info_launch_uris_async(program.get(), &links, surroundings().get(), nullptr, nullptr, nullptr);
    return true;
}

void revealInFileManager(const QDBusConnection &bus, const QString &path) {
    const bool isFolder = QFileInfo(path).isDir();
    const QUrl folder = QUrl::fromLocalFile(isFolder ? path : QFileInfo(path).path());
    if (!bus.isConnected()) {
        openWithDefaultProgram(folder);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"),
        isFolder ? QStringLiteral("ShowFolders") : QStringLiteral("ShowItems"));
    call << QStringList{QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded())} << QString();
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder] {
        // A file manager that is slow to answer still shows the file.
        if (watcher->isError() && watcher->error().type() != QDBusError::NoReply)
            openWithDefaultProgram(folder);
        watcher->deleteLater();
    });
}

}  // namespace pimloft
