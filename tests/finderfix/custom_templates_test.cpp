// SPDX-License-Identifier: MIT
#include "finderfix/custom_templates.h"
#include "finderfix/new_file_service.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

std::string names(const std::vector<FileUrl> &files) {
    QByteArrayList names;
    for (const FileUrl &file : files)
        names << file.lastPathComponent();
    return names.join(' ').toStdString();
}

class Templates : public testing::Test {
protected:
    void put(const QString &name, const QByteArray &content = "x") {
        QFile file(service.templatesDirectory() + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }

    QTemporaryDir home;
    const NewFileService service{home.filePath(QStringLiteral("share/Pimloft"))};
};

TEST_F(Templates, readingTheDirectoryMakesItForThisUserOnly) {
    const QString path = home.filePath(QStringLiteral("share/Pimloft/Templates"));
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(service.templatesDirectory(), path);
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(QFileInfo(path).permissions() & 0x0077, 0);
    ASSERT_TRUE(QDir(path).removeRecursively());
    EXPECT_EQ(service.templatesDirectory(), path);
    EXPECT_TRUE(QFileInfo(path).isDir()) << "each time";
}

TEST_F(Templates, areListedInPlainOrderWithoutTheHiddenOnes) {
    for (const char *name : {"b.txt", "B.txt", "a.txt", ".hidden", "é.txt", "10", "9"})
        put(QString::fromUtf8(name));
    QDir(service.templatesDirectory()).mkdir(QStringLiteral("folder"));
    EXPECT_EQ(names(service.customTemplates()), "10 9 B.txt a.txt b.txt folder é.txt");
}

TEST_F(Templates, aNameThatIsNoTextIsListed) {
    const QByteArray path = QFile::encodeName(service.templatesDirectory()) + "/\xFF.txt";
    fclose(fopen(path.constData(), "w"));
    EXPECT_EQ(names(service.customTemplates()), "\xFF.txt");
    remove(path.constData());
}

TEST_F(Templates, thereAreNoneWhereTheFolderCannotBeRead) {
    ASSERT_TRUE(home.isValid());
    QFile file(home.filePath(QStringLiteral("share")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    EXPECT_TRUE(service.customTemplates().empty());
}

TEST_F(Templates, aNewOneIsNoticed) {
    CustomTemplates templates(service);
    EXPECT_EQ(names(templates.read()), "");
    QSignalSpy changed(&templates, &CustomTemplates::changed);
    put(QStringLiteral("a.txt"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return names(templates.list()) == "a.txt"; }));
    EXPECT_GE(changed.count(), 1);
}

TEST_F(Templates, aChangeWithinOneIsNoticed) {
    put(QStringLiteral("a.txt"));
    CustomTemplates templates(service);
    templates.read();
    QSignalSpy changed(&templates, &CustomTemplates::changed);
    put(QStringLiteral("a.txt"), "other");
    EXPECT_TRUE(changed.wait());
}

TEST_F(Templates, theFolderIsMadeAgainWhenItIsRemoved) {
    CustomTemplates templates(service);
    put(QStringLiteral("a.txt"));
    templates.read();
    const QString path = home.filePath(QStringLiteral("share/Pimloft/Templates"));
    QDir(path).removeRecursively();
    ASSERT_TRUE(QTest::qWaitFor([&] { return templates.list().empty() && QFileInfo(path).isDir(); }));
    put(QStringLiteral("b.txt"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return names(templates.list()) == "b.txt"; }));
}

}  // namespace
}  // namespace pimloft
