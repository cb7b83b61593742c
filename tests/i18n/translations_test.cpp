// SPDX-License-Identifier: MIT
#include "i18n/translations.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

std::string quit() {
    return QCoreApplication::translate("MenuBarPopover", "Quit").toStdString();
}

std::string daysAgo(int count) {
    const char *source = count == 1 ? "%n day ago" : "%n days ago";
    return QCoreApplication::translate("RelativeTime", source, nullptr, count).toStdString();
}

TEST(Translations, speakTheLanguageOfTheLocale) {
    const Translations german(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(quit(), "Beenden");
}

TEST(Translations, speakALanguageToAllWhoShareIt) {
    const Translations austrian(QLocale(QStringLiteral("de_AT")));
    EXPECT_EQ(quit(), "Beenden");
}

TEST(Translations, leaveEnglishToThoseWhoReadEnglish) {
    for (const char *name : {"en_US", "en_GB", "C"}) {
        const Translations english{QLocale(QLatin1String(name))};
        EXPECT_EQ(quit(), "Quit") << name;
    }
}

TEST(Translations, areInEnglishWhereThereIsNoCatalogue) {
    const Translations faroese(QLocale(QStringLiteral("fo_FO")));
    EXPECT_EQ(quit(), "Quit");
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"))
        << "Qt's dialogs are in the same language as all else";
}

TEST(Translations, endWithTheirObject) {
    { const Translations german(QLocale(QStringLiteral("de"))); }
    EXPECT_EQ(quit(), "Quit");
}

TEST(Translations, countAsTheLanguageDoes) {
    EXPECT_EQ(daysAgo(1), "1 day ago");
    EXPECT_EQ(daysAgo(3), "3 days ago");
    const Translations german(QLocale(QStringLiteral("de")));
    EXPECT_EQ(daysAgo(1), "vor 1 Tag");
    EXPECT_EQ(daysAgo(3), "vor 3 Tagen");
    const auto items = [](int count) {
        return QCoreApplication::translate("pimloft::ClipboardPopup", "%n items", nullptr, count);
    };
    EXPECT_EQ(items(1), QStringLiteral("1 Eintrag"));
    EXPECT_EQ(items(0), QStringLiteral("0 Einträge"));
}

TEST(Translations, knowInWhichDirectionTheUserReads) {
    EXPECT_EQ(Translations::direction(QLocale(QStringLiteral("he_IL"))), Qt::RightToLeft);
    EXPECT_EQ(Translations::direction(QLocale(QStringLiteral("ar_EG"))), Qt::RightToLeft);
    EXPECT_EQ(Translations::direction(QLocale(QStringLiteral("de_DE"))), Qt::LeftToRight);
    EXPECT_EQ(Translations::direction(QLocale::c()), Qt::LeftToRight);
}

}  // namespace
}  // namespace pimloft
