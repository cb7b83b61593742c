// SPDX-License-Identifier: MIT
#include "page_session.h"

#include "finderfix/custom_templates.h"
#include "finderfix/finder_fix_module.h"
#include "finderfix/finder_fix_settings.h"
#include "finderfix/new_file_service.h"
#include "ui/page_view.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

class FinderFixPage : public testing::Test {
protected:
    void show() {
        view = std::make_unique<PageView>(session.views().engine(),
                                          *session.appState().finderFix()->settingsView());
        view->resize(560, 760);
        view->show();
        view->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    std::string texts() const {
        return test::texts(view->rootObject()).join(QLatin1Char('\n')).toStdString();
    }
    void put(const char *name) {
        QFile file(NewFileService::shared().templatesDirectory() + QLatin1Char('/') +
                   QString::fromUtf8(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
    }

    test::PageSession session;
    std::unique_ptr<PageView> view;
};

TEST_F(FinderFixPage, saysThis) {
    put("b.odt");
    put("A letter.odt");
    put(".hidden");
    show();
    EXPECT_EQ(
        texts(),
        "Cut & Paste\n"
        "Cmd+X in Finder cuts selected files\n"
        "Works across different Finder windows. Handles locked files, permission errors, and cross-volume "
        "moves automatically.\n"
        "New File Templates\n"
        "Text File\nMarkdown File\nHTML File\nPython Script\nShell Script\n"
        "A letter.odt\nb.odt\n"
        "Open Templates Folder\n"
        "Add custom templates to this folder. They'll appear in the \"New File\" submenu.\n"
        "Finder Extension\n"
        "The Finder Sync Extension must be enabled in System Settings for \"New File\" to appear in "
        "Finder's context menu.\n"
        "Open Finder Extension Settings");
}

TEST_F(FinderFixPage, theButtonsOpenTheFolderAndTheSettings) {
    show();
    session.desktop.log();
    test::click(test::named(view.get(), QStringLiteral("Open Templates Folder")));
    EXPECT_EQ(session.desktop.log(),
              "reveal " + NewFileService::shared().templatesDirectory().toStdString() + '\n');
    test::type(view.get(), Qt::Key_Tab);
    test::type(view.get(), Qt::Key_Return);
    EXPECT_EQ(session.desktop.log(),
              "open x-apple.systempreferences:com.apple.preferences.extensions?Finder\n");
}

TEST_F(FinderFixPage, aTemplateThatComesIsShown) {
    show();
    put("new.txt");
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts().find("\nnew.txt\n") != std::string::npos; }));
}

TEST_F(FinderFixPage, cutsNothingShort) {
    put("a name that is as long as names of templates are that people have in their folders for letters of "
        "all "
        "kinds.odt");
    show();
    for (const QQuickItem *item : view->contentItem()->findChildren<QQuickItem *>())
        EXPECT_FALSE(item->property("truncated").toBool()) << item->property("text").toString().toStdString();
}

}  // namespace
}  // namespace pimloft
