// SPDX-License-Identifier: MIT
// Files are cut in one window of a real file manager and pasted in another.
#include "desktop/support/desktop_test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace pimloft::test {
namespace {

struct Manager {
    const char *name;  ///< of the test
    const char *program;
    QStringList arguments = {};
};

/// A file manager starts slowly while other tests run.
constexpr int starting = 15000;

class FileToolsTest : public DesktopTest, public testing::WithParamInterface<Manager> {
protected:
    void SetUp() override {
        openDesktop(QStringLiteral("openbox"));
        session().startAccessibility();
        startPimloft();
        EXPECT_TRUE(waitUntil([this] { return desktop().isKeyTaken(KEY_V, XCB_MOD_MASK_4); }));
    }
    ~FileToolsTest() override {
        for (auto &program : programs_) {
            program->kill();
            program->waitForFinished();
        }
    }

    QString makeFolder(const QString &name) {
        QDir(session().home()).mkpath(name);
        return session().home() + QLatin1Char('/') + name;
    }
    static void makeFile(const QString &path, const QByteArray &content) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static std::string content(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }
    static std::string names(const QString &folder) {
        return QDir(folder).entryList(QDir::Files, QDir::Name).join(u' ').toStdString();
    }

    /// Opens the folder in a window of the file manager, in front. Asks again where nothing comes: the
    /// program that is asked by another start may not listen yet.
    void open(const QString &folder) {
        const auto window = [&]() -> xcb_window_t {
            for (const xcb_window_t each : desktop().windows())
                if (desktop().title(each).startsWith(QFileInfo(folder).fileName()))
                    return each;
            return XCB_NONE;
        };
        const auto isInFront = [&] {
            const xcb_window_t found = window();
            if (found != XCB_NONE && desktop().activeWindow() != found)
                desktop().activate(found);
            return found != XCB_NONE && desktop().activeWindow() == found;
        };
        EXPECT_TRUE(waitUntil(
            [&] {
                start(folder);
                return waitUntil(isInFront, starting);
            },
            3 * starting));
    }

    void start(const QString &folder) {
        programs_.push_back(session().start(QStringLiteral("env"),
                                            QStringList{QStringLiteral("-u"), QStringLiteral("NO_AT_BRIDGE"),
                                                        QLatin1String(GetParam().program)} +
                                                GetParam().arguments + QStringList{folder}));
    }

    QString copiedFiles() {
        return session().run(QStringLiteral("sh"),
                             {QStringLiteral("-c"),
                              QStringLiteral("xclip -o -selection clipboard -t text/uri-list 2>/dev/null")});
    }
    /// Selects all and cuts it, again while the window does not show its files yet.
    void cutAll(int count) {
        EXPECT_TRUE(waitUntil(
            [&] {
                hands().chord({KEY_LEFTCTRL, KEY_A});
                hands().chord({KEY_LEFTMETA, KEY_X});
                return waitUntil([&] { return copiedFiles().count(QStringLiteral("file://")) == count; },
                                 1500);
            },
            20000))
            << "the files are not cut";
    }
    /// Pastes until `condition` holds: where the folder cannot be found out the files stay cut.
    void pasteUntil(const std::function<bool()> &condition) {
        EXPECT_TRUE(waitUntil(
            [&] {
                hands().chord({KEY_LEFTMETA, KEY_V});
                return waitUntil(condition, 3000);
            },
            20000))
            << "the files are not moved";
    }

private:
    std::vector<std::unique_ptr<QProcess>> programs_;
};

TEST_P(FileToolsTest, movesFilesFromOneWindowToAnother) {
    const QString source = makeFolder(QStringLiteral("source"));
    const QString target = makeFolder(QStringLiteral("target"));
    makeFile(source + QStringLiteral("/a.txt"), "first");
    makeFile(source + QStringLiteral("/it's 100%.txt"), "second");
    makeFile(target + QStringLiteral("/a.txt"), "was here before");
    open(source);
    cutAll(2);
    EXPECT_EQ(names(source), "a.txt it's 100%.txt") << "nothing moves before it is pasted";
    open(target);
    pasteUntil([&] { return names(source).empty() && names(target) == "a 2.txt a.txt it's 100%.txt"; });
    EXPECT_EQ(content(target + QStringLiteral("/a.txt")), "was here before");
    EXPECT_EQ(content(target + QStringLiteral("/a 2.txt")), "first");
    EXPECT_EQ(content(target + QStringLiteral("/it's 100%.txt")), "second");
    EXPECT_TRUE(waitUntil([this] { return hands().keysDown().isEmpty(); })) << "a key stays down";
}

const Manager managers[] = {
    {"thunar", "thunar"},
    {"pcmanfm", "pcmanfm", {QStringLiteral("--new-win")}},
    {"pcmanfmQt", "pcmanfm-qt", {QStringLiteral("--new-window")}},
    {"nemo", "nemo", {QStringLiteral("--no-desktop")}},
    {"caja", "caja", {QStringLiteral("--no-desktop")}},
    {"dolphin", "dolphin", {QStringLiteral("--new-window")}},
};

INSTANTIATE_TEST_SUITE_P(With, FileToolsTest, testing::ValuesIn(managers),
                         [](const auto &each) { return std::string(each.param.name); });

}  // namespace
}  // namespace pimloft::test
