// SPDX-License-Identifier: MIT
// A program with a key tap, for tests that kill and stop it: tap_program GUARD [busy]
#include "platform/events/swap_filter.h"
#include "platform/events/x11_key_tap.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <thread>
#include <unistd.h>

using namespace pimloft;

namespace {

void say(const char *what) {
    std::printf("%s\n", what);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    X11Session session;
    X11RawInput input(session);
    X11Keyboard keyboard(session, input);
    X11KeyTap tap(keyboard, application.arguments().value(1));
    tap.onNotice = [&](KeyTap::Notice) {
        tap.enable();
        say("enabled again");
    };
    if (!tap.install(std::make_shared<test::SwapFilter>()))
        return 1;
    say("ready");
    if (application.arguments().contains(QStringLiteral("busy")))
        for (;;)
            pause();
    // The end of the standard input ends it in good order.
    QSocketNotifier end(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&end, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
