// SPDX-License-Identifier: MIT
// What other programs copy, as it is read.
#include "pasteboard_desk.h"
#include "requestor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

namespace pimloft {
namespace {

using X11PasteboardRead = PasteboardDesk;

TEST_F(X11PasteboardRead, countsEveryCopyAndNothingElse) {
    EXPECT_EQ(pasteboard_.changeCount(), 0);
    test::Requestor other;
    for (int i = 0; i < 500; ++i)
        other.own();
    EXPECT_TRUE(countBecomes(500));
    other.own("PRIMARY");
    other.own();
    EXPECT_TRUE(countBecomes(501));
}

TEST_F(X11PasteboardRead, doesNotTakeTheEndOfAProgramForACopy) {
    auto owner = xclip("text");
    owner.reset();
    EXPECT_TRUE(test::waitUntil([&] { return readText() == "(failed)"; }));
    EXPECT_EQ(pasteboard_.changeCount(), 1);
}

TEST_F(X11PasteboardRead, readsWhatWasCopiedBeforeItStarted) {
    const auto owner = xclip("text");
    X11Pasteboard later([](ProcessId) { return std::nullopt; });
    EXPECT_EQ(later.changeCount(), 0);
    std::string result;
    later.read(0, {PasteType::plainText}, large, &context_, [&](PasteData data) { result = text(data); });
    EXPECT_TRUE(test::waitUntil([&] { return !result.empty(); }));
    EXPECT_EQ(result, "text");
}

TEST_F(X11PasteboardRead, findsNothingWhereNobodyHasCopied) {
    EXPECT_EQ(readText(), "(absent)");
}

TEST_F(X11PasteboardRead, readsTheFirstWantedTypeThatIsOffered) {
    const auto owner = copy(QStringLiteral(TEST_PROGRAMS "/gtk_clipboard"),
                            {QStringLiteral("copy"), QStringLiteral("markup")});
    const PasteData html = read({PasteType::png, PasteType::html, PasteType::plainText});
    EXPECT_EQ(html.type, PasteType::html);
    EXPECT_EQ(text(html), "<b>GTK</b>");
    EXPECT_EQ(readText(), "GTK");
    EXPECT_EQ(text(read({PasteType::rtf, PasteType::tiff})), "(absent)");
}

TEST_F(X11PasteboardRead, readsTextAndPicturesOfGtkPrograms) {
    const QString program = QStringLiteral(TEST_PROGRAMS "/gtk_clipboard");
    auto owner = copy(program, {QStringLiteral("copy"), QStringLiteral("text")});
    EXPECT_EQ(readText(), "GTK \xc3\xa4");
    owner = copy(program, {QStringLiteral("copy"), QStringLiteral("picture")});
    EXPECT_EQ(QImage::fromData(read({PasteType::png}).bytes, "PNG").size(), QSize(32, 16));
}

TEST_F(X11PasteboardRead, readsWhatATextFieldOfThisVeryProgramCopied) {
    letQtSeeACopy();
    QPlainTextEdit field;
    field.setPlainText(QStringLiteral("field"));
    field.selectAll();
    field.copy();
    EXPECT_TRUE(countBecomes(2));
    EXPECT_EQ(readText(), "field");
}

TEST_F(X11PasteboardRead, readsEveryFormThatQtOffers) {
    letQtSeeACopy();
    auto *data = new QMimeData;
    data->setText(QStringLiteral("ä€"));
    data->setHtml(QStringLiteral("<b>ä</b>"));
    data->setData(QStringLiteral("text/rtf"), "{\\rtf1 x}");
    data->setUrls({QUrl(QStringLiteral("file:///a%20b")), QUrl(QStringLiteral("file:///c"))});
    QGuiApplication::clipboard()->setMimeData(data);
    EXPECT_TRUE(countBecomes(2));
    EXPECT_EQ(readText(), "\xc3\xa4\xe2\x82\xac");
    EXPECT_EQ(text(read({PasteType::html})), "<b>\xc3\xa4</b>");
    EXPECT_EQ(text(read({PasteType::rtf})), "{\\rtf1 x}");
    EXPECT_EQ(text(read({PasteType::fileUrls})), "file:///a%20b\nfile:///c");
}

struct Form {
    const char *target;
    PasteType type;
    QByteArray bytes;
    QByteArray read;
};
void PrintTo(const Form &form, std::ostream *stream) {
    *stream << form.target << " to " << form.read.toStdString();
}
class X11PasteboardForms : public PasteboardDesk, public testing::WithParamInterface<Form> {};

TEST_P(X11PasteboardForms, areReadAsXclipOffersThem) {
    const auto owner = xclip(GetParam().bytes, GetParam().target);
    EXPECT_EQ(text(read({GetParam().type})), GetParam().read.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    All, X11PasteboardForms,
    testing::Values(Form{"image/png", PasteType::png, "\x89PNG", "\x89PNG"},
                    Form{"image/tiff", PasteType::tiff, "II*", "II*"},
                    Form{"text/html", PasteType::html, QByteArray("\xff\xfe<\0b\0>\0", 8), "<b>"},
                    Form{"application/rtf", PasteType::rtf, "{\\rtf1}", "{\\rtf1}"},
                    Form{"text/richtext", PasteType::rtf, "<bold>", "(absent)"},
                    Form{"text/plain", PasteType::plainText, "plain", "plain"},
                    Form{"text/uri-list", PasteType::fileUrls, "file:///a\r\n", "file:///a"},
                    Form{"text/uri-list", PasteType::fileUrls, "https://example.org\r\n", "(absent)"},
                    Form{"x-special/gnome-copied-files", PasteType::fileUrls, "cut\nfile:///a", "file:///a"},
                    Form{"x-special/mate-copied-files", PasteType::fileUrls, "copy\nfile:///a",
                         "file:///a"}));

TEST_F(X11PasteboardRead, readsSixtyMegabytes) {
    const QByteArray picture(60 << 20, 'x');
    const auto owner = xclip(picture, "image/png");
    const PasteData data = read({PasteType::png});
    EXPECT_EQ(data.status, PasteData::present);
    EXPECT_EQ(data.bytes == picture, true);
}

TEST_F(X11PasteboardRead, cutsATransferOffAboveTheCap) {
    const auto owner = xclip(QByteArray(3 << 20, 'x'), "image/png");
    const PasteData cut = read(1, {PasteType::png}, (3 << 20) - 1);
    EXPECT_EQ(text(cut), "(too large)");
    EXPECT_EQ(cut.type, PasteType::png);
    EXPECT_EQ(read(1, {PasteType::png}, 3 << 20).bytes.size(), 3 << 20);
}

TEST_F(X11PasteboardRead, answersSeveralQuestionsAtOnce) {
    const auto owner = xclip("text");
    int answers = 0;
    for (int i = 0; i < 20; ++i)
        pasteboard_.read(1, {PasteType::plainText}, large, &context_, [&](PasteData data) {
            EXPECT_EQ(text(data), "text");
            ++answers;
        });
    EXPECT_TRUE(test::waitUntil([&] { return answers == 20; }));
}

TEST_F(X11PasteboardRead, answersNothingOnceTheAskerIsGone) {
    const auto owner = xclip("text");
    bool isAnswered = false;
    auto asker = std::make_unique<QObject>();
    pasteboard_.read(1, {PasteType::plainText}, large, asker.get(), [&](PasteData) { isAnswered = true; });
    asker.reset();
    EXPECT_EQ(readText(), "text");
    EXPECT_FALSE(isAnswered);
}

TEST_F(X11PasteboardRead, tellsWhoseContentItIs) {
    const auto owner = xclip("text");
    const PasteOrigin expected{false, QStringLiteral("process %1").arg(owner->processId())};
    EXPECT_EQ(origin(1), expected);
}

TEST_F(X11PasteboardRead, tellsThatItsOwnerWantsItKeptSecret) {
    const auto owner = oddOwner("isSecret");
    EXPECT_TRUE(origin(1).value_or(PasteOrigin()).isSecret);
    EXPECT_EQ(readText(), "password");
}

TEST_F(X11PasteboardRead, tellsNothingOfAnOlderCopy) {
    const auto first = xclip("first");
    const auto second = xclip("second");
    EXPECT_EQ(text(read(1, {PasteType::plainText})), "(superseded)");
    EXPECT_EQ(origin(1), std::nullopt);
    EXPECT_EQ(readText(), "second");
}

}  // namespace
}  // namespace pimloft
