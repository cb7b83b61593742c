// SPDX-License-Identifier: MIT
#include "platform/instance/local_instance.h"

#include "base/atomic_file.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

#include <array>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace pimloft {

namespace {

constexpr std::chrono::seconds connectPatience{5};
constexpr qint64 longestRequest = 64;
constexpr int mostClients = 16;

struct CommandName {
    InstanceCommand command;
    const char *name;
};
constexpr std::array commandNames{
    CommandName{InstanceCommand::openPopover, "open-popover"},
    CommandName{InstanceCommand::openSettings, "open-settings"},
    CommandName{InstanceCommand::quit, "quit"},
    CommandName{InstanceCommand::doctor, "doctor"},
};

std::optional<InstanceCommand> commandNamed(const QByteArray &name) {
    for (const CommandName &each : commandNames)
        if (name == each.name)
            return each.command;
    return std::nullopt;
}

QByteArray nameOf(InstanceCommand command) {
    for (const CommandName &each : commandNames)
        if (command == each.command)
            return each.name;
    return {};
}

/// A descriptor that holds the lock; nothing when another process does. -1 where no lock can be made: the
/// program runs all the same. The kernel ends a lock with its process, so that none is ever left behind.
std::optional<int> takeLock(const QString &path) {
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0 || flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    close(descriptor);
    return std::nullopt;
}

bool isLocked(const QString &path) {
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0)
        return false;
    const bool isFree = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    close(descriptor);
    return !isFree;
}

/// Nothing when it cannot be reached now, or hangs up.
std::optional<QString> askOnce(const InstancePaths &paths, InstanceCommand command,
                               const QDeadlineTimer &deadline) {
    QLocalSocket socket;
    socket.connectToServer(paths.socket);
    if (!socket.waitForConnected(int(deadline.remainingTime())))
        return std::nullopt;
    socket.write(nameOf(command) + '\n');
    QByteArray text;
    while (!text.endsWith('\0')) {
        const bool isReady =
            socket.bytesAvailable() || socket.waitForReadyRead(int(deadline.remainingTime()));
        if (!isReady || deadline.hasExpired())
            return std::nullopt;
        text += socket.readAll();
    }
    return QString::fromUtf8(text.chopped(1));
}

/// ":0" and its screen ":0.0" are one login. What is no part of a file's name is replaced.
QString nameOf(const QString &login) {
    QString name = login.left(login.indexOf(QLatin1Char('.'), login.lastIndexOf(QLatin1Char(':'))));
    for (QChar &letter : name) {
        const bool isPlain = letter.unicode() < 128 && letter.isLetterOrNumber();
        if (!isPlain && letter != QLatin1Char('.') && letter != QLatin1Char('-'))
            letter = QLatin1Char('_');
    }
    return name;
}

}  // namespace

InstancePaths::InstancePaths(const QString &runtime, const QString &login) {
    const QString base = runtime + QStringLiteral("/pimloft") + nameOf(login);
    lock = base + QStringLiteral(".lock");
    socket = base + QStringLiteral(".socket");
}

std::unique_ptr<LocalInstance> LocalInstance::claim(const QString &runtime, const QString &login) {
    const InstancePaths paths(runtime, login);
    makePrivateFolder(runtime);
    const auto lock = takeLock(paths.lock);
    return lock ? std::unique_ptr<LocalInstance>(new LocalInstance(*lock, paths)) : nullptr;
}

LocalInstance::LocalInstance(int lock, const InstancePaths &paths) : lock_(lock) {
    connect(&server_, &QLocalServer::newConnection, this, &LocalInstance::acceptClients);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    // The lock is ours: a socket that is there was left by a process that was killed.
    QLocalServer::removeServer(paths.socket);
    server_.listen(paths.socket);
}

LocalInstance::~LocalInstance() {
    server_.close();
    if (lock_ >= 0)
        close(lock_);
}

void LocalInstance::acceptClients() {
    while (QLocalSocket *socket = server_.nextPendingConnection()) {
        if (clients_ >= mostClients) {
            delete socket;
            continue;
        }
        ++clients_;
        connect(socket, &QObject::destroyed, this, [this] { --clients_; });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        socket->setReadBufferSize(longestRequest);
        QTimer::singleShot(connectPatience, socket, [socket] { socket->abort(); });
        readRequest(socket);
    }
}

void LocalInstance::readRequest(QLocalSocket *socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() >= longestRequest)
            socket->abort();
        return;
    }
    const auto command = commandNamed(socket->readLine().chopped(1));
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    if (!command)
        return socket->abort();
    QMetaObject::invokeMethod(
        socket, [this, socket, command] { answer(socket, *command); }, Qt::QueuedConnection);
}

void LocalInstance::answer(QLocalSocket *socket, InstanceCommand command) {
    if (!onCommand)
        return socket->abort();
    socket->write(onCommand(command).toUtf8().replace('\0', ' ') + '\0');
    // At once: the command may end the event loop.
    socket->flush();
    socket->disconnectFromServer();
}

std::optional<QString> askInstance(const QString &runtime, const QString &login, InstanceCommand command) {
    const InstancePaths paths(runtime, login);
    const QDeadlineTimer deadline(connectPatience);
    // One that is just coming up, or going, hangs up without an answer.
    for (; isLocked(paths.lock) && !deadline.hasExpired(); QThread::msleep(20))
        if (auto answer = askOnce(paths, command, deadline))
            return answer;
    return std::nullopt;
}

}  // namespace pimloft
