// SPDX-License-Identifier: MIT
// Started by Pimloft while it holds the physical keyboards: pimloft-keyguard WINDOW
#include "keyguard/guard.h"

#include <csignal>
#include <cstdlib>

int main(int argc, char **argv) {
    if (argc != 2)
        return 2;
    // It ends with the program that it watches over, and not before.
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        std::signal(signal, SIG_IGN);
    pimloft::Guard guard(xcb_window_t(std::strtoul(argv[1], nullptr, 10)));
    return guard.run();
}
