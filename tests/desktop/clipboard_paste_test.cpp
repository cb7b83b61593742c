// SPDX-License-Identifier: MIT
// What is taken from the history, and plain text, as it arrives in real programs.
#include "desktop/support/clipboard_desk.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>

namespace pimloft::test {
namespace {

using testing::ElementsAre;

/// A window manager, with a compositor beside it or without.
struct Surroundings {
    const char *windowManager;
    bool composites;
};

class ClipboardPaste : public ClipboardDesk, public testing::WithParamInterface<Surroundings> {
protected:
    void SetUp() override {
        openDesktop(QString::fromLatin1(GetParam().windowManager));
        if (GetParam().composites)
            startCompositor();
        startWatching();
    }
    void TearDown() override {
        ClipboardDesk::TearDown();
        if (compositor_) {
            compositor_->kill();
            compositor_->waitForFinished();
        }
    }

    /// Looks for a word in the popup and pastes what is found.
    void pasteFound(const char *word) {
        openPopup();
        hands().type(word);
        letPimloftCatchUp();
        pasteRow(0);
    }
    /// The program that is used has the keyboard and no modifier is stuck.
    void expectThatTypingArrives(const std::string &before) {
        hands().type("x");
        expectContent(before + "x");
        EXPECT_TRUE(hands().keysDown().isEmpty());
    }

private:
    void startCompositor() {
        compositor_ = session().start(QStringLiteral("picom"),
                                      {QStringLiteral("--backend"), QStringLiteral("xrender"),
                                       QStringLiteral("--config"), QStringLiteral("/dev/null")});
        EXPECT_TRUE(waitUntil([this] { return desktop().hasCompositor(); }));
    }

    std::unique_ptr<QProcess> compositor_;
};

TEST_P(ClipboardPaste, putsTheEntryThatWasLookedForIntoAQtEditor) {
    copyText("alpha");
    copyText("beta");
    openEditor(Editor::qt);
    pasteFound("alp");
    expectContent("alpha");
    expectThatTypingArrives("alpha");
    copyText("gamma");
    EXPECT_THAT(history(), ElementsAre("text: gamma", "text: beta", "text: alpha"))
        << "its own write is recorded";
}

TEST_P(ClipboardPaste, putsAnEntryIntoAGtkEditor) {
    copyText("alpha \xc3\xa4");
    copyText("beta");
    openEditor(Editor::gtk);
    pasteFound("alp");
    expectContent("alpha \xc3\xa4");
    expectThatTypingArrives("alpha \xc3\xa4");
}

TEST_P(ClipboardPaste, putsAnEntryIntoATerminal) {
    copyText("alpha");
    copyText("beta");
    openEditor(Editor::xterm);
    pasteFound("alp");
    hands().type("x");
    hands().tap(KEY_ENTER);
    expectContent("alphax");
}

TEST_P(ClipboardPaste, putsTheRowThatWasClickedWithoutASearch) {
    copyText("alpha");
    copyText("beta");
    openEditor(Editor::qt);
    openPopup();
    picture(QStringLiteral("clipboard-popup"));
    pasteRow(1);
    expectContent("alpha");
}

TEST_P(ClipboardPaste, givesTheKeyboardBackHoweverItCloses) {
    copyText("alpha");
    openEditor(Editor::qt);
    openPopup();
    hands().tap(KEY_ESC);
    EXPECT_TRUE(waitUntil([&] { return !isPopupOpen(); }));
    expectThatTypingArrives("");
    openPopup();
    hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    EXPECT_TRUE(waitUntil([&] { return !isPopupOpen(); }));
    expectThatTypingArrives("x");
    openPopup();
    hands().click({560, 600});  // beside it, in the editor
    EXPECT_TRUE(waitUntil([&] { return !isPopupOpen(); }));
    expectThatTypingArrives("xx");
}

INSTANTIATE_TEST_SUITE_P(EveryDesktop, ClipboardPaste,
                         testing::Values(Surroundings{"openbox", false}, Surroundings{"openbox", true},
                                         Surroundings{"xfwm4", false}),
                         [](const auto &each) {
                             return std::string(each.param.windowManager) +
                                    (each.param.composites ? "_picom" : "");
                         });

class ClipboardPasteEverywhere : public ClipboardDesk {
protected:
    void SetUp() override { openDesktop(QStringLiteral("openbox")); }
    void copyMarkup() {
        copy(QStringLiteral(CLIENTS "/gtk_clipboard"), {QStringLiteral("copy"), QStringLiteral("markup")});
        expectNewest("html: <b>GTK</b>");
    }
};

TEST_F(ClipboardPasteEverywhere, putsAFileIntoAnotherFolder) {
    const QString file = makeFile(QStringLiteral("papers/a.txt"));
    QDir().mkpath(session().home() + QStringLiteral("/target"));
    startWatching();
    copy(QStringLiteral("xclip"),
         {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-t"),
          QStringLiteral("text/uri-list")},
         "file://" + file.toUtf8() + "\r\n");
    expectNewest("fileURL: file://" + file.toStdString());
    copyText("something else");
    openFileManager(session().home() + QStringLiteral("/target"));
    openPopup();
    pasteRow(1);
    EXPECT_TRUE(waitUntil(
        [&] { return QFileInfo::exists(session().home() + QStringLiteral("/target/a.txt")); }, 10000));
}

TEST_F(ClipboardPasteEverywhere, putsAPictureIntoAnEditor) {
    startWatching();
    copy(QStringLiteral(CLIENTS "/gtk_clipboard"), {QStringLiteral("copy"), QStringLiteral("picture")});
    expectNewest("image");
    copyText("something else");
    openEditor(Editor::qt);
    openPopup();
    pasteRow(1);
    expectContent("32x16");
}

TEST_F(ClipboardPasteEverywhere, putsMarkupIntoAnEditor) {
    startWatching();
    copyMarkup();
    openEditor(Editor::qt);
    openPopup();
    pasteRow(0);
    expectContent("GTK*");
}

TEST_F(ClipboardPasteEverywhere, putsTextOfAnyLengthIntoAnEditor) {
    startWatching();
    openEditor(Editor::qt);
    std::string all;
    for (const int lines : {20, 100, 2'000}) {
        std::string text;
        for (int line = 0; line < lines; ++line)
            text += "line " + std::to_string(line) + " of a text that grows longer\n";
        text.back() = '.';
        copyText(QByteArray::fromStdString(text));
        openPopup();
        pasteRow(0);
        all += text;
        ASSERT_TRUE(waitUntil([&] { return content() == all; }))
            << lines << " lines: " << content().size() << " of " << all.size();
    }
}

TEST_F(ClipboardPasteEverywhere, putsPlainTextWhileTheShortcutIsStillHeld) {
    startWatching();
    copyMarkup();
    openEditor(Editor::qt);
    for (const int key : {KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_V})
        hands().press(key);
    expectContent("GTK");
    for (const int key : {KEY_V, KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTMETA})
        hands().release(key);
    hands().type("x");
    expectContent("GTKx");
}

TEST_F(ClipboardPasteEverywhere, putsPlainTextIntoATerminal) {
    startWatching();
    copyMarkup();
    openEditor(Editor::xterm);
    hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_V});
    EXPECT_TRUE(waitUntil([&] { return history().front() == "text: GTK"; }));
    hands().tap(KEY_ENTER);
    expectContent("GTK");
}

TEST_F(ClipboardPasteEverywhere, opensNothingWhileAnotherProgramHoldsTheKeyboard) {
    startWatching();
    copyText("alpha");
    openEditor(Editor::qt);
    desktop().holdKeyboard();
    hands().moveTo(middle);
    hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
    letPimloftCatchUp();
    EXPECT_FALSE(isPopupOpen());
    desktop().releaseKeyboard();
    openPopup();
    pasteRow(0);
    expectContent("alpha");
}

TEST_F(ClipboardPasteEverywhere, putsWhatWasCopiedBeforeItWasKilled) {
    startWatching();
    copyText("alpha");
    openEditor(Editor::qt);
    openPopup();
    pimloft().signal(SIGKILL);
    EXPECT_EQ(pimloft().waitForEnd(), -1);
    hands().type("x");
    expectContent("x");  // the keyboard is free again
    startWatching();
    openPopup();
    pasteRow(0);
    expectContent("xalpha");
}

}  // namespace
}  // namespace pimloft::test
