// SPDX-License-Identifier: MIT
// Uses everything that the program offers for a while, and fails when it holds more and more of anything,
// complains or ends: pimloft_soak [--minutes N] [--seed N] [--report FOLDER]
#include "process_figures.h"
#include "soak/activities.h"
#include "soak/soak_report.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <random>

using namespace pimloft::test;

namespace {

using namespace std::chrono_literals;
using Clock = LoopWatch::Clock;

std::atomic<const char *> current = "starting";

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Each activity as often as it belongs to a round, in an order of its own in every round.
std::vector<const Activity *> shuffledRound(QRandomGenerator &random) {
    std::vector<const Activity *> round;
    for (const Activity &each : activities())
        round.insert(round.end(), std::size_t(each.times), &each);
    std::shuffle(round.begin(), round.end(), random);
    return round;
}

void perform(SoakDesk &desk, const Activity &activity, std::map<std::string, Tally> &tallies,
             const QString &pictures) {
    current = activity.name;
    Tally &tally = tallies[activity.name];
    ++tally.times;
    if (activity.perform(desk)) {
        ++tally.successes;
        return;
    }
    desk.desktop.screenshot().save(
        QStringLiteral("%1/%2 %3.png").arg(pictures, QLatin1String(activity.name)).arg(tally.times));
    // The next one is not to suffer for it.
    for (int time = 0; time < 3 && desk.hasPanel(); ++time) {
        desk.hands.tap(KEY_ESC);
        desk.waitForPanel(false);
    }
}

/// Takes a sample each second for as long as it lives.
class Sampler {
public:
    Sampler(pid_t program, Clock::time_point start)
        : thread_([this, program, start] {
              HoldingWatch watch(program);
              for (Clock::time_point due = start; !done_; due += 1s) {
                  std::this_thread::sleep_until(due);
                  samples_.push_back(watch.look(secondsSince(start)));
              }
          }) {}
    std::vector<Holding> stop() {
        done_ = true;
        thread_.join();
        return samples_;
    }

private:
    std::atomic<bool> done_ = false;
    std::vector<Holding> samples_;
    std::thread thread_;
};

/// Once through everything, so that what is made at the first use is there.
void warmUp(SoakDesk &desk, const QString &pictures) {
    std::map<std::string, Tally> unused;
    for (const Activity *each : shuffledRound(desk.random))
        perform(desk, *each, unused, pictures);
}

SoakResult soak(SoakDesk &desk, quint32 seed, double minutes, const QString &pictures) {
    SoakResult result{.seed = seed, .samples = {}, .answers = {}, .tallies = {}};
    warmUp(desk, pictures);
    const Clock::time_point start = Clock::now();
    const pid_t program = desk.pimloft->pid();
    LoopWatch loop(desk.socket(), program, current, start);
    Sampler sampler(program, start);
    while (secondsSince(start) < minutes * 60 && desk.pimloft->isRunning())
        for (const Activity *each : shuffledRound(desk.random))
            if (secondsSince(start) < minutes * 60 && desk.pimloft->isRunning())
                perform(desk, *each, result.tallies, pictures);
    loop.stop();
    result.samples = sampler.stop();
    result.answers = loop.answers();
    return result;
}

/// Ends the program and says what is left of it or what it has said.
std::vector<std::string> farewell(SoakDesk &desk) {
    std::vector<std::string> objections;
    const std::vector<pid_t> children = pimloft::bench::childrenOf(desk.pimloft->pid());
    if (!desk.pimloft->isRunning())
        objections.emplace_back("it has ended");
    desk.pimloft->signal(SIGTERM);
    if (desk.pimloft->waitForEnd() != 0)
        objections.emplace_back("it does not end well");
    if (const QString said = desk.pimloft->complaints(); !said.isEmpty())
        objections.push_back("it complains: " + said.toStdString());
    for (const pid_t child : children)
        if (!waitUntil([&] { return kill(child, 0) != 0; }))
            objections.emplace_back("a process of its own is left behind");
    if (!desk.hands.keysDown().isEmpty() || !desk.hands.keysDownOnXTest().isEmpty())
        objections.emplace_back("a key is stuck");
    return objections;
}

std::vector<std::string> objectionsTo(const SoakResult &result) {
    std::vector<std::string> objections;
    for (const Growth &each : growthOf(result.samples))
        if (each.isTooMuch())
            objections.push_back(std::string(each.figure->name) + " grows");
    // A machine that is busy spoils a few; what never works is not tested.
    for (const auto &[name, tally] : result.tallies)
        if (2 * tally.successes < tally.times)
            objections.push_back(name + " mostly fail");
    return objections;
}

}  // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Uses the whole program for a while."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("minutes"), QStringLiteral("For how long."), QStringLiteral("number"),
                      QStringLiteral("2")});
    parser.addOption({QStringLiteral("seed"), QStringLiteral("Of the order of everything."),
                      QStringLiteral("number"), QString::number(std::random_device()())});
    parser.addOption({QStringLiteral("report"), QStringLiteral("Where tables and samples are kept."),
                      QStringLiteral("folder"), QStringLiteral("soak")});
    parser.process(application);
    const quint32 seed = parser.value(QStringLiteral("seed")).toUInt();
    std::printf("seed %u\n", seed);
    std::fflush(stdout);

    const QString report = parser.value(QStringLiteral("report"));
    // What failed is to be seen there, and nothing of an earlier run.
    QDir(report).removeRecursively();
    QDir().mkpath(report);
    SoakDesk desk(seed);
    const SoakResult result = soak(desk, seed, parser.value(QStringLiteral("minutes")).toDouble(), report);
    keep(result, report);
    std::printf("\n%s", tablesOf(result).c_str());
    std::vector<std::string> objections = farewell(desk);
    std::ranges::copy(objectionsTo(result), std::back_inserter(objections));
    for (const std::string &each : objections)
        std::printf("\nFAILED: %s\n", each.c_str());
    return objections.empty() ? 0 : 1;
}
