// SPDX-License-Identifier: MIT
// Measures Pimloft against its budgets: pimloft_bench [--quick] [--samples FOLDER] [NAME...]
#include "measures.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <array>
#include <cstdio>

using namespace pimloft::bench;

namespace {

/// Peers come first: their figures stand beside ours.
constexpr struct {
    const char *name;
    void (*measure)(Table &, Extent);
} measures[] = {
    {"copyq", measureCopyQ},
    {"start", measureStart},
    {"rest", measureRest},
    {"drag", measureDrag},
    {"placement", measurePlacement},
    {"keytap", measureKeyTap},
    {"pasteboard", measurePasteboard},
    {"popup", measurePopup},
    {"capture", measureCapture},
    {"history", measureHistory},
    {"rules", measureRules},
    {"sound", measureSound},
    {"finder", measureFinder},
    {"moves", measureMoves},
};

}  // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints each figure beside its budget."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("quick"), QStringLiteral("Fewer samples, no minute-long waits.")});
    parser.addOption({QStringLiteral("samples"), QStringLiteral("Where the samples are kept, if at all."),
                      QStringLiteral("folder")});
    parser.addPositionalArgument(
        QStringLiteral("name"),
        QStringLiteral("copyq, start, rest, drag, placement, keytap, pasteboard, popup, "
                       "capture, history, rules, sound, finder, moves; all without one"),
        QStringLiteral("[name...]"));
    parser.process(application);
    const QStringList wanted = parser.positionalArguments();
    Table table(parser.value(QStringLiteral("samples")));
    for (const auto &each : measures)
        if (wanted.isEmpty() || wanted.contains(QLatin1String(each.name)))
            each.measure(table, {.quick = parser.isSet(QStringLiteral("quick"))});
}
