// SPDX-License-Identifier: MIT
#include "clipboard/byte_count.h"

#include <cmath>

namespace pimloft {

namespace {

constexpr struct {
    const char *name;
    int decimals;
} units[] = {{"KB", 0}, {"MB", 1}, {"GB", 2}, {"TB", 2}, {"PB", 2}, {"EB", 2}};

double rounded(double value, int decimals) {
    const double scale = std::pow(10, decimals);
    return std::round(value * scale) / scale;
}

}  // namespace

QString byteCountText(qint64 bytes) {
    if (bytes == 0)
        return QStringLiteral("Zero KB");
    if (bytes == 1)
        return QStringLiteral("1 byte");
    if (bytes < 1000)
        return QStringLiteral("%1 bytes").arg(bytes);
    double value = double(bytes) / 1000;
    auto unit = std::begin(units);
    // 999,600 bytes are 1 MB, not 1000 KB. No count comes to 1000 EB.
    for (; rounded(value, unit->decimals) >= 1000; ++unit)
        value /= 1000;
    // Without an exponent and without zeros at the end.
    return QStringLiteral("%1 %2")
        .arg(rounded(value, unit->decimals), 0, 'g', 6)
        .arg(QLatin1String(unit->name));
}

}  // namespace pimloft
