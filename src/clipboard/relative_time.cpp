// SPDX-License-Identifier: MIT
#include "clipboard/relative_time.h"

#include <QCoreApplication>

#include <array>

namespace pimloft {

namespace {

constexpr const char *context = "RelativeTime";

/// What is said of one of a unit and of several, past and to come.
struct Unit {
    const char *oneAgo;
    const char *someAgo;
    const char *inOne;
    const char *inSome;
};

constexpr Unit years{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n yr. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n yr. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n yr."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n yr.")};
constexpr Unit months{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n mo. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n mo. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n mo."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n mo.")};
constexpr Unit weeks{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n wk. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n wk. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n wk."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n wk.")};
constexpr Unit days{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n day ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n days ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n day"), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n days")};
constexpr Unit hours{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n hr. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n hr. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n hr."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n hr.")};
constexpr Unit minutes{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n min. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n min. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n min."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n min.")};
constexpr Unit seconds{
    QT_TRANSLATE_N_NOOP("RelativeTime", "%n sec. ago"), QT_TRANSLATE_N_NOOP("RelativeTime", "%n sec. ago"),
    QT_TRANSLATE_N_NOOP("RelativeTime", "in %n sec."), QT_TRANSLATE_N_NOOP("RelativeTime", "in %n sec.")};

/// Units that always take as long.
struct Span {
    Unit unit;
    qint64 seconds;
};
constexpr std::array<Span, 5> spans{
    {{weeks, 7 * 86'400}, {days, 86'400}, {hours, 3'600}, {minutes, 60}, {seconds, 1}}};

/// Whole months of the calendar from the earlier to the later of two times.
qint64 wholeMonths(const QDateTime &earlier, const QDateTime &later) {
    const QDate from = earlier.date();
    const QDate to = later.date();
    const int passed = (to.year() - from.year()) * 12 + to.month() - from.month();
    return earlier.addMonths(passed) > later ? passed - 1 : passed;
}

QString said(const Unit &unit, qint64 count, bool isPast) {
    const char *text =
        isPast ? (count == 1 ? unit.oneAgo : unit.someAgo) : (count == 1 ? unit.inOne : unit.inSome);
    return QCoreApplication::translate(context, text, nullptr, int(count));
}

}  // namespace

QString relativeTime(const QDateTime &then, const QDateTime &now) {
    const qint64 passed = then.msecsTo(now) / 1000;
    const bool isPast = passed > 0;
    const qint64 monthCount = isPast ? wholeMonths(then, now) : wholeMonths(now, then);
    if (monthCount >= 12)
        return said(years, monthCount / 12, isPast);
    if (monthCount > 0)
        return said(months, monthCount, isPast);
    const qint64 length = qAbs(passed);
    for (const Span &span : spans)
        if (length >= span.seconds)
            return said(span.unit, length / span.seconds, isPast);
    return said(seconds, 0, isPast);
}

}  // namespace pimloft
