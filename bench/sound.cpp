// SPDX-License-Identifier: MIT
#include "measures.h"

#include "platform/audio/pulse_audio.h"
#include "platform/fake_desktop.h"
#include "quickvolume/audio_engine.h"
#include "support/sound_server.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/operation.h>
#include <pulse/thread-mainloop.h>

namespace pimloft::bench {

namespace {

using test::SoundServer;

/// Another program with a connection of its own: starting pactl would take longer than what is measured.
class OtherProgram {
public:
    OtherProgram() {
        loop_ = pa_threaded_mainloop_new();
        context_ = pa_context_new(pa_threaded_mainloop_get_api(loop_), "another program");
        pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
        pa_threaded_mainloop_start(loop_);
        while (state() != PA_CONTEXT_READY)
            QCoreApplication::processEvents();
    }
    ~OtherProgram() {
        pa_threaded_mainloop_stop(loop_);
        pa_context_unref(context_);
        pa_threaded_mainloop_free(loop_);
    }

    void turn(const char *sink, int percent) {
        pa_cvolume volume{};
        pa_cvolume_set(&volume, 2, pa_volume_t(percent * PA_VOLUME_NORM / 100));
        pa_threaded_mainloop_lock(loop_);
        pa_operation_unref(pa_context_set_sink_volume_by_name(context_, sink, &volume, nullptr, nullptr));
        pa_threaded_mainloop_unlock(loop_);
    }

private:
    pa_context_state_t state() {
        pa_threaded_mainloop_lock(loop_);
        const pa_context_state_t state = pa_context_get_state(context_);
        pa_threaded_mainloop_unlock(loop_);
        return state;
    }

    pa_threaded_mainloop *loop_;
    pa_context *context_;
};

double millisecondsUntil(const std::function<bool()> &condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        QCoreApplication::processEvents();
        if (elapsed.hasExpired(5000))
            qFatal("what is to be measured does not happen");
    }
    return double(elapsed.nsecsElapsed()) / 1e6;
}

void measureServer(Table &table, SoundServer::Kind kind, const QString &name, int samples) {
    SoundServer server(kind);
    server.start();
    server.addSink(QStringLiteral("speakers"), QStringLiteral("Speakers"));
    server.pactl({QStringLiteral("set-default-sink"), QStringLiteral("speakers")});
    PulseAudio audio;
    PulseAudio other;  // sees what reached the server
    const auto percent = [](PulseAudio &each) {
        const auto device = each.defaultOutputDevice();
        const auto volume = device ? each.volume(*device) : std::nullopt;
        return volume ? int(*volume * 100) : -1;
    };
    OtherProgram program;
    program.turn("speakers", 99);
    millisecondsUntil([&] { return percent(audio) == 99 && percent(other) == 99; });

    Figure seen{
        QStringLiteral("%1 change to value at the audio service").arg(name), QStringLiteral("ms"), 20, {}};
    Figure told{
        QStringLiteral("%1 own change to value at another program").arg(name), QStringLiteral("ms"), 20, {}};
    for (int sample = 0; sample < samples; ++sample) {
        // Never what was set last by the other side: it would be seen before it has happened.
        const int wanted = 10 + sample % 40;
        program.turn("speakers", wanted);
        seen.samples.push_back(millisecondsUntil([&] { return percent(audio) == wanted; }));
        const int ours = 90 - sample % 40;
        audio.setVolume(*audio.defaultOutputDevice(), float(ours) / 100 + 0.001F);
        told.samples.push_back(millisecondsUntil([&] { return percent(other) == ours; }));
        millisecondsUntil([&] { return percent(audio) == ours; });
    }
    table.add(seen);
    table.add(told);
}

void measureRefresh(Table &table, int samples) {
    FakeDesktop desktop;
    for (int process = 1; process <= 100; ++process)
        desktop.workspace.running.push_back(
            {.name = QStringLiteral("Program"),
             .bundleId = process % 6 ? QStringLiteral("org.test.Program") : QStringLiteral("io.mpv"),
             .processId = ProcessId(process)});
    AudioEngine engine(desktop.audio, desktop.workspace, desktop.scripting, ProcessId(0));
    Figure refresh{QStringLiteral("refresh with 100 applications running"), QStringLiteral("ms"), 1, {}};
    for (int sample = 0; sample < samples; ++sample) {
        QElapsedTimer elapsed;
        elapsed.start();
        engine.refreshAudioApps();
        QCoreApplication::processEvents();
        refresh.samples.push_back(double(elapsed.nsecsElapsed()) / 1e6);
    }
    table.add(refresh);
}

}  // namespace

void measureSound(Table &table, Extent extent) {
    const int samples = extent.quick ? 20 : 200;
    measureServer(table, SoundServer::Kind::pulseAudio, QStringLiteral("PulseAudio"), samples);
    measureServer(table, SoundServer::Kind::pipeWire, QStringLiteral("PipeWire"), samples);
    measureRefresh(table, samples);
}

}  // namespace pimloft::bench
