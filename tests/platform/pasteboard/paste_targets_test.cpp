// SPDX-License-Identifier: MIT
#include "platform/pasteboard/paste_targets.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

std::string targets(const std::vector<PasteType> &wanted) {
    std::string result;
    for (const SelectionWish &wish : wishesFor(wanted))
        result += wish.target.toStdString() + "\n";
    return result;
}

/// "target type: bytes" for each form.
std::string offered(const std::vector<PasteItem> &items) {
    std::string result;
    for (const SelectionForm &form : formsOf(items))
        result += form.target.toStdString() + " " + form.type.toStdString() + ": " +
                  form.bytes().toStdString() + "\n";
    return result;
}

TEST(PasteTargets, asksForTheTypesInTheOrderInWhichTheyAreWanted) {
    EXPECT_EQ(targets({PasteType::png, PasteType::tiff, PasteType::fileUrls}),
              "image/png\nimage/tiff\n"
              "text/uri-list\nx-special/gnome-copied-files\nx-special/mate-copied-files\n");
}

TEST(PasteTargets, asksForTextByItsBestNameFirst) {
    EXPECT_EQ(targets({PasteType::plainText}),
              "UTF8_STRING\ntext/plain;charset=utf-8\ntext/plain;charset=UTF-8\ntext/plain\nSTRING\nTEXT\n");
}

TEST(PasteTargets, asksForMarkupByAllItsNames) {
    EXPECT_EQ(targets({PasteType::html, PasteType::rtf}),
              "text/html\ntext/html;charset=utf-8\ntext/rtf\napplication/rtf\ntext/richtext\n");
}

TEST(PasteTargets, tagsEachWishWithItsType) {
    EXPECT_EQ(PasteType(wishesFor({PasteType::rtf}).front().tag), PasteType::rtf);
}

TEST(PasteTargets, doesNotTakeAnEmptyPictureForOne) {
    EXPECT_EQ(wishesFor({PasteType::png}).front().understand("", ""), std::nullopt);
    EXPECT_EQ(wishesFor({PasteType::png}).front().understand("", "x"), QByteArray("x"));
}

TEST(PasteTargets, offersTextAsEveryProgramAsksForIt) {
    EXPECT_EQ(offered({{PasteType::plainText, "\xc3\xa4"}}),
              "UTF8_STRING UTF8_STRING: \xc3\xa4\n"
              "text/plain;charset=utf-8 text/plain;charset=utf-8: \xc3\xa4\n"
              "text/plain text/plain: \xc3\xa4\n"
              "TEXT UTF8_STRING: \xc3\xa4\n"
              "STRING STRING: \xe4\n");
}

TEST(PasteTargets, offersFilesToFileManagersAndAsTextTheirPaths) {
    EXPECT_EQ(offered({{PasteType::fileUrls, "file:///a%20b"}}),
              "text/uri-list text/uri-list: file:///a%20b\r\n\n"
              "x-special/gnome-copied-files x-special/gnome-copied-files: copy\nfile:///a%20b\n"
              "x-special/mate-copied-files x-special/mate-copied-files: copy\nfile:///a%20b\n"
              "UTF8_STRING UTF8_STRING: /a b\n"
              "text/plain;charset=utf-8 text/plain;charset=utf-8: /a b\n"
              "text/plain text/plain: /a b\n"
              "TEXT UTF8_STRING: /a b\n"
              "STRING STRING: /a b\n");
}

TEST(PasteTargets, offersNothingBesideMarkupThatWasNotWritten) {
    EXPECT_EQ(offered({{PasteType::html, "<b>x</b>"}}), "text/html text/html: <b>x</b>\n");
}

TEST(PasteTargets, takesTheFirstOfTwoItemsOfOneType) {
    EXPECT_EQ(offered({{PasteType::png, "a"}, {PasteType::png, "b"}}), "image/png image/png: a\n");
}

TEST(PasteTargets, prefersATextThatWasWrittenToThePathsOfFiles) {
    EXPECT_NE(offered({{PasteType::fileUrls, "file:///a"}, {PasteType::plainText, "b"}})
                  .find("UTF8_STRING UTF8_STRING: b\n"),
              std::string::npos);
}

TEST(PasteTargets, offersNothingOfNothing) {
    EXPECT_EQ(offered({}), "");
}

}  // namespace
}  // namespace pimloft
