// SPDX-License-Identifier: MIT
#include "platform/filemanager/open_locations.h"

#include "platform/filemanager/bus_call.h"
#include "platform/filemanager/path_bar.h"
#include "platform/pasteboard/copied_files.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace pimloft {

std::optional<QByteArray> shownFolder(const OpenLocations &locations, const FileManagerWindow &window) {
    std::vector<QByteArray> folders;
    const QStringList shown = locations.value(window.objectPath);
    for (const QString &location : shown)
        if (const auto urls = fileUrlsOfUriList(location.toUtf8()))
            folders.push_back(localPaths(*urls).front());
    // Another tab's location may be none of this computer.
    if (folders.size() != std::size_t(shown.size()) && shown.size() == 1)
        return std::nullopt;
    const QByteArray folder = folderByTitle(folders, window.title);
    const bool isCertain = !folder.isEmpty() && (shown.size() == 1 || folders.size() > 1);
    return isCertain ? std::optional(folder) : std::nullopt;
}

void askShownFolder(const QDBusConnection &bus, const FileManagerWindow &window, QObject *context,
                    std::function<void(std::optional<QByteArray>)> done) {
    if (window.busName.isEmpty())
        return done(std::nullopt);
    const auto ask = [bus, window, context, done] {
        callBus(bus,
                {window.busName, QStringLiteral("/org/freedesktop/FileManager1"),
                 QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get")},
                {QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("OpenWindowsWithLocations")},
                context, [window, done](const QDBusMessage &answer) {
                    if (answer.type() != QDBusMessage::ReplyMessage)
                        return done(std::nullopt);
                    const auto value = qvariant_cast<QDBusVariant>(answer.arguments().value(0)).variant();
                    done(shownFolder(qdbus_cast<OpenLocations>(value), window));
                });
    };
    callBus(bus,
            {QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
             QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetConnectionUnixProcessID")},
            {window.busName}, context, [process = window.process, ask, done](const QDBusMessage &answer) {
                if (answer.type() == QDBusMessage::ReplyMessage &&
                    ProcessId(answer.arguments().value(0).toUInt()) == process)
                    ask();
                else
                    done(std::nullopt);
            });
}

}  // namespace pimloft
