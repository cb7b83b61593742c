// SPDX-License-Identifier: MIT
#include "platform/filemanager/folder_routes.h"
#include "platform/filemanager/open_locations.h"
#include "platform/filemanager/selection_question.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pimloft {
namespace {

FileManagerKind kindOf(const char *className, const char *instance = "") {
    return fileManagerKind({QLatin1String(instance), QLatin1String(className), {}});
}

TEST(FileManagerKind, isToldByTheClassOfTheWindow) {
    EXPECT_EQ(kindOf("Thunar"), FileManagerKind::thunar);
    EXPECT_EQ(kindOf("Pcmanfm"), FileManagerKind::pcmanfm);
    EXPECT_EQ(kindOf("pcmanfm-qt"), FileManagerKind::pcmanfmQt);
    EXPECT_EQ(kindOf("Nemo"), FileManagerKind::nemo);
    EXPECT_EQ(kindOf("Caja", "desktop_window"), FileManagerKind::caja);
    EXPECT_EQ(kindOf("org.gnome.Nautilus"), FileManagerKind::nautilus);
    EXPECT_EQ(kindOf("dolphin"), FileManagerKind::dolphin);
    EXPECT_EQ(kindOf("", "thunar"), FileManagerKind::thunar);
    EXPECT_EQ(kindOf("Spacefm"), FileManagerKind::other);
}

TEST(FolderRoutes, areSeenByNobodyBeforeOnesThatAre) {
    for (const auto kind : {FileManagerKind::thunar, FileManagerKind::pcmanfm, FileManagerKind::dolphin,
                            FileManagerKind::nautilus, FileManagerKind::other}) {
        const auto routes = folderRoutes(kind);
        const auto isVisible = [](FolderRoute route) {
            return route == FolderRoute::locationKeys || route == FolderRoute::locationAction;
        };
        EXPECT_TRUE(std::is_partitioned(routes.begin(), routes.end(), std::not_fn(isVisible)));
        EXPECT_LE(std::count_if(routes.begin(), routes.end(), isVisible), 1);
    }
}

TEST(FolderRoutes, pressKeysOnlyWhereNothingElseTells) {
    for (const auto kind : {FileManagerKind::thunar, FileManagerKind::nemo, FileManagerKind::caja,
                            FileManagerKind::pcmanfmQt, FileManagerKind::nautilus, FileManagerKind::other}) {
        const auto routes = folderRoutes(kind);
        EXPECT_EQ(std::count(routes.begin(), routes.end(), FolderRoute::locationKeys), 0);
    }
}

TEST(CommonFolder, isThatOfAllFiles) {
    EXPECT_EQ(commonFolder({"/a/b/c", "/a/b/d"}), QByteArray("/a/b"));
    EXPECT_EQ(commonFolder({"/a"}), QByteArray("/"));
    EXPECT_EQ(commonFolder({"/a/b", "/a/b/c"}), std::nullopt);
    EXPECT_EQ(commonFolder({}), std::nullopt);
}

FileManagerWindow windowTitled(const char *title) {
    FileManagerWindow window;
    window.objectPath = QStringLiteral("/window/1");
    window.title = QString::fromUtf8(title);
    return window;
}

OpenLocations locations(const QStringList &ofWindow) {
    return {{QStringLiteral("/window/1"), ofWindow},
            {QStringLiteral("/window/2"), {QStringLiteral("file:///other")}}};
}

TEST(OpenLocations, tellTheFolderOfTheirWindow) {
    EXPECT_EQ(shownFolder(locations({QStringLiteral("file:///a%20b")}), windowTitled("a b")),
              QByteArray("/a b"));
    EXPECT_EQ(shownFolder(locations({}), windowTitled("other")), std::nullopt);
}

TEST(OpenLocations, tellTheFolderOfTheTabThatTheTitleNames) {
    const QStringList tabs{QStringLiteral("file:///x/one"), QStringLiteral("file:///x/two")};
    EXPECT_EQ(shownFolder(locations(tabs), windowTitled("two")), QByteArray("/x/two"));
    EXPECT_EQ(shownFolder(locations(tabs), windowTitled("three")), std::nullopt);
}

TEST(OpenLocations, tellNothingOfWhatIsNoFolderHere) {
    EXPECT_EQ(shownFolder(locations({QStringLiteral("recent:///")}), windowTitled("Recent")), std::nullopt);
    EXPECT_EQ(shownFolder(locations({QStringLiteral("recent:///"), QStringLiteral("file:///a")}),
                          windowTitled("Recent")),
              std::nullopt);
}

TEST(SelectedPaths, keepTheOrderOfTheFileManager) {
    const CopiedContent content{CopiedContent::files, "file:///a/10\nfile:///a/9\nfile:///a/caf%E9"};
    EXPECT_EQ(selectedPaths(content, FileManagerKind::thunar),
              (std::vector<QByteArray>{"/a/10", "/a/9", "/a/caf\xe9"}));
}

TEST(SelectedPaths, areSortedAsPeopleWouldWhereTheFileManagerHasNoOrder) {
    const CopiedContent content{CopiedContent::files, "file:///a/10\nfile:///a/9\nfile:///a/B"};
    EXPECT_EQ(selectedPaths(content, FileManagerKind::pcmanfmQt),
              (std::vector<QByteArray>{"/a/9", "/a/10", "/a/B"}));
}

TEST(SelectedPaths, areNoneWithoutFiles) {
    EXPECT_TRUE(selectedPaths({CopiedContent::nothing}, FileManagerKind::thunar).empty());
}

}  // namespace
}  // namespace pimloft
