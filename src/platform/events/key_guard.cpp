// SPDX-License-Identifier: MIT
#include "platform/events/key_guard.h"

#include "platform/events/key_guard_channel.h"

#include <cerrno>
#include <csignal>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pimloft {

namespace {

/// How the guard is to find its surroundings: the channel alone, no signal of the terminal's, none ignored.
class Surroundings {
public:
    explicit Surroundings(int channel) {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, channel, guardChannel);
        posix_spawn_file_actions_addclosefrom_np(&files, guardChannel + 1);
        posix_spawnattr_init(&attributes);
        // Held back until the guard ignores them: it must not die before it has begun.
        sigset_t early;
        sigset_t all;
        sigemptyset(&early);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            sigaddset(&early, signal);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes, &early);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setflags(
            &attributes,
            static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP));
    }
    ~Surroundings() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    Surroundings(const Surroundings &) = delete;
    Surroundings &operator=(const Surroundings &) = delete;

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};

}  // namespace

bool KeyGuard::start(xcb_window_t window) {
    end();
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return false;
    const Surroundings surroundings(ends[1]);
    std::string argument = std::to_string(window);
    char *arguments[] = {program_.data(), argument.data(), nullptr};
    const int error = posix_spawn(&process_, program_.c_str(), &surroundings.files, &surroundings.attributes,
                                  arguments, environ);
    close(ends[1]);
    if (error != 0) {
        process_ = -1;
        close(ends[0]);
        return false;
    }
    channel_ = ends[0];
    return true;
}

void KeyGuard::end() {
    // Killed before it can see the channel close, which would tell it that the tap has died.
    if (process_ > 0) {
        kill(process_, SIGKILL);
        while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
        process_ = -1;
    }
    if (channel_ >= 0)
        close(channel_);
    channel_ = -1;
}

bool KeyGuard::answer() {
    char questions[16];
    const ssize_t asked = recv(channel_, questions, sizeof questions, MSG_DONTWAIT);
    if (asked > 0)
        return send(channel_, questions, 1, MSG_DONTWAIT | MSG_NOSIGNAL) == 1;
    return asked < 0 && (errno == EAGAIN || errno == EINTR);
}

}  // namespace pimloft
