// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <array>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace pimloft::test {

/// What the program holds at one moment. The figures that must not grow, in the order of `figureNames`.
struct Holding {
    double second;
    std::vector<double> values;
};

struct FigureName {
    const char *name;
    const char *unit;
    /// How much more the last quarter's median may be than the second one's: what a program that is used
    /// holds a little more or less of at any moment, without a leak.
    double slack;
};
/// Slack: a decoded picture and the allocator's spare pages come to a few megabytes; a socket or a thread can
/// be on its way at the moment of a sample; some windows of readings that were broken off wait for late
/// answers.
inline constexpr std::array<FigureName, 12> figureNames{{
    {"resident memory", "MB", 8},
    {"proportional memory", "MB", 8},
    {"private memory", "MB", 8},
    {"guard's resident memory", "MB", 0.5},
    {"open handles", "", 4},
    {"guard's open handles", "", 1},
    {"threads", "", 2},
    {"child processes", "", 1},
    {"X windows", "", 8},
    {"X pixmaps", "", 3},
    {"X resources in all", "", 16},
    {"X pixmaps' memory", "MB", 2},
}};

/// Looks at a program from outside: /proc, and the X server's own book of who holds what. One thread.
class HoldingWatch {
public:
    explicit HoldingWatch(pid_t program);
    ~HoldingWatch();
    HoldingWatch(const HoldingWatch &) = delete;
    HoldingWatch &operator=(const HoldingWatch &) = delete;

    Holding look(double second);

private:
    struct OnServer {
        double windows = 0;
        double pixmaps = 0;
        double resources = 0;
        double megabytes = 0;
    };
    OnServer onServer();
    bool belongs(std::uint32_t client);

    const pid_t program_;
    xcb_connection_t *connection_;
    xcb_atom_t window_;
    xcb_atom_t pixmap_;
};

}  // namespace pimloft::test
