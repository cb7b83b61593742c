// SPDX-License-Identifier: MIT
#pragma once

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
};

/// The sample that `share` (0 to 1) of all do not exceed.
double quantile(std::vector<double> samples, double share);

/// Prints one line per figure and keeps its samples. Main thread.
class Table {
public:
    /// `folder` receives a file of comma-separated values per figure.
    explicit Table(const QString &folder);
    void add(const Figure &figure);

private:
    void keep(const Figure &figure) const;

    QString folder_;
};

}  // namespace pimloft::bench
