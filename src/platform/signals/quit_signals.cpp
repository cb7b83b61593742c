// SPDX-License-Identifier: MIT
#include "platform/signals/quit_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pimloft {

namespace {

constexpr std::array quitSignals{SIGINT, SIGTERM, SIGHUP};

/// Where the handler writes; a handler can be given nothing but globals.
volatile std::sig_atomic_t handlerPipe = -1;

void handle(int) {
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(handlerPipe, &byte, 1);
    errno = saved;
}

}  // namespace

QuitSignals::Pipe::Pipe() {
    int ends[2];
    if (pipe(ends) != 0)
        return;
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    // A full pipe already says what there is to say: the handler must not wait.
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    readEnd = ends[0];
    writeEnd = ends[1];
}

QuitSignals::Pipe::~Pipe() {
    close(readEnd);
    close(writeEnd);
}

QuitSignals::QuitSignals(std::function<void()> onQuit) : notifier_(pipe_.readEnd, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, onQuit = std::move(onQuit)] {
        char byte;
        if (read(pipe_.readEnd, &byte, 1) == 1)
            onQuit();
    });
    handlerPipe = pipe_.writeEnd;
    for (const int signal : quitSignals)
        std::signal(signal, handle);
}

QuitSignals::~QuitSignals() {
    for (const int signal : quitSignals)
        std::signal(signal, SIG_DFL);
    handlerPipe = -1;
}

}  // namespace pimloft
