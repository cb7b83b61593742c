// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio/pulse_loop.h"
#include "platform/audio/pulse_state.h"

#include <pulse/context.h>
#include <pulse/introspect.h>

#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <set>

namespace pimloft {

/// The connection to a sound server, on a thread of its own: follows what the server has, carries changes
/// out, and connects again whenever the server is gone. PulseAudio, and PipeWire where it speaks the same.
///
/// Public operations are for the main thread and never wait, but where they say so.
class PulseServer {
public:
    /// `report` is called on the server's thread with every state that differs from the one before. The first
    /// one is complete.
    explicit PulseServer(std::function<void(PulseState)> report);
    ~PulseServer();
    PulseServer(const PulseServer &) = delete;
    PulseServer &operator=(const PulseServer &) = delete;

    /// Adds to the changes that are to be made; later ones replace earlier ones. Answers the change's number.
    quint64 change(const std::function<void(PulseChanges &)> &add);

    /// What was reported last. Waits, for so long at most, until it is known whether there is a server.
    PulseState waitForState(std::chrono::milliseconds longest);

private:
    using Thing = PulseChanges::Thing;
    /// A change that the server is asked for at this moment.
    struct Call {
        PulseServer *server;
        Thing thing;
    };
    struct Unref {
        void operator()(pa_context *context) const { pa_context_unref(context); }
    };

    void wakeUp();
    void connect();
    void contextChanged();
    void lose();

    void read();
    void finishReading();
    void takeServer(const pa_server_info *info);
    void takeSource(const pa_source_info *info);
    void takeSink(const pa_sink_info *info);
    template <typename Info>
    void takeDevice(const Info &info, bool output);

    void carryOut();
    void carryOut(const PulseChanges &changes);
    std::optional<pa_cvolume> channelsFor(const QByteArray &sink, float volume);
    void call(Thing thing, const std::function<pa_operation *(void *)> &ask);
    static void onDone(pa_context *context, int success, void *data);
    void finish(const Call &call);

    void publish();

    std::function<void(PulseState)> report_;

    // Of the server's thread.
    bool isStarted_ = false;
    std::unique_ptr<pa_context, Unref> context_;
    std::chrono::milliseconds pause_;  ///< before the next attempt to connect
    bool isReading_ = false;
    bool isOutdated_ = false;  ///< there was a change while it was read
    PulseState reading_;
    PulseState state_;
    std::list<Call> calls_;
    std::set<Thing> busy_;                       ///< one change of a thing at a time
    std::map<QByteArray, pa_cvolume> balanced_;  ///< each sink's volume as others have set it, and audible
    std::map<QByteArray, pa_cvolume> written_;   ///< as it was set here last

    // Of both threads.
    std::mutex mutex_;
    PulseChanges changes_;
    std::optional<PulseState> published_;  ///< changed by the server's thread only
    std::condition_variable isPublished_;

    PulseLoop loop_;  ///< the last, so that the thread ends before anything that it uses
};

}  // namespace pimloft
