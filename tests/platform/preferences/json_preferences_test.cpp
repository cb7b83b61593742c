// SPDX-License-Identifier: MIT
#include "platform/preferences/json_preferences.h"

#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pimloft {
namespace {

const QString sensitivity = QStringLiteral("pimloft.windowsnap.snapSensitivity");
const QString name = QStringLiteral("name");

class JsonPreferencesTest : public testing::Test {
protected:
    QString folder() const { return root_.filePath(QStringLiteral("config/Pimloft")); }
    QString file() const { return folder() + QStringLiteral("/preferences.json"); }

    void writeFile(const QByteArray &bytes) const {
        QDir().mkpath(folder());
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }

    QByteArray fileText(const QString &suffix = {}) const {
        QFile source(file() + suffix);
        return source.open(QIODevice::ReadOnly) ? source.readAll().simplified() : QByteArray("(none)");
    }

    QString files() const { return QDir(folder()).entryList(QDir::Files).join(QLatin1Char(' ')); }

    QTemporaryDir root_;
};

TEST_F(JsonPreferencesTest, answersTheRegisteredValueWhereNothingIsStored) {
    JsonPreferences preferences(folder());
    preferences.registerDefaults({{sensitivity, 10.0}});
    EXPECT_EQ(preferences.number(sensitivity), 10.0);
    EXPECT_FALSE(preferences.object(name).isValid());
    preferences.flush();
    EXPECT_FALSE(QFile::exists(file())) << "registered values are not stored";
}

TEST_F(JsonPreferencesTest, answersAValueAtOnceAndInTheNextRun) {
    {
        JsonPreferences preferences(folder());
        preferences.registerDefaults({{sensitivity, 10.0}});
        preferences.set(sensitivity, 12.0);
        preferences.set(name, QStringList{QStringLiteral("a")});
        EXPECT_EQ(preferences.number(sensitivity), 12.0);
    }
    const JsonPreferences next(folder());
    EXPECT_EQ(next.object(sensitivity), QVariant(12.0));
    EXPECT_EQ(next.object(sensitivity).typeId(), QMetaType::Double);
    EXPECT_EQ(next.texts(name), QStringList{QStringLiteral("a")});
}

TEST_F(JsonPreferencesTest, readsANumberThatTheUserTypedWithoutAPoint) {
    writeFile("{\"pimloft.windowsnap.snapSensitivity\": 12, \"name\": 50.0}");
    const JsonPreferences preferences(folder());
    EXPECT_EQ(preferences.number(sensitivity), 12.0);
    EXPECT_EQ(preferences.integer(name), 50);
}

TEST_F(JsonPreferencesTest, takesAnEqualValueOfAnotherTypeForAChange) {
    JsonPreferences preferences(folder());
    preferences.set(name, 1);
    preferences.set(name, true);
    EXPECT_EQ(preferences.object(name).typeId(), QMetaType::Bool);
    preferences.set(name, 1.0);
    EXPECT_EQ(preferences.object(name).typeId(), QMetaType::Double);
}

TEST_F(JsonPreferencesTest, givesAWholeNumberTheTypeThatItIsReadWith) {
    JsonPreferences preferences(folder());
    preferences.set(name, 50);
    EXPECT_EQ(preferences.object(name).typeId(), QMetaType::LongLong);
}

TEST_F(JsonPreferencesTest, keepsItsFilePrivate) {
    {
        JsonPreferences preferences(folder());
        preferences.set(name, true);
    }
    struct stat info {};
    ASSERT_EQ(stat(QFile::encodeName(file()).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    ASSERT_EQ(stat(QFile::encodeName(folder()).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);
}

TEST_F(JsonPreferencesTest, writesAFirstChangeWhenTheEventLoopIsReached) {
    JsonPreferences preferences(folder());
    preferences.set(name, true);
    EXPECT_EQ(fileText(), "(none)");
    QCoreApplication::processEvents();
    EXPECT_EQ(fileText(), "{ \"name\": true }");
}

TEST_F(JsonPreferencesTest, writesTheStepsOfASliderTogether) {
    JsonPreferences preferences(folder());
    for (double value = 5; value < 30; ++value) {
        preferences.set(sensitivity, value);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(fileText(), "{ \"pimloft.windowsnap.snapSensitivity\": 5.0 }");
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return fileText() == "{ \"pimloft.windowsnap.snapSensitivity\": 29.0 }"; }));
}

TEST_F(JsonPreferencesTest, doesNotWriteAValueThatIsStoredAlready) {
    writeFile("{\"name\":true}");
    JsonPreferences preferences(folder());
    preferences.set(name, true);
    preferences.flush();
    EXPECT_EQ(fileText(), "{\"name\":true}") << "the file was rewritten";
}

TEST_F(JsonPreferencesTest, storesAValueThatEqualsTheRegisteredOne) {
    JsonPreferences preferences(folder());
    preferences.registerDefaults({{name, true}});
    preferences.set(name, true);
    preferences.flush();
    EXPECT_EQ(fileText(), "{ \"name\": true }");
}

TEST_F(JsonPreferencesTest, forgetsAValueThatBecomesInvalid) {
    writeFile("{\"name\":true}");
    JsonPreferences preferences(folder());
    preferences.set(name, {});
    preferences.flush();
    EXPECT_EQ(fileText(), "{}");
}

TEST_F(JsonPreferencesTest, carriesOverValuesThatItDoesNotUnderstand) {
    writeFile("{\"later\":{\"a\":[1]},\"gone\":null}");
    JsonPreferences preferences(folder());
    preferences.registerDefaults({{QStringLiteral("gone"), true}});
    EXPECT_TRUE(preferences.flag(QStringLiteral("gone"))) << "no value: the registered one counts";
    preferences.set(QStringLiteral("gone"), false);
    preferences.flush();
    EXPECT_EQ(fileText(), "{ \"gone\": false, \"later\": {\"a\":[1]} }");
}

TEST_F(JsonPreferencesTest, keepsADamagedFileAsideBeforeTheFirstWrite) {
    writeFile("{\"name\":");
    JsonPreferences preferences(folder());
    preferences.registerDefaults({{name, true}});
    EXPECT_TRUE(preferences.flag(name));
    EXPECT_EQ(files(), QStringLiteral("preferences.json")) << "reading alone changes nothing";
    preferences.set(name, false);
    preferences.flush();
    EXPECT_EQ(fileText(), "{ \"name\": false }");
    EXPECT_EQ(fileText(QStringLiteral(".corrupt")), "{\"name\":");
}

TEST_F(JsonPreferencesTest, keepsEachDamagedFile) {
    for (const char *damage : {"one", "two", "three"}) {
        writeFile(damage);
        JsonPreferences preferences(folder());
        preferences.set(name, true);
    }
    EXPECT_EQ(fileText(QStringLiteral(".corrupt")), "one");
    EXPECT_EQ(fileText(QStringLiteral(".corrupt-2")), "two");
    EXPECT_EQ(fileText(QStringLiteral(".corrupt-3")), "three");
    EXPECT_EQ(fileText(), "{ \"name\": true }");
}

TEST_F(JsonPreferencesTest, startsWithDefaultsWhereTheFileCannotBeRead) {
    QDir().mkpath(file() + QStringLiteral("/inside"));
    {
        JsonPreferences preferences(folder());
        preferences.registerDefaults({{name, true}});
        EXPECT_TRUE(preferences.flag(name));
        preferences.set(name, false);
    }
    EXPECT_EQ(fileText(), "{ \"name\": false }");
    EXPECT_TRUE(QFile::exists(file() + QStringLiteral(".corrupt/inside")));
}

TEST_F(JsonPreferencesTest, keepsTheOldFileAndTheRunningValuesOnAFullDisk) {
    writeFile("{\"name\":true}");
    JsonPreferences preferences(folder());
    {
        const test::FullDisk full(8);
        preferences.set(name, false);
        preferences.set(sensitivity, 12.0);
        preferences.flush();
        EXPECT_FALSE(preferences.flag(name));
    }
    EXPECT_EQ(fileText(), "{\"name\":true}");
    EXPECT_EQ(files(), QStringLiteral("preferences.json"));
    preferences.set(QStringLiteral("third"), 3);
    preferences.flush();
    EXPECT_EQ(fileText(), "{ \"name\": false, \"pimloft.windowsnap.snapSensitivity\": 12.0, \"third\": 3 }");
}

TEST_F(JsonPreferencesTest, runsWithoutAFolderThatItCanWriteTo) {
    QDir().mkpath(root_.filePath(QStringLiteral("config")));
    QFile obstacle(folder());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    JsonPreferences preferences(folder());
    preferences.set(name, true);
    preferences.flush();
    EXPECT_TRUE(preferences.flag(name));
    ASSERT_TRUE(obstacle.remove());
    preferences.flush();
    EXPECT_EQ(fileText(), "{ \"name\": true }");
}

TEST_F(JsonPreferencesTest, isNeverTornByAKill) {
    // A child writes as fast as it can and is killed at some moment; what it leaves can be read.
    for (int round = 0; round < 5; ++round) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            JsonPreferences preferences(folder());
            for (qint64 value = 0;; ++value) {
                preferences.set(name, value);
                preferences.flush();
                if (value == 20 && write(ready[1], "x", 1) != 1)
                    _exit(1);
            }
        }
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(ready[0]);
        close(ready[1]);
        EXPECT_GE(JsonPreferences(folder()).integer(name), 20);
        EXPECT_FALSE(QFile::exists(file() + QStringLiteral(".corrupt")));
    }
}

}  // namespace
}  // namespace pimloft
