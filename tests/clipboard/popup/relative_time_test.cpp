// SPDX-License-Identifier: MIT
#include "clipboard/relative_time.h"

#include "clipboard/reference_time.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QDateTime now(QDate(2026, 3, 14), QTime(12, 0), Qt::UTC);

struct RelativeTimeCase {
    const char *name;
    QDateTime then;
    const char *text;
};

class RelativeTime : public testing::TestWithParam<RelativeTimeCase> {};

TEST_P(RelativeTime, isSaidInTheLargestWholeUnit) {
    EXPECT_EQ(relativeTime(GetParam().then, now).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Popup, RelativeTime,
    testing::Values(RelativeTimeCase{"now", now, "in 0 sec."},
                    RelativeTimeCase{"halfASecond", now.addMSecs(-500), "in 0 sec."},
                    RelativeTimeCase{"aSecond", now.addSecs(-1), "1 sec. ago"},
                    RelativeTimeCase{"nearlyAMinute", now.addSecs(-59), "59 sec. ago"},
                    RelativeTimeCase{"aMinute", now.addSecs(-60), "1 min. ago"},
                    RelativeTimeCase{"fiveMinutes", now.addSecs(-300), "5 min. ago"},
                    RelativeTimeCase{"nearlyAnHour", now.addSecs(-3599), "59 min. ago"},
                    RelativeTimeCase{"twoHours", now.addSecs(-2 * 3600), "2 hr. ago"},
                    RelativeTimeCase{"aDay", now.addDays(-1), "1 day ago"},
                    RelativeTimeCase{"sixDays", now.addDays(-6), "6 days ago"},
                    RelativeTimeCase{"aWeek", now.addDays(-7), "1 wk. ago"},
                    RelativeTimeCase{"nearlyAMonth", now.addMonths(-1).addSecs(1), "3 wk. ago"},
                    RelativeTimeCase{"aMonth", now.addMonths(-1), "1 mo. ago"},
                    RelativeTimeCase{"nearlyAYear", now.addYears(-1).addSecs(1), "11 mo. ago"},
                    RelativeTimeCase{"threeYears", now.addYears(-3), "3 yr. ago"},
                    RelativeTimeCase{"toCome", now.addSecs(300), "in 5 min."},
                    RelativeTimeCase{"aDayToCome", now.addDays(1), "in 1 day"},
                    RelativeTimeCase{"twoMonthsToCome", now.addMonths(2), "in 2 mo."}),
    [](const auto &info) { return info.param.name; });

TEST(RelativeTimeFarAway, isSaidInYearsOnItsOwnSide) {
    const QString past = relativeTime(ReferenceTime{-1e300}.toDateTime(), now);
    const QString future = relativeTime(ReferenceTime{1e300}.toDateTime(), now);
    EXPECT_TRUE(past.endsWith(QStringLiteral(" yr. ago"))) << qPrintable(past);
    EXPECT_TRUE(future.startsWith(QStringLiteral("in 3"))) << qPrintable(future);
}

}  // namespace
}  // namespace pimloft
