// SPDX-License-Identifier: MIT
#include "file_manager_desk.h"

#include "platform/scripting/finder_script.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>

namespace pimloft::test {

namespace {

/// A file manager starts slowly while other tests run.
constexpr int starting = 40000;

/// Everything but the first window of a file manager is fast.
constexpr int acting = 15000;

std::string text(const ScriptResult &result) {
    if (result.error)
        return "unknown";
    if (result.items.empty())
        return "none";
    return QStringList(result.items.begin(), result.items.end()).join(u'\n').toStdString();
}

/// As sessions do at login. Qt's programs tell those who read the screen only where that bus runs before
/// them.
void startAccessibility() {
    QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
}

/// Programs that stay for all tests of a run, so that each does not start its own.
std::vector<std::unique_ptr<QProcess>> &lasting() {
    static std::vector<std::unique_ptr<QProcess>> programs;
    return programs;
}

}  // namespace

std::ostream &operator<<(std::ostream &out, const FileManagerUnderTest &manager) {
    return out << manager.name;
}

FileManagerDesk::FileManagerDesk()
    : workspace_(xSession_, active_, session().home(), QDBusConnection::sessionBus()),
      desktop_(session().display()), desktopFolder_(session().home() + QStringLiteral("/Desktop")) {
    QDir().mkpath(desktopFolder_);
    startAccessibility();
    scripts_ = std::make_unique<FinderScripts>(std::make_unique<FileManagers>(FileManagers::Surroundings{
        .session = xSession_,
        .pasteboard = pasteboard_,
        .keys = keys_,
        .bus = QDBusConnection::sessionBus(),
        .isFileManager =
            [this](xcb_window_t window) {
                return workspace_.bundleIdOf(window) == QLatin1String("com.apple.finder");
            },
        .home = QFile::encodeName(session().home()),
        .desktop = [this] { return QFile::encodeName(desktopFolder_); }}));
}

FileManagerDesk::~FileManagerDesk() {
    for (auto &program : programs_) {
        program->kill();
        program->waitForFinished();
    }
    for (const xcb_window_t window : opened_)
        desktop_.close(window);
    waitUntil([this] {
        const auto windows = desktop_.windows();
        return std::none_of(opened_.begin(), opened_.end(), [&](xcb_window_t window) {
            return std::find(windows.begin(), windows.end(), window) != windows.end();
        });
    });
    if (hasOneWindow_)
        TearDownTestSuite();
}

void FileManagerDesk::TearDownTestSuite() {
    for (auto &program : lasting()) {
        program->terminate();
        if (!program->waitForFinished(2000))
            program->kill();
        program->waitForFinished();
    }
    lasting().clear();
}

QString FileManagerDesk::makeFolder(const QString &name, const std::vector<QByteArray> &files) {
    const QString path = session().home() + QLatin1Char('/') + name;
    QDir().mkpath(path);
    for (const QByteArray &file : files) {
        // Qt would take names that are no text for something else.
        FILE *made = std::fopen((QFile::encodeName(path) + '/' + file).constData(), "w");
        EXPECT_TRUE(made) << file.toStdString();
        if (made)
            std::fclose(made);
    }
    return path;
}

xcb_window_t FileManagerDesk::open(const FileManagerUnderTest &manager, const QString &folder) {
    startsElsewhere_ = manager.startsElsewhere;
    hasOneWindow_ = manager.hasOneWindow;
    // It would end with its last window.
    if (lasting().empty() && !hasOneWindow_) {
        openAnother(manager, makeFolder(QStringLiteral("always open"), {}));
        opened_.clear();
    }
    return openAnother(manager, folder);
}

xcb_window_t FileManagerDesk::openAnother(const FileManagerUnderTest &manager, const QString &folder) {
    const auto before = desktop_.windows();
    const auto isNew = [&](xcb_window_t window) {
        return std::find(before.begin(), before.end(), window) == before.end() &&
               desktop_.title(window).startsWith(QFileInfo(folder).fileName());
    };
    // Tests tell programs that nobody reads the screen, and there is no graphics card to draw with.
    lasting().push_back(
        session().start(QStringLiteral("env"),
                        QStringList{QStringLiteral("-u"), QStringLiteral("NO_AT_BRIDGE"),
                                    QStringLiteral("GSK_RENDERER=cairo"), QLatin1String(manager.program)} +
                            manager.arguments + QStringList{folder}));
    xcb_window_t window = XCB_NONE;
    EXPECT_TRUE(waitUntil(
        [&] {
            const auto windows = desktop_.windows();
            const auto found = std::find_if(windows.begin(), windows.end(), isNew);
            window = found == windows.end() ? xcb_window_t(XCB_NONE) : *found;
            return window != XCB_NONE;
        },
        starting))
        << manager.program << " shows no window of " << folder.toStdString();
    opened_.push_back(window);
    bringToFront(window);
    return window;
}

void FileManagerDesk::bringToFront(xcb_window_t window) {
    EXPECT_TRUE(waitUntil(
        [&] {
            if (desktop_.activeWindow() != window)
                desktop_.activate(window);
            return desktop_.activeWindow() == window;
        },
        acting));
}

void FileManagerDesk::selectAll() {
    if (startsElsewhere_)
        clickBesideFiles(desktop_.activeWindow());
    hands_.chord({KEY_LEFTCTRL, KEY_A});
}

void FileManagerDesk::clickBesideFiles(xcb_window_t window) {
    const QRect frame = desktop_.visibleFrame(window);
    hands_.click({frame.right() - 60, frame.bottom() - 90});
}

QString FileManagerDesk::finderSelection() {
    return finderSelectionScript();
}

QString FileManagerDesk::finderFolder() {
    return finderTargetScript();
}

std::string FileManagerDesk::run(const QString &script) {
    std::optional<ScriptResult> result;
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(scripts_->handle(script, [&result](ScriptResult answer) { result = std::move(answer); }));
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }, acting));
    longest_ = std::max(longest_, double(elapsed.nsecsElapsed()) / 1e6);
    return text(result.value_or(ScriptResult{{}, QString()}));
}

void FileManagerDesk::expectAllSelected(const std::string &expected, int milliseconds) {
    // Whatever was pressed while the window did not show its files yet is lost.
    constexpr int showing = 2000;
    std::string last;
    const auto isSelected = [&] { return (last = selection()) == expected; };
    EXPECT_TRUE(waitUntil(
        [&] {
            selectAll();
            return waitUntil(isSelected, showing);
        },
        milliseconds))
        << "selected is " << last.substr(0, 300) << "\nand not " << expected.substr(0, 300);
}

void FileManagerDesk::expectSelection(const std::string &expected) {
    std::string last;
    EXPECT_TRUE(waitUntil([&] { return (last = selection()) == expected; }, acting))
        << "selected is " << last << "\nand not " << expected;
}

void FileManagerDesk::expectFolder(const QString &expected) {
    std::string last;
    EXPECT_TRUE(waitUntil([&] { return (last = shown()) == expected.toStdString(); }, acting))
        << "shown is " << last << "\nand not " << expected.toStdString();
}

void FileManagerDesk::copyText(const QByteArray &text) {
    const qint64 before = changeCount();
    programs_.push_back(session().start(
        QStringLiteral("sh"),
        {QStringLiteral("-c"), QStringLiteral("exec xclip -quiet -selection clipboard 2>/dev/null")}));
    programs_.back()->write(text);
    programs_.back()->closeWriteChannel();
    EXPECT_TRUE(waitUntil([&] { return changeCount() > before; }, acting)) << "nothing is copied";
}

std::string FileManagerDesk::clipboardText() {
    return session()
        .run(QStringLiteral("xclip"),
             {QStringLiteral("-o"), QStringLiteral("-selection"), QStringLiteral("clipboard")})
        .toStdString();
}

}  // namespace pimloft::test
