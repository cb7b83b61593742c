// SPDX-License-Identifier: MIT
#include "platform/workspace/process_info.h"

#include <QFile>
#include <QFileInfo>

namespace pimloft {

namespace {

QString folder(ProcessId process) {
    return QStringLiteral("/proc/%1/").arg(qint32(process));
}

QByteArray content(ProcessId process, const QString &file) {
    QFile source(folder(process) + file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

/// The desktop entry is inherited by a program's children: it is their parent's unless the id is their own.
QString launchedEntry(ProcessId process) {
    QByteArray path;
    QByteArray launched;
    for (const QByteArray &line : content(process, QStringLiteral("environ")).split('\0')) {
        if (line.startsWith("GIO_LAUNCHED_DESKTOP_FILE="))
            path = line.mid(line.indexOf('=') + 1);
        else if (line.startsWith("GIO_LAUNCHED_DESKTOP_FILE_PID="))
            launched = line.mid(line.indexOf('=') + 1);
    }
    return launched == QByteArray::number(qint32(process)) ? QFile::decodeName(path) : QString();
}

QString executable(ProcessId process) {
    QString path = QFile::symLinkTarget(folder(process) + QStringLiteral("exe"));
    // A program that was updated while it runs.
    const QString replaced = QStringLiteral(" (deleted)");
    if (path.endsWith(replaced))
        path.chop(replaced.size());
    return QFileInfo(path).fileName();
}

}  // namespace

std::optional<quint64> processStart(ProcessId process) {
    const QByteArray stat = content(process, QStringLiteral("stat"));
    // The name stands in parentheses and may hold any character.
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    constexpr int startTime = 19;
    return fields.size() > startTime ? std::optional(fields[startTime].toULongLong()) : std::nullopt;
}

ProcessInfo processInfo(ProcessId process) {
    return {.name = QString::fromUtf8(content(process, QStringLiteral("comm")).trimmed()),
            .executable = executable(process),
            .launchedEntry = launchedEntry(process)};
}

}  // namespace pimloft
