// SPDX-License-Identifier: MIT
#include "support/sound_server.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QThread>

#include <csignal>
#include <functional>
#include <sys/prctl.h>
#include <unistd.h>

namespace pimloft::test {

namespace {

[[noreturn]] void fail(const QString &what) {
    qFatal("%s", qPrintable(what));
}

/// What is waited for happens in another process.
bool comesTrue(const std::function<bool()> &condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(15000))
            return false;
        QThread::msleep(5);
    }
    return true;
}

}  // namespace

SoundServer::SoundServer(Kind kind) : kind_(kind), environment_(QProcessEnvironment::systemEnvironment()) {
    const QString base = folder_.path();
    const std::pair<const char *, QString> variables[] = {
        {"HOME", base},
        {"XDG_RUNTIME_DIR", base + QStringLiteral("/run")},
        {"XDG_CONFIG_HOME", base + QStringLiteral("/config")},
        {"XDG_STATE_HOME", base + QStringLiteral("/state")},
        {"PULSE_SERVER", QStringLiteral("unix:%1/run/pulse/native").arg(base)},
    };
    for (const auto &[name, value] : variables) {
        before_.emplace_back(name, qgetenv(name));
        qputenv(name, value.toUtf8());
        environment_.insert(QLatin1String(name), value);
        if (value.startsWith(u'/'))
            QDir().mkpath(value);
    }
    QFile::setPermissions(base + QStringLiteral("/run"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

SoundServer::~SoundServer() {
    kill();
    for (const auto &[name, value] : before_)
        if (value.isEmpty())
            qunsetenv(name.constData());
        else
            qputenv(name.constData(), value);
}

QProcess &SoundServer::spawn(const QString &program, const QStringList &arguments) {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment_);
    process->setStandardErrorFile(folder_.filePath(QStringLiteral("log")), QIODevice::Append);
    process->setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
    });
    process->start(program, arguments);
    if (!process->waitForStarted())
        fail(program + QStringLiteral(" cannot be started"));
    processes_.push_back(std::move(process));
    return *processes_.back();
}

void SoundServer::startBus() {
    QProcess &bus =
        spawn(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    while (!bus.canReadLine())
        if (!bus.waitForReadyRead(10000))
            fail(QStringLiteral("dbus-daemon does not come up"));
    environment_.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                        QString::fromLatin1(bus.readLine().trimmed()));
}

void SoundServer::start() {
    if (kind_ == Kind::pulseAudio) {
        spawn(QStringLiteral("pulseaudio"),
              {QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
               QStringLiteral("--use-pid-file=no"), QStringLiteral("--disable-shm=yes"),
               QStringLiteral("--log-target=stderr"), QStringLiteral("-L"),
               QStringLiteral("module-native-protocol-unix"), QStringLiteral("-L"),
               QStringLiteral("module-always-sink")});
    } else {
        startBus();
        spawn(QStringLiteral("pipewire"));
        if (!comesTrue([this] { return QFile::exists(folder_.filePath(QStringLiteral("run/pipewire-0"))); }))
            fail(QStringLiteral("pipewire does not come up"));
        spawn(QStringLiteral("wireplumber"));
        spawn(QStringLiteral("pipewire-pulse"));
    }
    // Both make up a device where there is none, PipeWire's session manager as the last of what it does.
    const bool up = comesTrue([this] {
        return pactl({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sinks")})
            .contains(QStringLiteral("auto_null"));
    });
    if (!up)
        fail(QStringLiteral("the sound server does not come up"));
}

void SoundServer::kill() {
    // What the others need was started first.
    while (!processes_.empty()) {
        processes_.back()->kill();
        processes_.back()->waitForFinished();
        processes_.pop_back();
    }
}

void SoundServer::freeze() {
    ::kill(pid_t(processes_.back()->processId()), SIGSTOP);
}

void SoundServer::thaw() {
    ::kill(pid_t(processes_.back()->processId()), SIGCONT);
}

QString SoundServer::pactl(const QStringList &arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment_);
    process.start(QStringLiteral("pactl"), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString SoundServer::load(const QStringList &module, const QString &waitFor) {
    const QString number = pactl(QStringList{QStringLiteral("load-module")} + module);
    const bool there = comesTrue([&] {
        const auto list = [this](const char *kind) {
            return pactl({QStringLiteral("list"), QStringLiteral("short"), QLatin1String(kind)});
        };
        return (list("sinks") + list("sources")).contains(waitFor);
    });
    if (!there)
        fail(QStringLiteral("the sound server does not add %1").arg(waitFor));
    return number;
}

QString SoundServer::addSink(const QString &name, const QString &description, const QString &channels) {
    QStringList module{QStringLiteral("module-null-sink"), QStringLiteral("sink_name=") + name,
                       QStringLiteral("sink_properties=device.description=") + description};
    if (!channels.isEmpty())
        module << QStringLiteral("channels=%1").arg(channels.count(u',') + 1)
               << QStringLiteral("channel_map=") + channels;
    return load(module, name);
}

QString SoundServer::addSource(const QString &name, const QString &description) {
    if (kind_ == Kind::pulseAudio)
        return load({QStringLiteral("module-null-source"), QStringLiteral("source_name=") + name,
                     QStringLiteral("description=") + description},
                    name);
    // PipeWire has no module for it; a null sink can pass for an input.
    return load({QStringLiteral("module-null-sink"), QStringLiteral("media.class=Audio/Source/Virtual"),
                 QStringLiteral("sink_name=") + name,
                 QStringLiteral("sink_properties=device.description=") + description,
                 QStringLiteral("channel_map=front-left,front-right")},
                name);
}

void SoundServer::removeModule(const QString &module) {
    pactl({QStringLiteral("unload-module"), module});
}

QString SoundServer::volumeOf(const QString &sink) const {
    static const QRegularExpression percent(QStringLiteral("(\\d+)%"));
    QStringList channels;
    auto match = percent.globalMatch(pactl({QStringLiteral("get-sink-volume"), sink}));
    while (match.hasNext())
        channels << match.next().captured(1);
    return channels.join(u' ');
}

bool SoundServer::isMuted(const QString &sink) const {
    return pactl({QStringLiteral("get-sink-mute"), sink}).contains(QStringLiteral("yes"));
}

QString SoundServer::defaultSink() const {
    return pactl({QStringLiteral("get-default-sink")});
}

}  // namespace pimloft::test
