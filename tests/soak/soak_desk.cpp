// SPDX-License-Identifier: MIT
#include "soak/soak_desk.h"

#include "desktop/support/first_run.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>

#include <algorithm>
#include <sys/stat.h>

namespace pimloft::test {

namespace {

constexpr std::uint16_t controlSuper = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4;

void write(const QString &path, const QByteArray &content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}

/// F5 to F6, in every program.
QJsonObject plainRule() {
    return {{QStringLiteral("id"), QStringLiteral("8F0E7A52-6A0C-4C4E-9C39-2B6B6B1F2B11")},
            {QStringLiteral("fromKeyCode"), 96},
            {QStringLiteral("fromModifiersRaw"), 0},
            {QStringLiteral("toKeyCode"), 97},
            {QStringLiteral("toModifiersRaw"), 0},
            {QStringLiteral("excludedApps"), QJsonArray()}};
}

}  // namespace

SoakDesk::Sound::Sound() : SoundServer(Kind::pulseAudio) {
    start();
    addSink(QStringLiteral("speakers"), QStringLiteral("Speakers"));
    addSink(QStringLiteral("headphones"), QStringLiteral("Headphones"));
}

SoakDesk::SoakDesk(quint32 seed)
    : session({.windowManager = QStringLiteral("openbox"), .serverArguments = {}}),
      desktop(session.display()), random(seed), tray_(session.display()) {
    session.startAccessibility();
    writeSettings();
    pimloft = std::make_unique<Program>(session);
    const bool isUp = waitUntil(
        [this] {
            return desktop.isKeyTaken(KEY_6, controlSuper) && desktop.isKeyTaken(KEY_V, XCB_MOD_MASK_4);
        },
        20000);
    if (!isUp || !waitUntil([this] { return tray_.hasIcon(); }))
        qFatal("Pimloft does not come up: %s", qPrintable(pimloft->complaints()));
    editor = open(QStringLiteral(CLIENTS "/qt_client"), {QStringLiteral("Editor")}, QStringLiteral("Editor"));
    notes = open(QStringLiteral(CLIENTS "/gtk_client"), {QStringLiteral("Notes")}, QStringLiteral("Notes"));
    terminal =
        open(QStringLiteral("xterm"),
             {QStringLiteral("-T"), QStringLiteral("Terminal"), QStringLiteral("-e"), QStringLiteral("cat")},
             QStringLiteral("Terminal"));
    const QString manager = QStringLiteral("env");
    for (const QString &name : {QStringLiteral("left"), QStringLiteral("right")}) {
        (name == QLatin1String("left") ? left : right) = open(
            manager,
            {QStringLiteral("-u"), QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("thunar"), folder(name)},
            name);
    }
}

SoakDesk::~SoakDesk() {
    for (auto *all : {&copied_, &programs_})
        for (const auto &program : *all) {
            program->kill();
            program->waitForFinished();
        }
}

void SoakDesk::writeSettings() {
    skipFirstRun(session, {{QStringLiteral("pimloft.keymapper.preset.Home/End Fix"), true},
                           {QStringLiteral("pimloft.clipboardplus.maxItems"), historyLength}});
    write(folder(QStringLiteral("data/Pimloft/key_mappings.json")),
          QJsonDocument(QJsonArray{plainRule()}).toJson());
    QDir().mkpath(folder(QStringLiteral("right")));
    for (int number = 1; number <= 5; ++number)
        write(folder(QStringLiteral("left/paper %1.txt").arg(number)), QByteArray(10'000 * number, 'x'));
}

xcb_window_t SoakDesk::open(const QString &program, const QStringList &arguments, const QString &title) {
    programs_.push_back(session.start(program, arguments));
    xcb_window_t found = XCB_NONE;
    const bool isThere = waitUntil(
        [&] {
            for (const xcb_window_t each : desktop.windows())
                if (desktop.title(each).startsWith(title))
                    found = each;
            return found != XCB_NONE;
        },
        40000);
    if (!isThere)
        qFatal("%s does not open its window", qPrintable(program));
    return found;
}

bool SoakDesk::raise(xcb_window_t window) {
    return waitUntil([&] {
        if (desktop.activeWindow() == window)
            return true;
        desktop.activate(window);
        return waitUntil([&] { return desktop.activeWindow() == window; }, 500);
    });
}

xcb_window_t SoakDesk::anyWindow() {
    const xcb_window_t all[] = {editor, notes, terminal};
    return all[random.bounded(3)];
}

QPoint SoakDesk::anyPoint(const QRect &area) {
    return area.topLeft() + QPoint(random.bounded(area.width()), random.bounded(area.height()));
}

bool SoakDesk::waitForPanel(bool open) {
    return waitUntil([&] { return hasPanel() == open; }, 3000);
}

bool SoakDesk::openPanel() {
    const bool isOpen = waitUntil([this] {
        // The icon may have to ask for its place again.
        tray_.hasIcon();
        hands.click(TrayHost::frame.center());
        return waitUntil([this] { return hasPanel(); }, 1500);
    });
    settle();
    return isOpen;
}

bool SoakDesk::awaitKeys() {
    // A key that nothing else presses. It does nothing by itself, and comes after all that were pressed
    // before.
    constexpr int last = KEY_RIGHTCTRL;
    hands.press(last);
    const bool hasArrived = waitUntil([&] { return hands.keysDown().contains(last); });
    hands.release(last);
    return waitUntil([&] { return hands.keysDown().isEmpty() && hands.keysDownOnXTest().isEmpty(); }) &&
           hasArrived;
}

void SoakDesk::settle() const {
    say("ping");
}

std::string SoakDesk::socket() const {
    const QDir runtime(folder(QStringLiteral("runtime")));
    const QStringList found = runtime.entryList({QStringLiteral("pimloft*.socket")}, QDir::System);
    return runtime.filePath(found.value(0)).toStdString();
}

void SoakDesk::say(const char *command) const {
    QLocalSocket knock;
    knock.connectToServer(QString::fromStdString(socket()));
    knock.write(command + QByteArray("\n"));
    knock.waitForReadyRead(3000);
}

void SoakDesk::copy(const QString &program, const QStringList &arguments, const QByteArray &input) {
    std::erase_if(copied_, [](const auto &each) { return each->state() == QProcess::NotRunning; });
    copied_.push_back(session.start(program, arguments));
    QProcess &process = *copied_.back();
    process.write(input);
    while (process.bytesToWrite() > 0 && process.waitForBytesWritten())
        ;
    process.closeWriteChannel();
}

quint64 SoakDesk::historyVersion() const {
    struct stat file {};
    stat(QFile::encodeName(folder(QStringLiteral("data/Pimloft/clipboard_history.json"))).constData(), &file);
    return quint64(file.st_ino) * 31 + quint64(file.st_mtim.tv_nsec);
}

bool SoakDesk::isFeatureOn(const QString &id) const {
    return storedPreferences(session).value(QStringLiteral("pimloft.%1.enabled").arg(id)).toBool(true);
}

}  // namespace pimloft::test
