// SPDX-License-Identifier: MIT
#pragma once

#include "quickvolume/audio_engine.h"

#include "platform/fake_desktop.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace pimloft::test {

inline constexpr ProcessId self{4242};

inline Application application(int process, const char *bundleId, const char *name = "Player") {
    return {.name = QLatin1String(name),
            .bundleId = QString::fromLatin1(bundleId),
            .processId = ProcessId(process),
            .policy = ActivationPolicy::regular};
}

/// The engine on two outputs, the first of them the default.
class AudioEngineTest : public testing::Test {
protected:
    void settle() { QCoreApplication::processEvents(); }
    void start() {
        engine.start();
        settle();
        desktop.log();
    }
    void run(const std::vector<Application> &applications) {
        desktop.workspace.running = applications;
        engine.refreshAudioApps();
        settle();
    }

    /// "Player 7 100%, Other 8 50% muted"
    std::string apps() const {
        QStringList list;
        for (const AudioApp &app : engine.audioApps())
            list << QStringLiteral("%1 %2 %3%%4")
                        .arg(app.name)
                        .arg(app.id)
                        .arg(int(app.volume * 100))
                        .arg(app.isMuted ? QStringLiteral(" muted") : QString());
        return list.join(QStringLiteral(", ")).toStdString();
    }
    /// "Speakers*, Headphones"
    std::string outputs() const {
        QStringList list;
        for (const AudioOutputDevice &device : engine.outputDevices())
            list << device.name + (device.isDefault ? QStringLiteral("*") : QString());
        return list.join(QStringLiteral(", ")).toStdString();
    }
    AudioApp app(int index = 0) const { return engine.audioApps().at(index); }

    FakeDesktop desktop;
    const AudioDeviceId speakers = desktop.audio.add({.name = QStringLiteral("Speakers")});
    const AudioDeviceId headphones =
        desktop.audio.add({.name = QStringLiteral("Headphones"), .volume = 0.25F});
    AudioEngine engine{desktop.audio, desktop.workspace, desktop.scripting, self};
};

}  // namespace pimloft::test
