// SPDX-License-Identifier: MIT
#include "quickvolume/record_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <random>

namespace pimloft {
namespace {

std::vector<RecordListModel::Row> rows(const char *letters) {
    std::vector<RecordListModel::Row> list;
    for (const char *letter = letters; *letter; ++letter)
        list.push_back({*letter, QString(QLatin1Char(*letter))});
    return list;
}

std::string content(const RecordListModel &model) {
    QString text;
    for (int row = 0; row < model.count(); ++row)
        text += model.data(model.index(row), Qt::UserRole).toString();
    return text.toStdString();
}

TEST(RecordListModel, offersOneRole) {
    EXPECT_EQ(RecordListModel().roleNames().value(Qt::UserRole), QByteArray("record"));
}

TEST(RecordListModel, answersNothingForAnotherRoleOrNoRow) {
    RecordListModel model;
    model.replace(rows("a"));
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.data({}, Qt::UserRole).isValid());
}

TEST(RecordListModel, whatStaysIsNotTouched) {
    RecordListModel model;
    model.replace(rows("abc"));
    const QPersistentModelIndex b = model.index(1);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.replace(rows("xbd"));
    EXPECT_TRUE(b.isValid());
    EXPECT_EQ(b.row(), 1);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(content(model), "xbd");
}

TEST(RecordListModel, aChangedRecordIsOneChange) {
    RecordListModel model;
    model.replace({{1, 10}, {2, 20}});
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy count(&model, &RecordListModel::countChanged);
    model.replace({{1, 10}, {2, 21}});
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.first().at(0).toModelIndex().row(), 1);
    EXPECT_EQ(count.count(), 0);
}

TEST(RecordListModel, anyListBecomesAnyOther) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    RecordListModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::string letters = "abcdefgh";
    for (int round = 0; round < 500; ++round) {
        std::shuffle(letters.begin(), letters.end(), random);
        const std::string wanted = letters.substr(0, random() % (letters.size() + 1));
        model.replace(rows(wanted.c_str()));
        ASSERT_EQ(content(model), wanted);
    }
}

}  // namespace
}  // namespace pimloft
