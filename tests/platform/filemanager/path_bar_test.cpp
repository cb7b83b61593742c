// SPDX-License-Identifier: MIT
#include "platform/filemanager/path_bar.h"

#include <QByteArrayList>
#include <QStringList>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

constexpr std::uint64_t checked = 1 << AccessibleNode::checked;

/// A window with path bars, whose pressed button is marked: "*deep, work, /"; and texts: "=/home".
AccessibleTree window(const std::vector<const char *> &rows,
                      AccessibleRole buttons = AccessibleRole::toggleButton) {
    AccessibleTree tree{{}};
    for (const char *row : rows) {
        const int parent = int(tree.size());
        tree.push_back({.parent = 0});
        if (*row == '=') {
            tree.push_back(
                {.parent = parent, .role = AccessibleRole::text, .text = QString::fromUtf8(row + 1)});
            continue;
        }
        for (const QString &button : QString::fromUtf8(row).split(QStringLiteral(", "))) {
            const bool isChecked = button.startsWith(u'*');
            tree.push_back({.parent = parent,
                            .role = buttons,
                            .states = isChecked ? checked : 0,
                            .name = isChecked ? button.mid(1) : button});
        }
    }
    return tree;
}

std::string shown(const AccessibleTree &tree) {
    QByteArrayList all;
    for (const QByteArray &path : pathsShown(tree, "/home/ada"))
        all << path;
    return all.join(" ").toStdString();
}

TEST(PathBar, isReadFromTheRootWhicheverWayItRuns) {
    EXPECT_EQ(shown(window({"*deep, plans, tmp, /"})), "/tmp/plans/deep");
    EXPECT_EQ(shown(window({"/, tmp, plans, *deep"})), "/tmp/plans/deep");
}

TEST(PathBar, mayShowAPictureForTheRoot) {
    EXPECT_EQ(shown(window({"*deep, tmp, "})), "/tmp/deep");
}

TEST(PathBar, endsAtThePressedButton) {
    EXPECT_EQ(shown(window({"deep, *work, tmp, "})), "/tmp/work");
}

TEST(PathBar, mayBeginAtTheHomeFolder) {
    EXPECT_EQ(shown(window({"ada, *Music"})), "/home/ada/Music");
    EXPECT_EQ(shown(window({"*Music, ada"})), "/home/ada/Music");
}

TEST(PathBar, mayConsistOfBoxes) {
    EXPECT_EQ(shown(window({"*deep, tmp, /"}, AccessibleRole::checkBox)), "/tmp/deep");
    EXPECT_EQ(shown(window({"*deep, tmp, /"}, AccessibleRole::radioButton)), "/tmp/deep");
}

TEST(PathBar, showsTheRootItself) {
    EXPECT_EQ(shown(window({"tmp, *"})), "/");
}

TEST(PathBar, isNoneWhereNoButtonOrSeveralArePressed) {
    EXPECT_EQ(shown(window({"deep, tmp, /"})), "");
    EXPECT_EQ(shown(window({"*deep, *tmp, /"})), "");
}

TEST(PathBar, isNoneWhereTheOutermostFolderIsUnknown) {
    EXPECT_EQ(shown(window({"*deep, tmp"})), "");
}

TEST(PathBar, isNoneOfButtonsWithoutNames) {
    EXPECT_EQ(shown(window({", , *"})), "");
}

TEST(PathBar, countsMoreThanALonelyButtonWithoutAName) {
    EXPECT_EQ(shown(window({"*, a", "*deep, tmp, /"})), "/tmp/deep /");
}

TEST(PathBar, isFollowedByWhatStandsInALocationField) {
    EXPECT_EQ(shown(window({"=/home/ada/", "*deep, tmp, /"})), "/tmp/deep /home/ada");
    EXPECT_EQ(shown(window({"=/tmp/deep", "*deep, tmp, /"})), "/tmp/deep") << "once";
    EXPECT_EQ(shown(window({"=search for this"})), "");
    EXPECT_EQ(shown(window({"=/"})), "/");
}

TEST(FolderTitle, mayBeAPath) {
    const auto paths = [](const char *title) { return pathsInTitle(QString::fromUtf8(title)); };
    EXPECT_EQ(paths("/tmp/a - b"), (std::vector<QByteArray>{"/tmp/a - b", "/tmp/a"}));
    EXPECT_EQ(paths("/tmp/ä — Dolphin"), (std::vector<QByteArray>{"/tmp/ä — Dolphin", "/tmp/ä"}));
    EXPECT_TRUE(paths("deep - Thunar").empty());
    EXPECT_TRUE(paths("").empty());
}

TEST(FolderTitle, decidesBetweenSeveralFolders) {
    const auto folder = [](const char *title, const std::vector<QByteArray> &folders) {
        return folderByTitle(folders, QString::fromUtf8(title)).toStdString();
    };
    EXPECT_EQ(folder("anything", {"/a"}), "/a");
    EXPECT_EQ(folder("b - Thunar", {"/a", "/x/b"}), "/x/b");
    EXPECT_EQ(folder("b", {"/a", "/x/b"}), "/x/b");
    EXPECT_EQ(folder("bb", {"/a", "/x/b"}), "");
    EXPECT_EQ(folder("b", {"/", "/x/b"}), "/x/b") << "the root has no name";
    EXPECT_EQ(folder("b", {"/y/b", "/x/b"}), "");
    EXPECT_EQ(folder("b", {}), "");
}

TEST(FocusedText, isWhereTheUserTypes) {
    AccessibleTree tree = window({"=/home"});
    EXPECT_FALSE(hasFocusedText(tree));
    tree.back().states = 1 << AccessibleNode::focused;
    EXPECT_TRUE(hasFocusedText(tree));
    tree.back().role = AccessibleRole::entry;
    EXPECT_TRUE(hasFocusedText(tree));
    tree.back().role = AccessibleRole::toggleButton;
    EXPECT_FALSE(hasFocusedText(tree));
}

}  // namespace
}  // namespace pimloft
