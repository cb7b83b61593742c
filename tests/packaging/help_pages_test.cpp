// SPDX-License-Identifier: MIT
#include "platform/workspace/help_topics.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QString help = QStringLiteral(PIMLOFT_HELP);

QStringList pages() {
    return QDir(help).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

/// What a page refers to, in the order of its text. Fails the test where the page is not well-formed.
QStringList references(const QString &page) {
    QFile file(help + QLatin1Char('/') + page);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << page.toStdString();
    QXmlStreamReader xml(&file);
    QStringList found;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        for (const char *attribute : {"href", "src"})
            if (xml.attributes().hasAttribute(QLatin1String(attribute)))
                found << xml.attributes().value(QLatin1String(attribute)).toString();
    }
    EXPECT_FALSE(xml.hasError()) << page.toStdString() << ":" << xml.lineNumber() << ": "
                                 << xml.errorString().toStdString();
    return found;
}

TEST(HelpPages, areInTheBuildFolderAsTheyWillBeInstalled) {
    EXPECT_GE(pages().size(), 6);
    EXPECT_TRUE(pages().contains(QStringLiteral("index.html")));
}

TEST(HelpPages, referOnlyToWhatIsInstalledBesideThem) {
    for (const QString &page : pages())
        for (const QString &reference : references(page))
            EXPECT_TRUE(QFile::exists(help + QLatin1Char('/') + reference))
                << page.toStdString() << " refers to " << reference.toStdString();
}

TEST(HelpPages, areAllReachedFromTheFirst) {
    const QStringList known = references(QStringLiteral("index.html"));
    for (const QString &page : pages())
        EXPECT_TRUE(known.contains(page)) << page.toStdString();
}

TEST(HelpPages, answerEverySettingsLinkOfTheProgram) {
    for (const char *link : {"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility",
                             "x-apple.systempreferences:com.apple.preferences.extensions?Finder"})
        EXPECT_TRUE(helpPage(QUrl(QLatin1String(link)), help).has_value()) << link;
}

}  // namespace
}  // namespace pimloft
