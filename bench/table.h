// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <optional>
#include <vector>

namespace pimloft::bench {

/// One thing that was measured: its samples in the order in which they were taken.
struct Figure {
    QString name;
    QString unit;
    std::optional<double> budget;  ///< what the median is held against; nothing where a figure only informs
    std::vector<double> samples;
    QString peer = {};  ///< the program that was measured, when it is not ours
};

/// The sample that `share` (0 to 1) of all do not exceed.
double quantile(std::vector<double> samples, double share);

/// Prints one line per figure of ours, with those of peers beside it, and may keep all samples. Main thread.
class Table {
public:
    /// `folder` receives a file of comma-separated values per figure; empty: they are not kept.
    explicit Table(const QString &folder);
    /// Prints what peers did and we did not.
    ~Table();
    Table(const Table &) = delete;
    Table &operator=(const Table &) = delete;

    /// A peer's figure stands beside ours of the same name, which has to come after it.
    void add(const Figure &figure);

private:
    void print(const Figure &figure, const QString &name, const QString &beside) const;
    void keep(const Figure &figure) const;

    QString folder_;
    QMap<QString, QList<Figure>> peers_;  ///< whose line has not been printed yet, by name
};

}  // namespace pimloft::bench
