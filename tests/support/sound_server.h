// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace pimloft::test {

/// A sound server without hardware, on a private socket. While it exists this process's environment leads to
/// it; what was started ends with it, also when the test crashes. Needs no display.
class SoundServer {
public:
    enum class Kind { pulseAudio, pipeWire };

    /// Starts nothing yet.
    explicit SoundServer(Kind kind);
    ~SoundServer();

    /// Returns when it answers; it has no devices then.
    void start();
    /// By SIGKILL, as a crash would.
    void kill();
    /// Makes it stop answering, and answer again.
    void freeze();
    void thaw();

    /// Adds an output that plays to nowhere, and waits until it is there. `channels` is a map such as "mono";
    /// empty for stereo. Answers what `removeModule` takes.
    QString addSink(const QString &name, const QString &description, const QString &channels = {});
    /// Adds an input that hears nothing.
    QString addSource(const QString &name, const QString &description);
    void removeModule(const QString &module);

    /// Runs pactl, as another program that changes something, and answers what it prints.
    QString pactl(const QStringList &arguments) const;
    /// The volumes of a sink's channels in percent: "80 40".
    QString volumeOf(const QString &sink) const;
    bool isMuted(const QString &sink) const;
    QString defaultSink() const;

    const QProcessEnvironment &environment() const { return environment_; }

private:
    QProcess &spawn(const QString &program, const QStringList &arguments = {});
    void startBus();
    QString load(const QStringList &module, const QString &waitFor);

    const Kind kind_;
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    std::vector<std::unique_ptr<QProcess>> processes_;
    std::vector<std::pair<QByteArray, QByteArray>> before_;  ///< of this process's environment
};

}  // namespace pimloft::test
