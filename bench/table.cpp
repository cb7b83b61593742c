// SPDX-License-Identifier: MIT
#include "table.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace pimloft::bench {

namespace {

QString shortly(double value) {
    return QString::number(value, 'f', value < 10 ? 2 : value < 100 ? 1 : 0);
}

}  // namespace

double quantile(std::vector<double> samples, double share) {
    if (samples.empty())
        return std::nan("");
    std::sort(samples.begin(), samples.end());
    const auto rank = std::size_t(std::ceil(share * double(samples.size())));
    return samples[std::clamp<std::size_t>(rank, 1, samples.size()) - 1];
}

Table::Table(const QString &folder) : folder_(folder) {
    if (!folder_.isEmpty())
        QDir().mkpath(folder_);
    std::printf("%-58s %5s %9s %9s %9s %9s %6s\n", "", "unit", "budget", "median", "p99", "max", "n");
}

Table::~Table() {
    for (const QList<Figure> &figures : peers_)
        for (const Figure &figure : figures)
            print(figure, figure.peer + QStringLiteral(": ") + figure.name, {});
}

void Table::add(const Figure &figure) {
    keep(figure);
    if (!figure.peer.isEmpty()) {
        peers_[figure.name].append(figure);
        return;
    }
    QStringList beside;
    for (const Figure &peer : peers_.take(figure.name))
        beside +=
            QStringLiteral("%1: %2 / %3")
                .arg(peer.peer, shortly(quantile(peer.samples, 0.5)), shortly(quantile(peer.samples, 0.99)));
    print(figure, figure.name, beside.join(QStringLiteral(", ")));
}

void Table::print(const Figure &figure, const QString &name, const QString &beside) const {
    const double median = quantile(figure.samples, 0.5);
    const char *verdict = !figure.budget ? "" : median <= *figure.budget ? "ok" : "OVER";
    std::printf("%-58s %5s %9s %9s %9s %9s %6zu  %-4s  %s\n", qPrintable(name), qPrintable(figure.unit),
                figure.budget ? qPrintable(shortly(*figure.budget)) : "-", qPrintable(shortly(median)),
                qPrintable(shortly(quantile(figure.samples, 0.99))),
                qPrintable(shortly(quantile(figure.samples, 1))), figure.samples.size(), verdict,
                qPrintable(beside));
    std::fflush(stdout);
}

void Table::keep(const Figure &figure) const {
    if (folder_.isEmpty())
        return;
    QString name = figure.peer + QLatin1Char(' ') + figure.name;
    name = name.trimmed().replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]+")), QStringLiteral("-"));
    QFile file(folder_ + QLatin1Char('/') + name + QStringLiteral(".csv"));
    if (!file.open(QIODevice::WriteOnly))
        return;
    QTextStream stream(&file);
    stream << figure.name << " (" << figure.unit << ")\n";
    for (const double sample : figure.samples)
        stream << sample << '\n';
}

}  // namespace pimloft::bench
