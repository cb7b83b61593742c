// SPDX-License-Identifier: MIT
// What is written, as other programs read it.
#include "pasteboard_desk.h"
#include "requestor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <cstring>

namespace pimloft {
namespace {

class X11PasteboardWrite : public PasteboardDesk {
protected:
    QByteArray pastedByXclip(const char *target) {
        const auto process = test::currentSession().start(QStringLiteral("xclip"),
                                                          {QStringLiteral("-o"), QStringLiteral("-selection"),
                                                           QStringLiteral("clipboard"), QStringLiteral("-t"),
                                                           QString::fromLatin1(target)});
        EXPECT_TRUE(process->waitForFinished());
        return process->readAllStandardOutput();
    }
    std::string pasted(const char *target, const char *selection = "CLIPBOARD") {
        return other_.paste(target, selection).value_or("(refused)").toStdString();
    }

    test::Requestor other_;
};

TEST_F(X11PasteboardWrite, countsAtOnce) {
    EXPECT_EQ(pasteboard_.write(plain("a")), 1);
    EXPECT_EQ(pasteboard_.changeCount(), 1);
    EXPECT_EQ(pasteboard_.write(plain("b")), 2);
    EXPECT_EQ(pasteboard_.changeCount(), 2);
}

TEST_F(X11PasteboardWrite, isSeenByOtherProgramsOnReturn) {
    for (int i = 0; i < 100; ++i) {
        const QByteArray text = QByteArray::number(i);
        pasteboard_.write(plain(text));
        EXPECT_EQ(other_.paste("UTF8_STRING"), text);
    }
}

TEST_F(X11PasteboardWrite, isReadBackByThisProgramToo) {
    pasteboard_.write(plain("own"));
    EXPECT_EQ(readText(), "own");
    pasteboard_.write({{PasteType::png, QByteArray(3 << 20, 'x')}});
    EXPECT_EQ(read({PasteType::png}).bytes.size(), 3 << 20);
}

TEST_F(X11PasteboardWrite, isReadByXclip) {
    pasteboard_.write(plain("text \xc3\xa4"));
    EXPECT_EQ(pastedByXclip("UTF8_STRING"), "text \xc3\xa4");
    EXPECT_EQ(pastedByXclip("STRING"), "text \xe4");
}

TEST_F(X11PasteboardWrite, isReadByGtkPrograms) {
    pasteboard_.write({{PasteType::html, "<b>x</b>"}, {PasteType::png, QByteArray(2 << 20, 'x')}});
    const QString program = QStringLiteral(TEST_PROGRAMS "/gtk_clipboard");
    EXPECT_EQ(test::currentSession().run(program, {QStringLiteral("paste"), QStringLiteral("text/html")}),
              QStringLiteral("<b>x</b>"));
    EXPECT_EQ(
        test::currentSession().run(program, {QStringLiteral("paste"), QStringLiteral("image/png")}).size(),
        2 << 20);
}

TEST_F(X11PasteboardWrite, isReadByQtWhileItKeepsTheMainThread) {
    letQtSeeACopy();
    int noticed = 0;
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &context_, [&] { ++noticed; });
    pasteboard_.write({{PasteType::plainText, "text"}, {PasteType::fileUrls, "file:///a%20b\nfile:///c"}});
    // From here on Qt asks and waits.
    EXPECT_TRUE(test::waitUntil([&] { return noticed > 0; }));
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->text().toStdString(), "text");
    EXPECT_EQ(data->urls(),
              (QList<QUrl>{QUrl(QStringLiteral("file:///a%20b")), QUrl(QStringLiteral("file:///c"))}));
}

TEST_F(X11PasteboardWrite, offersFilesAsFileManagersReadThem) {
    pasteboard_.write({{PasteType::fileUrls, "file:///a%20b"}});
    EXPECT_EQ(pasted("text/uri-list"), "file:///a%20b\r\n");
    EXPECT_EQ(pasted("x-special/gnome-copied-files"), "copy\nfile:///a%20b");
    EXPECT_EQ(pasted("x-special/mate-copied-files"), "copy\nfile:///a%20b");
    EXPECT_EQ(pasted("UTF8_STRING"), "/a b");
}

TEST_F(X11PasteboardWrite, listsWhatItOffers) {
    pasteboard_.write({{PasteType::html, "<b>x</b>"}});
    const QByteArray list = other_.paste("TARGETS").value_or("");
    std::vector<xcb_atom_t> targets(std::size_t(list.size()) / sizeof(xcb_atom_t));
    std::memcpy(targets.data(), list.constData(), std::size_t(list.size()));
    EXPECT_EQ(targets,
              (std::vector{other_.atom("TARGETS"), other_.atom("MULTIPLE"), other_.atom("SAVE_TARGETS"),
                           other_.atom("TIMESTAMP"), other_.atom("text/html")}));
    EXPECT_EQ(other_.paste("TIMESTAMP").value_or("").size(), 4);
    EXPECT_EQ(pasted("UTF8_STRING"), "(refused)");
    EXPECT_EQ(pasted("SAVE_TARGETS"), "");
}

TEST_F(X11PasteboardWrite, givesSeveralFormsAtOnce) {
    pasteboard_.write(plain("\xc3\xa4"));
    const auto answers = other_.pasteAll({"UTF8_STRING", "image/png", "STRING", "MULTIPLE"});
    const std::vector<std::optional<QByteArray>> expected{"\xc3\xa4", std::nullopt, "\xe4", std::nullopt};
    EXPECT_EQ(answers == expected, true);
}

TEST_F(X11PasteboardWrite, marksASecretForOtherPrograms) {
    pasteboard_.write({{PasteType::plainText, "password"}, {PasteType::secretMark, {}}});
    EXPECT_EQ(pasted("UTF8_STRING"), "password");
    EXPECT_EQ(pasted("x-kde-passwordManagerHint"), "secret");
    pasteboard_.write(plain("public"));
    EXPECT_EQ(pasted("x-kde-passwordManagerHint"), "(refused)");
}

TEST_F(X11PasteboardWrite, refusesWhatWasAskedOfTheOwnerBefore) {
    pasteboard_.write(plain("text"));
    EXPECT_EQ(other_.ask("UTF8_STRING", "CLIPBOARD", 1).property, xcb_atom_t(XCB_NONE));
}

TEST_F(X11PasteboardWrite, ofNothingLeavesNothingToPaste) {
    pasteboard_.write(plain("text"));
    EXPECT_EQ(pasteboard_.write({}), 2);
    EXPECT_EQ(pasted("UTF8_STRING"), "(refused)");
    EXPECT_EQ(readText(), "(absent)");
}

TEST_F(X11PasteboardWrite, endsWhenAnotherProgramCopies) {
    pasteboard_.write(plain("own"));
    const auto owner = xclip("foreign");
    EXPECT_EQ(pasteboard_.changeCount(), 2);
    EXPECT_EQ(pasted("UTF8_STRING"), "foreign");
    EXPECT_EQ(readText(), "foreign");
}

TEST_F(X11PasteboardWrite, isReadInPiecesOfSixtyMegabytesInAll) {
    const QByteArray picture(60 << 20, 'x');
    pasteboard_.write({{PasteType::png, picture}});
    EXPECT_EQ(other_.paste("image/png") == picture, true);
    EXPECT_EQ(pastedByXclip("image/png") == picture, true);
}

TEST_F(X11PasteboardWrite, leavesThePrimarySelectionAlone) {
    other_.own("PRIMARY");
    pasteboard_.write(plain("text"));
    EXPECT_TRUE(other_.owns("PRIMARY"));
}

TEST_F(X11PasteboardWrite, isOfferedAsThePrimarySelectionOnRequest) {
    pasteboard_.write(plain("text"));
    pasteboard_.offerAsPrimary();
    EXPECT_EQ(pasted("UTF8_STRING", "PRIMARY"), "text");
    const auto owner = xclip("foreign");
    EXPECT_EQ(pasted("UTF8_STRING", "PRIMARY"), "text");
    other_.own("PRIMARY");
    EXPECT_EQ(pasteboard_.changeCount(), 2);
}

TEST_F(X11PasteboardWrite, leavesThePrimarySelectionAloneWhileAnotherProgramOwnsTheClipboard) {
    const auto owner = xclip("foreign");
    other_.own("PRIMARY");
    pasteboard_.offerAsPrimary();
    EXPECT_TRUE(other_.owns("PRIMARY"));
}

TEST_F(X11PasteboardWrite, servesOthersWhileOneTakesNothing) {
    pasteboard_.write({{PasteType::png, QByteArray(1 << 20, 'x')}});
    std::vector<std::unique_ptr<test::Requestor>> hung;
    int granted = 0;
    for (int i = 0; i < 40; ++i) {
        hung.push_back(std::make_unique<test::Requestor>());
        granted += hung.back()->ask("image/png").property != XCB_NONE;
    }
    EXPECT_EQ(granted, 16);  // what hung programs can keep busy is bounded
    EXPECT_EQ(other_.paste("TARGETS").has_value(), true);
    hung.clear();
    EXPECT_TRUE(test::waitUntil([&] { return pasted("image/png").size() == 1 << 20; }));
}

TEST_F(X11PasteboardWrite, isHandedOverToAClipboardManagerAtTheEnd) {
    other_.own("CLIPBOARD_MANAGER");
    auto pasteboard = std::make_unique<X11Pasteboard>([](ProcessId) { return std::nullopt; });
    pasteboard->write(plain("text"));
    // The manager takes the content over before it answers.
    std::string saved;
    std::thread manager([&] { saved = other_.serveAsManager(); });
    pasteboard.reset();
    manager.join();
    EXPECT_EQ(saved, "text");
}

TEST_F(X11PasteboardWrite, endsWithinTwoSecondsWhereAClipboardManagerHangs) {
    other_.own("CLIPBOARD_MANAGER");
    auto pasteboard = std::make_unique<X11Pasteboard>([](ProcessId) { return std::nullopt; });
    pasteboard->write(plain("text"));
    QElapsedTimer elapsed;
    elapsed.start();
    pasteboard.reset();
    EXPECT_LT(elapsed.elapsed(), 5000);
    EXPECT_GE(elapsed.elapsed(), 1900);
}

}  // namespace
}  // namespace pimloft
