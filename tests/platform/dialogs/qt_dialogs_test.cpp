// SPDX-License-Identifier: MIT
#include "platform/dialogs/qt_dialogs.h"

#include "support/desktop_session.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

using test::waitUntil;

template <typename Dialog>
Dialog *openDialog() {
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *dialog = qobject_cast<Dialog *>(widget); dialog && dialog->isVisible())
            return dialog;
    return nullptr;
}

class Dialogs : public testing::Test {
protected:
    void warn() {
        dialogs_.alert({.style = Alert::Style::warning,
                        .message = QStringLiteral("Cannot move <b>file</b>"),
                        .informativeText = QStringLiteral("<i>because</i>"),
                        .button = QStringLiteral("OK")},
                       context_.get(), [this] { ++answers_; });
    }
    void askToSave() {
        dialogs_.askForSavePath({.title = QStringLiteral("Export"),
                                 .proposedName = folder_.filePath(QStringLiteral("keys.json")),
                                 .mimeType = QStringLiteral("application/json")},
                                context_.get(), [this](auto path) { take(path); });
    }
    void askToOpen() {
        dialogs_.askForOpenPath({.title = QStringLiteral("Import"),
                                 .proposedName = {},
                                 .mimeType = QStringLiteral("application/json")},
                                context_.get(), [this](auto path) { take(path); });
    }
    void take(std::optional<QString> path) {
        ++answers_;
        path_ = std::move(path);
    }
    bool isAnswered() {
        return waitUntil([this] { return answers_ > 0; });
    }
    /// Turns the event loop once more, for an answer that must not come.
    static void settle() { QCoreApplication::processEvents(); }

    std::unique_ptr<QObject> context_ = std::make_unique<QObject>();
    QTemporaryDir folder_;
    int answers_ = 0;
    std::optional<QString> path_ = QStringLiteral("(no answer)");
    QtDialogs dialogs_;
};

TEST_F(Dialogs, showAnAlertInFrontAndTellOnceThatItWasClosed) {
    warn();
    auto *box = openDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(waitUntil([&] { return box->isActiveWindow(); }));
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    ASSERT_EQ(box->buttons().size(), 1);
    EXPECT_EQ(box->buttons().first()->text(), QStringLiteral("OK"));
    box->buttons().first()->click();
    EXPECT_EQ(answers_, 0) << "the answer is queued";
    EXPECT_TRUE(isAnswered());
    settle();
    EXPECT_EQ(answers_, 1);
    EXPECT_EQ(openDialog<QMessageBox>(), nullptr);
}

TEST_F(Dialogs, bearTheProgramsNameAndSetTheMessageOffFromItsExplanation) {
    warn();
    auto *box = openDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Pimloft"));
    const auto weight = [box](const char *label) {
        return box->findChild<QLabel *>(QLatin1String(label))->font().weight();
    };
    EXPECT_GT(weight("qt_msgbox_label"), weight("qt_msgbox_informativelabel"));
}

TEST_F(Dialogs, showTextsAsTheyStand) {
    warn();
    auto *box = openDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    for (const QLabel *label : box->findChildren<QLabel *>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    EXPECT_EQ(box->text(), QStringLiteral("Cannot move <b>file</b>"));
    EXPECT_EQ(box->informativeText(), QStringLiteral("<i>because</i>"));
}

TEST_F(Dialogs, takeAnAlertThatIsDismissedForClosed) {
    warn();
    auto *box = openDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_TRUE(isAnswered());
}

TEST_F(Dialogs, closeUnansweredWhenNobodyIsLeftToAnswer) {
    warn();
    askToSave();
    context_.reset();
    EXPECT_EQ(openDialog<QDialog>(), nullptr);
    settle();
    EXPECT_EQ(answers_, 0);
}

TEST_F(Dialogs, doNotAnswerAContextThatGoesAwayMeanwhile) {
    warn();
    openDialog<QMessageBox>()->accept();
    context_.reset();
    settle();
    EXPECT_EQ(answers_, 0);
}

TEST_F(Dialogs, closeWithTheService) {
    {
        QtDialogs short_lived;
        short_lived.alert({.style = {}, .message = {}, .informativeText = {}, .button = {}}, context_.get(),
                          {});
        EXPECT_NE(openDialog<QMessageBox>(), nullptr);
    }
    EXPECT_EQ(openDialog<QMessageBox>(), nullptr);
}

TEST_F(Dialogs, answerWhereToSave) {
    askToSave();
    auto *dialog = openDialog<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(waitUntil([&] { return dialog->isActiveWindow(); }));
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Export"));
    QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(path_, folder_.filePath(QStringLiteral("keys.json")));
}

TEST_F(Dialogs, addTheSuffixOfTheType) {
    askToSave();
    auto *dialog = openDialog<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(folder_.filePath("other"));
    QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(path_, folder_.filePath(QStringLiteral("other.json")));
}

TEST_F(Dialogs, answerWhatToOpen) {
    QFile file(folder_.filePath(QStringLiteral("keys.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    askToOpen();
    auto *dialog = openDialog<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(file.fileName());
    QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(path_, file.fileName());
}

TEST_F(Dialogs, answerNothingWhenTheUserCancels) {
    askToOpen();
    ASSERT_NE(openDialog<QFileDialog>(), nullptr);
    openDialog<QFileDialog>()->reject();
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(path_, std::nullopt);
    path_ = QStringLiteral("(no answer)");
    answers_ = 0;
    askToSave();
    openDialog<QFileDialog>()->close();
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(path_, std::nullopt);
}

}  // namespace
}  // namespace pimloft
