// SPDX-License-Identifier: MIT
// Holds every catalogue against the sources that it is for.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <map>

namespace pimloft {
namespace {

const QString sources = QStringLiteral(PIMLOFT_SOURCE_DIR "/src");

struct Message {
    QString type;  ///< "unfinished", "vanished", or empty for what is in order
    QStringList translations;
    bool isCounted = false;
};

/// By context, source and comment.
using Catalogue = std::map<QString, Message>;

Message readMessage(QXmlStreamReader &xml, QString &source) {
    Message message;
    message.isCounted = xml.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("source")) {
            source += xml.readElementText();
        } else if (xml.name() == QLatin1String("comment")) {
            source += QLatin1Char('|') + xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            message.type = xml.attributes().value(QLatin1String("type")).toString();
            if (message.isCounted) {
                while (xml.readNextStartElement())
                    message.translations << xml.readElementText();
            } else {
                message.translations << xml.readElementText();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

Catalogue readCatalogue(const QString &path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    Catalogue catalogue;
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            QString source;
            const Message message = readMessage(xml, source);
            catalogue[context + QStringLiteral(": ") + source] = message;
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    return catalogue;
}

QStringList placeholders(const QString &text) {
    static const QRegularExpression placeholder(QStringLiteral("%(n|L?\\d+)"));
    QStringList found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured();
    found.sort();
    return found;
}

class Catalogues : public testing::TestWithParam<QString> {
protected:
    QString path() const { return sources + QStringLiteral("/i18n/") + GetParam(); }
};

TEST_P(Catalogues, holdEveryTextOfTheSourcesAndNoOther) {
    const QTemporaryDir folder;
    const QString fresh = folder.filePath(GetParam());
    ASSERT_TRUE(QFile::copy(path(), fresh));
    QProcess lupdate;
    lupdate.start(QStringLiteral(PIMLOFT_LUPDATE),
                  {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"), sources,
                   QStringLiteral("-ts"), fresh});
    ASSERT_TRUE(lupdate.waitForFinished(60000));
    ASSERT_EQ(lupdate.exitCode(), 0) << lupdate.readAllStandardError().toStdString();
    const Catalogue texts = readCatalogue(fresh);
    EXPECT_GE(texts.size(), 150u) << "the sources were not found";
    for (const auto &[source, message] : texts)
        EXPECT_EQ(message.type.toStdString(), "")
            << source.toStdString() << "\nBring the catalogue up to date: ./dev translate";
}

TEST_P(Catalogues, leaveNothingUntranslated) {
    for (const auto &[source, message] : readCatalogue(path()))
        for (const QString &translation : message.translations)
            EXPECT_FALSE(translation.trimmed().isEmpty()) << source.toStdString();
}

TEST_P(Catalogues, keepThePlaceholdersOfEachText) {
    for (const auto &[source, message] : readCatalogue(path()))
        for (const QString &translation : message.translations)
            EXPECT_EQ(placeholders(translation), placeholders(source.mid(source.indexOf(u':') + 1)))
                << source.toStdString() << "\n"
                << translation.toStdString();
}

TEST_P(Catalogues, sayWhatIsCountedInEachFormOfTheLanguage) {
    int counted = 0;
    for (const auto &[source, message] : readCatalogue(path())) {
        counted += message.isCounted;
        EXPECT_EQ(message.translations.size(), message.isCounted ? 2 : 1) << source.toStdString();
    }
    EXPECT_GE(counted, 10);
}

TEST_P(Catalogues, leaveTheNamesOfTheProductAndItsModulesAlone) {
    const QStringList names = {
        QStringLiteral("Pimloft"),   QStringLiteral("WindowSnap"),   QStringLiteral("FinderFix"),
        QStringLiteral("KeyMapper"), QStringLiteral("Finder"),       QStringLiteral("Mac"),
        QStringLiteral("Cmd+"),      QStringLiteral("Windows Mode"), QStringLiteral("AppleScript")};
    for (const auto &[key, message] : readCatalogue(path())) {
        const QString source = key.mid(key.indexOf(QLatin1String(": ")) + 2);
        for (const QString &name : names) {
            if (!source.contains(
                    QRegularExpression(QStringLiteral("\\b") + QRegularExpression::escape(name))))
                continue;
            EXPECT_TRUE(message.translations.join(u' ').contains(name))
                << source.toStdString() << " loses " << name.toStdString();
        }
    }
}

std::vector<QString> catalogueFiles() {
    const QStringList names = QDir(sources + QStringLiteral("/i18n")).entryList({QStringLiteral("*.ts")});
    return {names.begin(), names.end()};
}

INSTANTIATE_TEST_SUITE_P(I18n, Catalogues, testing::ValuesIn(catalogueFiles()), [](const auto &info) {
    return QString(info.param).replace(u'.', u'_').toStdString();
});

}  // namespace
}  // namespace pimloft
