// SPDX-License-Identifier: MIT
#include "platform/scripting/finder_scripts.h"

#include "platform/filemanager/file_managers.h"
#include "platform/scripting/finder_script.h"
#include "support/qt_printers.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(FinderScripts, areNoOtherTexts) {
    FinderScripts scripts(nullptr);
    const auto answer = [](const ScriptResult &) { FAIL() << "answered"; };
    EXPECT_FALSE(scripts.handle(QStringLiteral("tell application \"Finder\" to quit"), answer));
    EXPECT_FALSE(scripts.handle(finderSelectionScript() + u'\n', answer));
    EXPECT_FALSE(scripts.handle(finderTargetScript().toUpper(), answer));
    EXPECT_FALSE(scripts.handle(QString(), answer));
}

TEST(ScriptedPath, isThePathItself) {
    EXPECT_EQ(scriptedPath("/a b/100%/\xc3\xa4\n"), QStringLiteral("/a b/100%/ä\n"));
}

TEST(ScriptedPath, isAUriWhereThePathIsNoText) {
    EXPECT_EQ(scriptedPath("/a b/caf\xe9 100%"), QStringLiteral("file:///a%20b/caf%E9%20100%25"));
}

}  // namespace
}  // namespace pimloft
