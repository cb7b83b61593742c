// SPDX-License-Identifier: MIT
// Plays a person at a virtual display, for the tour: real keys and a real pointer at a human pace.
#include "desktop/support/x_desktop.h"
#include "support/desktop_session.h"
#include "support/physical_input.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QThread>

#include <cstdio>
#include <functional>

using namespace pimloft::test;

namespace {

constexpr int glideMilliseconds = 600;

constexpr char usage[] = R"(hand COMMAND... does one after the other:
  ready                 waits until Pimloft's shortcuts are live
  wait TITLE            until there is a window of that title
  place TITLE X Y W H   puts the visible frame of a window there
  raise TITLE           gives it the keyboard
  take TITLE            takes hold of its title bar
  to X Y                moves the pointer; negative values count from the right or the bottom
  drop                  lets go
  click X Y
  clickin TITLE X Y     in a window, from its top-left corner
  press KEYS            for example ctrl+super+left
  type TEXT
  pause MILLISECONDS
  picture NAME          of the whole display, numbered, into $PICTURES, with $LOOK at its name's end
)";

[[noreturn]] void fail(const QString &message) {
    std::fprintf(stderr, "hand: %s\n", qPrintable(message));
    std::exit(1);
}

class Hand {
public:
    explicit Hand(const QStringList &arguments)
        : arguments_(arguments), desktop_(qEnvironmentVariable("DISPLAY")) {}

    void run() {
        const QHash<QString, std::function<void()>> commands = {
            {QStringLiteral("ready"), [this] { waitForShortcuts(); }},
            {QStringLiteral("wait"), [this] { window(); }},
            {QStringLiteral("place"), [this] { place(); }},
            {QStringLiteral("raise"), [this] { raise(window()); }},
            {QStringLiteral("take"), [this] { take(); }},
            {QStringLiteral("to"), [this] { input_.glideTo(point(), glideMilliseconds); }},
            {QStringLiteral("drop"), [this] { input_.leftUp(); }},
            {QStringLiteral("click"), [this] { click(point()); }},
            {QStringLiteral("clickin"), [this] { clickIn(); }},
            {QStringLiteral("press"), [this] { press(next()); }},
            {QStringLiteral("type"), [this] { input_.type(next().toUtf8().constData()); }},
            {QStringLiteral("pause"), [this] { QThread::msleep(next().toUInt()); }},
            {QStringLiteral("picture"), [this] { picture(next()); }},
        };
        while (!arguments_.isEmpty()) {
            const QString name = next();
            const auto command = commands.constFind(name);
            if (command == commands.constEnd())
                fail(QStringLiteral("unknown command ") + name);
            (*command)();
        }
    }

private:
    QString next() {
        if (arguments_.isEmpty())
            fail(QStringLiteral("an argument is missing"));
        return arguments_.takeFirst();
    }
    int number() { return next().toInt(); }

    QPoint point() {
        const QRect screen = desktop_.screen();
        const int x = number();
        const int y = number();
        return {x < 0 ? screen.width() + x : x, y < 0 ? screen.height() + y : y};
    }

    xcb_window_t window() {
        const QString title = next();
        if (!waitUntil([&] { return desktop_.window(title).has_value(); }, 60000))
            fail(QStringLiteral("no window ") + title);
        return *desktop_.window(title);
    }

    void waitForShortcuts() {
        const auto live = [&] { return desktop_.isKeyTaken(KEY_6, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4); };
        if (!waitUntil(live, 60000))
            fail(QStringLiteral("Pimloft does not come up"));
    }

    void place() {
        const xcb_window_t target = window();
        const int x = number();
        const int y = number();
        const int width = number();
        const QRect frame(x, y, width, number());
        desktop_.place(target, frame);
        waitUntil([&] { return desktop_.visibleFrame(target) == frame; }, 1000);
    }

    void raise(xcb_window_t target) {
        desktop_.activate(target);
        waitUntil([&] { return desktop_.activeWindow() == target; });
    }

    void take() {
        input_.glideTo(desktop_.titleBar(window()), glideMilliseconds / 2);
        input_.leftDown();
    }

    void click(QPoint where) {
        input_.glideTo(where, glideMilliseconds / 2);
        input_.click(where);
    }

    void clickIn() {
        const QRect frame = desktop_.visibleFrame(window());
        const int x = number();
        click(frame.topLeft() + QPoint(x, number()));
    }

    void press(const QString &keys) {
        static const QHash<QString, int> codes = {
            {QStringLiteral("ctrl"), KEY_LEFTCTRL},
            {QStringLiteral("super"), KEY_LEFTMETA},
            {QStringLiteral("shift"), KEY_LEFTSHIFT},
            {QStringLiteral("alt"), KEY_LEFTALT},
            {QStringLiteral("left"), KEY_LEFT},
            {QStringLiteral("right"), KEY_RIGHT},
            {QStringLiteral("up"), KEY_UP},
            {QStringLiteral("down"), KEY_DOWN},
            {QStringLiteral("tab"), KEY_TAB},
            {QStringLiteral("escape"), KEY_ESC},
            {QStringLiteral("return"), KEY_ENTER},
            {QStringLiteral("space"), KEY_SPACE},
            {QStringLiteral("rightshift"), KEY_RIGHTSHIFT},
            {QStringLiteral("pagedown"), KEY_PAGEDOWN},
            {QStringLiteral("end"), KEY_END},
            {QStringLiteral("f4"), KEY_F4},
            {QStringLiteral("c"), KEY_C},
            {QStringLiteral("v"), KEY_V},
            {QStringLiteral("x"), KEY_X},
            {QStringLiteral("1"), KEY_1},
            {QStringLiteral("2"), KEY_2},
            {QStringLiteral("3"), KEY_3},
            {QStringLiteral("4"), KEY_4},
            {QStringLiteral("5"), KEY_5},
            {QStringLiteral("6"), KEY_6},
        };
        const QStringList names = keys.split(QLatin1Char('+'));
        for (const QString &name : names)
            if (!codes.contains(name))
                fail(QStringLiteral("unknown key ") + name);
        for (const QString &name : names)
            input_.press(codes[name]);
        for (auto name = names.crbegin(); name != names.crend(); ++name)
            input_.release(codes[*name]);
    }

    /// What is on screen once it shows something else than the last picture did, and rests. A busy machine
    /// may be behind the keys that were pressed.
    QImage restingScreen(const QImage &last) {
        QImage now;
        waitUntil([&] { return (now = desktop_.screenshot()) != last; }, 3000);
        waitUntil(
            [&] {
                QThread::msleep(120);
                const QImage before = now;
                now = desktop_.screenshot();
                return now == before;
            },
            2000);
        return now;
    }

    void picture(const QString &name) {
        const QDir folder(qEnvironmentVariable("PICTURES"));
        const QStringList before = folder.entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
        const auto number = before.size() + 1;
        const QImage last =
            before.isEmpty() ? QImage()
                             : QImage(folder.filePath(before.last())).convertToFormat(QImage::Format_RGB32);
        const QString file = QStringLiteral("%1-%2-%3.png")
                                 .arg(number, 3, 10, QLatin1Char('0'))
                                 .arg(name, qEnvironmentVariable("LOOK"));
        if (!restingScreen(last).save(folder.filePath(file)))
            fail(QStringLiteral("cannot write ") + folder.filePath(file));
        std::printf("%s\n", qPrintable(folder.filePath(file)));
    }

    QStringList arguments_;
    XDesktop desktop_;
    PhysicalInput input_;
};

}  // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty()) {
        std::fputs(usage, stderr);
        return 2;
    }
    Hand(arguments).run();
}
