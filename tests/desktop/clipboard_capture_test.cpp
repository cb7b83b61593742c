// SPDX-License-Identifier: MIT
// What is copied in real programs, as it comes into the history.
#include "desktop/support/clipboard_desk.h"

#include <QDir>
#include <QUrl>

#include <csignal>

namespace pimloft::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ClipboardCapture : public ClipboardDesk {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }
};

TEST_F(ClipboardCapture, recordsTextInTheOrderInWhichItWasCopied) {
    startWatching();
    copyText("first");
    copyText("second \xc3\xa4");
    copyText("first");
    EXPECT_THAT(history(), ElementsAre("text: first", "text: second \xc3\xa4"));
}

TEST_F(ClipboardCapture, recordsTextOfAQtEditorWithItsMarkup) {
    startWatching();
    openEditor(Editor::qt);
    hands().type("typed");
    expectContent("typed");
    hands().chord({KEY_LEFTCTRL, KEY_A});
    hands().chord({KEY_LEFTCTRL, KEY_C});
    EXPECT_TRUE(waitUntil([&] { return !history().empty(); }));
    EXPECT_THAT(history(), ElementsAre(testing::AllOf(testing::StartsWith("html: "), HasSubstr("typed"))));
}

TEST_F(ClipboardCapture, recordsTextOfAGtkEditor) {
    startWatching();
    openEditor(Editor::gtk);
    hands().type("typed");
    expectContent("typed");
    hands().chord({KEY_LEFTCTRL, KEY_A});
    hands().chord({KEY_LEFTCTRL, KEY_C});
    expectNewest("text: typed");
}

TEST_F(ClipboardCapture, recordsTextSelectedInATerminal) {
    startWatching();
    const xcb_window_t terminal = openEditor(Editor::xterm);
    hands().type("terminal");
    hands().tap(KEY_ENTER);
    expectContent("terminal");
    const QRect frame = desktop().visibleFrame(terminal);
    hands().doubleClick({frame.x() + 20, desktop().titleBar(terminal).y() + 20});
    expectNewest("text: terminal");
}

TEST_F(ClipboardCapture, recordsTheFirstOfThreeFilesOfAFileManager) {
    const QString first = makeFile(QStringLiteral("papers/a b.txt"));
    makeFile(QStringLiteral("papers/c.txt"));
    makeFile(QStringLiteral("papers/d.txt"));
    startWatching();
    openFileManager(session().home() + QStringLiteral("/papers"));
    // A file manager may still be reading the folder when its window comes up.
    EXPECT_TRUE(waitUntil(
        [&] {
            hands().chord({KEY_LEFTCTRL, KEY_A});
            hands().chord({KEY_LEFTCTRL, KEY_C});
            return waitUntil([&] { return !history().empty(); }, 1500);
        },
        20000));
    EXPECT_THAT(history(), ElementsAre("fileURL: " + QUrl::fromLocalFile(first).toEncoded().toStdString()));
}

TEST_F(ClipboardCapture, recordsAPictureThatAGtkProgramCopies) {
    startWatching();
    copy(QStringLiteral(CLIENTS "/gtk_clipboard"), {QStringLiteral("copy"), QStringLiteral("picture")});
    expectNewest("image");
}

TEST_F(ClipboardCapture, recordsMarkupAsSuch) {
    startWatching();
    copy(QStringLiteral(CLIENTS "/gtk_clipboard"), {QStringLiteral("copy"), QStringLiteral("markup")});
    expectNewest("html: <b>GTK</b>");
}

TEST_F(ClipboardCapture, recordsNothingThatItsOwnerWantsKeptSecret) {
    startWatching();
    copyText("before");
    copy(QStringLiteral(CLIENTS "/odd_owner"), {QStringLiteral("isSecret")});
    expectSaying("asked for its mark");
    letPimloftCatchUp();
    copyText("after");
    EXPECT_THAT(history(), ElementsAre("text: after", "text: before"));
}

TEST_F(ClipboardCapture, goesOnAfterAnOwnerThatHangs) {
    startWatching();
    copy(QStringLiteral(CLIENTS "/odd_owner"), {QStringLiteral("silent")});
    letPimloftCatchUp();
    copyText("next");
}

TEST_F(ClipboardCapture, recordsNothingThatWasCopiedBeforeTheStart) {
    copy(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")}, "earlier");
    EXPECT_TRUE(waitUntil([&] {
        return session().run(QStringLiteral("xclip"), {QStringLiteral("-o"), QStringLiteral("-selection"),
                                                       QStringLiteral("clipboard")}) ==
               QLatin1String("earlier");
    }));
    startWatching();
    copyText("later");
    EXPECT_THAT(history(), ElementsAre("text: later"));
}

TEST_F(ClipboardCapture, keepsEverythingWhenItIsKilledOrEndsAndStartsAgain) {
    startWatching();
    copyText("first");
    copyText("second");
    pimloft().signal(SIGKILL);
    EXPECT_EQ(pimloft().waitForEnd(), -1);
    EXPECT_THAT(history(), ElementsAre("text: second", "text: first"));
    startWatching();
    copyText("third");
    pimloft().signal(SIGTERM);
    EXPECT_EQ(pimloft().waitForEnd(), 0);
    startWatching();
    copyText("fourth");
    EXPECT_THAT(history(), ElementsAre("text: fourth", "text: third", "text: second", "text: first"));
}

}  // namespace
}  // namespace pimloft::test
