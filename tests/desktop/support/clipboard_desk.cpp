// SPDX-License-Identifier: MIT
#include "desktop/support/clipboard_desk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace pimloft::test {

namespace {

std::string summary(const QJsonObject &entry) {
    const QJsonObject content = entry.value(QStringLiteral("content")).toObject();
    const QString kind = content.keys().value(0);
    const QString value = content.value(kind).toObject().value(QStringLiteral("_0")).toString();
    const bool isText = kind != QLatin1String("image");
    return (isText ? kind + QStringLiteral(": ") + value : kind).toStdString();
}

QByteArray readAll(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

ClipboardDesk::~ClipboardDesk() {
    for (const auto &program : programs_) {
        program->kill();
        program->waitForFinished();
    }
}

void ClipboardDesk::startWatching() {
    startPimloft();
    EXPECT_TRUE(waitUntil([this] { return desktop().isKeyTaken(KEY_V, controlSuper | XCB_MOD_MASK_SHIFT); }));
}

std::vector<std::string> ClipboardDesk::history() {
    const QByteArray file =
        readAll(session().home() + QStringLiteral("/data/Pimloft/clipboard_history.json"));
    std::vector<std::string> result;
    for (const QJsonValue &entry : QJsonDocument::fromJson(file).array())
        result.push_back(summary(entry.toObject()));
    return result;
}

void ClipboardDesk::expectNewest(const std::string &entry) {
    std::string newest;
    const auto look = [&] {
        const std::vector<std::string> all = history();
        newest = all.empty() ? "(nothing)" : all.front();
        return newest == entry;
    };
    EXPECT_TRUE(waitUntil(look)) << "the newest entry is \"" << newest << "\" and not \"" << entry << '"';
}

void ClipboardDesk::copy(const QString &program, const QStringList &arguments, const QByteArray &input) {
    programs_.push_back(session().start(program, arguments));
    QProcess &process = *programs_.back();
    process.write(input);
    process.waitForBytesWritten();
    process.closeWriteChannel();
}

void ClipboardDesk::expectSaying(const char *line) {
    QByteArray said;
    EXPECT_TRUE(waitUntil(
        [&] {
            said += programs_.back()->readAllStandardOutput();
            return said.contains(line);
        },
        10000))
        << "it says " << said.toStdString();
}

void ClipboardDesk::copyText(const QByteArray &text) {
    copy(QStringLiteral("xclip"), {QStringLiteral("-selection"), QStringLiteral("clipboard")}, text);
    expectNewest("text: " + text.toStdString());
}

xcb_window_t ClipboardDesk::openEditor(Editor editor) {
    const QString title = QStringLiteral("Editor");
    contentFile_ = session().home() + QStringLiteral("/content");
    QFile::remove(contentFile_);
    if (editor == Editor::qt)
        return openWindow(Client::qt, title, {500, 250, 640, 500}, {contentFile_});
    if (editor == Editor::gtk)
        return openWindow(Client::gtk, title, {500, 250, 640, 500}, {contentFile_});
    programs_.push_back(session().start(QStringLiteral("xterm"),
                                        {QStringLiteral("-T"), title, QStringLiteral("-xrm"),
                                         QStringLiteral("XTerm*selectToClipboard: true"),
                                         QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
                                         QStringLiteral("cat > '%1'").arg(contentFile_)}));
    EXPECT_TRUE(waitUntil([&] { return desktop().window(title).has_value(); }));
    const xcb_window_t window = desktop().window(title).value_or(XCB_NONE);
    desktop().activate(window);
    EXPECT_TRUE(waitUntil([&] { return desktop().activeWindow() == window; }));
    // The terminal is usable once its shell has made the file.
    EXPECT_TRUE(waitUntil([&] { return QFileInfo::exists(contentFile_); }));
    return window;
}

std::string ClipboardDesk::content() const {
    return readAll(contentFile_).trimmed().toStdString();
}

void ClipboardDesk::expectContent(const std::string &expected) {
    EXPECT_TRUE(waitUntil([&] { return content() == expected; }))
        << "it holds \"" << content() << "\" and not \"" << expected << '"';
}

xcb_window_t ClipboardDesk::openFileManager(const QString &folder) {
    const QString title = QFileInfo(folder).fileName();
    programs_.push_back(session().start(QStringLiteral("thunar"), {folder}));
    const auto window = [&]() -> std::optional<xcb_window_t> {
        const auto all = desktop().windows();
        const auto found = std::find_if(all.begin(), all.end(), [&](xcb_window_t each) {
            return desktop().title(each).startsWith(title);
        });
        return found == all.end() ? std::nullopt : std::optional(*found);
    };
    EXPECT_TRUE(waitUntil([&] { return window().has_value(); }, 20000)) << "no file manager opens";
    if (!window())
        return XCB_NONE;
    desktop().activate(*window());
    EXPECT_TRUE(waitUntil([&] { return desktop().activeWindow() == window(); }));
    return *window();
}

QString ClipboardDesk::makeFile(const QString &path) {
    const QString whole = session().home() + QLatin1Char('/') + path;
    QDir().mkpath(QFileInfo(whole).path());
    QFile file(whole);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("content") > 0);
    return whole;
}

void ClipboardDesk::openPopup() {
    hands().moveTo(middle);
    // While the last one fades away, which nobody sees without a compositor, no other opens.
    ASSERT_TRUE(waitUntil([this] {
        hands().chord({KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V});
        return waitUntil([this] { return isPopupOpen(); }, 1000);
    })) << "the popup does not open";
    letPimloftCatchUp();
}

/// The popup is 420 points high and centred on the pointer; the rows follow the field at its top.
QPoint ClipboardDesk::row(int number) {
    constexpr int firstRow = 78;
    constexpr int rowHeight = 54;
    return {middle.x() - 60, middle.y() - 210 + firstRow + number * rowHeight};
}

void ClipboardDesk::pasteRow(int number) {
    hands().doubleClick(row(number));
    EXPECT_TRUE(waitUntil([this] { return !isPopupOpen(); })) << "the popup does not close";
}

}  // namespace pimloft::test
