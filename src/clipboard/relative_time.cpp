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
    QT_TRANSLATE_NOOP("RelativeTime", "%1 yr. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 yr. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 yr."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 yr.")};
constexpr Unit months{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 mo. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 mo. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 mo."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 mo.")};
constexpr Unit weeks{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 wk. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 wk. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 wk."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 wk.")};
constexpr Unit days{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 day ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 days ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 day"), QT_TRANSLATE_NOOP("RelativeTime", "in %1 days")};
constexpr Unit hours{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 hr. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 hr. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 hr."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 hr.")};
constexpr Unit minutes{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 min. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 min. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 min."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 min.")};
constexpr Unit seconds{
    QT_TRANSLATE_NOOP("RelativeTime", "%1 sec. ago"), QT_TRANSLATE_NOOP("RelativeTime", "%1 sec. ago"),
    QT_TRANSLATE_NOOP("RelativeTime", "in %1 sec."), QT_TRANSLATE_NOOP("RelativeTime", "in %1 sec.")};

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
    return QCoreApplication::translate(context, text).arg(count);
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
