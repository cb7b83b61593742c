// SPDX-License-Identifier: MIT
#include "clipboard/relative_time.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QDateTime now(QDate(2026, 3, 14), QTime(12, 0), Qt::UTC);

struct Case {
    const char *name;
    QDateTime then;
    const char *text;
};

class RelativeTime : public testing::TestWithParam<Case> {};

TEST_P(RelativeTime, isSaidInTheLargestWholeUnit) {
    EXPECT_EQ(relativeTime(GetParam().then, now).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Popup, RelativeTime,
                         testing::Values(Case{"now", now, "in 0 sec."},
                                         Case{"halfASecond", now.addMSecs(-500), "in 0 sec."},
                                         Case{"aSecond", now.addSecs(-1), "1 sec. ago"},
                                         Case{"nearlyAMinute", now.addSecs(-59), "59 sec. ago"},
                                         Case{"aMinute", now.addSecs(-60), "1 min. ago"},
                                         Case{"fiveMinutes", now.addSecs(-300), "5 min. ago"},
                                         Case{"nearlyAnHour", now.addSecs(-3599), "59 min. ago"},
                                         Case{"twoHours", now.addSecs(-2 * 3600), "2 hr. ago"},
                                         Case{"aDay", now.addDays(-1), "1 day ago"},
                                         Case{"sixDays", now.addDays(-6), "6 days ago"},
                                         Case{"aWeek", now.addDays(-7), "1 wk. ago"},
                                         Case{"nearlyAMonth", now.addMonths(-1).addSecs(1), "3 wk. ago"},
                                         Case{"aMonth", now.addMonths(-1), "1 mo. ago"},
                                         Case{"nearlyAYear", now.addYears(-1).addSecs(1), "11 mo. ago"},
                                         Case{"threeYears", now.addYears(-3), "3 yr. ago"},
                                         Case{"toCome", now.addSecs(300), "in 5 min."},
                                         Case{"aDayToCome", now.addDays(1), "in 1 day"},
                                         Case{"twoMonthsToCome", now.addMonths(2), "in 2 mo."}),
                         [](const auto &info) { return info.param.name; });

}  // namespace
}  // namespace pimloft
