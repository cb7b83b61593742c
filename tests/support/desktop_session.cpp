// SPDX-License-Identifier: MIT
#include "support/desktop_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/prctl.h>
#include <unistd.h>

#include <xcb/xcb.h>

namespace pimloft::test {

namespace {

/// A process that dies with this one. Its output joins the test's, so that a failing test shows it.
std::unique_ptr<QProcess> makeProcess(const QProcessEnvironment &environment) {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(1);
    });
    return process;
}

void end(std::unique_ptr<QProcess> &process) {
    if (!process)
        return;
    process->terminate();
    if (!process->waitForFinished(2000)) {
        process->kill();
        process->waitForFinished(2000);
    }
    process.reset();
}

[[noreturn]] void fail(const QString &what) {
    qFatal("%s", qPrintable(what));
}

/// Waits for the first line that a process prints; empty when it ends without one.
QByteArray firstLine(QProcess &process, const QString &name) {
    if (!process.waitForStarted())
        fail(name + QStringLiteral(" cannot be started"));
    while (!process.canReadLine())
        if (!process.waitForReadyRead(10000))
            return {};
    return process.readLine().trimmed();
}

xcb_atom_t atom(xcb_connection_t *connection, const char *name) {
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, false, std::uint16_t(std::strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
}

/// Whether a window manager takes a new window into its care. One that announces itself may not listen yet.
bool managesWindows() {
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_atom_t state = atom(connection, "WM_STATE");
    const xcb_atom_t nudge = atom(connection, "PIMLOFT_TEST_NUDGE");
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(connection, window);
    const bool managed = waitUntil([&] {
        // openbox overlooks what it was sent while it started until something else wakes it.
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, nudge, XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_get_property_reply_t *reply = xcb_get_property_reply(
            connection, xcb_get_property(connection, false, window, state, XCB_ATOM_ANY, 0, 1), nullptr);
        const bool set = reply && reply->type == state;
        std::free(reply);
        return set;
    });
    xcb_disconnect(connection);
    return managed;
}

}  // namespace

DesktopSession::DesktopSession(const Options &options)
    : environment_(QProcessEnvironment::systemEnvironment()) {
    const QString base = home_.path();
    const std::pair<QString, QString> folders[] = {
        {QStringLiteral("HOME"), base},
        {QStringLiteral("XDG_CONFIG_HOME"), base + QStringLiteral("/config")},
        {QStringLiteral("XDG_DATA_HOME"), base + QStringLiteral("/data")},
        {QStringLiteral("XDG_CACHE_HOME"), base + QStringLiteral("/cache")},
        {QStringLiteral("XDG_RUNTIME_DIR"), base + QStringLiteral("/runtime")},
    };
    for (const auto &[name, path] : folders) {
        QDir().mkpath(path);
        environment_.insert(name, path);
    }
    QFile::setPermissions(base + QStringLiteral("/runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment_.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("x11"));
    environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment_.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    environment_.remove(QStringLiteral("WAYLAND_DISPLAY"));
    startServer(options);
    startBus();
    for (const QString &name : environment_.keys())
        qputenv(name.toUtf8().constData(), environment_.value(name).toUtf8());
    if (!options.windowManager.isEmpty())
        startWindowManager(options.windowManager);
}

DesktopSession::~DesktopSession() {
    end(windowManager_);
    end(bus_);
    end(server_);
}

void DesktopSession::startServer(const Options &options) {
    const QStringList arguments = QStringList{QStringLiteral("-displayfd"),
                                              QStringLiteral("1"),
                                              QStringLiteral("-screen"),
                                              QStringLiteral("0"),
                                              options.screen,
                                              QStringLiteral("-nolisten"),
                                              QStringLiteral("tcp"),
                                              QStringLiteral("-noreset")} +
                                  options.serverArguments;
    // Two servers that look for a free display at the same moment can end up with none.
    for (int attempt = 0; attempt < 5; ++attempt) {
        server_ = makeProcess(environment_);
        server_->start(QStringLiteral("Xvfb"), arguments);
        const QByteArray number = firstLine(*server_, QStringLiteral("Xvfb"));
        if (number.isEmpty())
            continue;
        environment_.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + QString::fromLatin1(number));
        return;
    }
    fail(QStringLiteral("Xvfb does not come up"));
}

void DesktopSession::startBus() {
    bus_ = makeProcess(environment_);
    bus_->start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                 QStringLiteral("--address=unix:path=%1/bus").arg(home_.path())});
    const QByteArray address = firstLine(*bus_, QStringLiteral("dbus-daemon"));
    if (address.isEmpty())
        fail(QStringLiteral("dbus-daemon does not come up"));
    // Without the server's identity, as a login has it: another one may listen at the same place later.
    environment_.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                        QString::fromLatin1(address.left(address.indexOf(','))));
}

std::unique_ptr<QProcess> DesktopSession::start(const QString &program, const QStringList &arguments) const {
    auto process = makeProcess(environment_);
    process->start(program, arguments);
    if (!process->waitForStarted())
        fail(program + QStringLiteral(" cannot be started"));
    return process;
}

QString DesktopSession::run(const QString &program, const QStringList &arguments) const {
    const auto process = start(program, arguments);
    if (!process->waitForFinished())
        fail(program + QStringLiteral(" does not end"));
    return QString::fromUtf8(process->readAllStandardOutput());
}

void DesktopSession::startAccessibility() const {
    run(QStringLiteral("dbus-send"),
        {QStringLiteral("--session"), QStringLiteral("--print-reply"), QStringLiteral("--dest=org.a11y.Bus"),
         QStringLiteral("/org/a11y/bus"), QStringLiteral("org.a11y.Bus.GetAddress")});
}

void DesktopSession::startWindowManager(const QString &name) {
    windowManager_ = start(name);
    const bool up = waitUntil([this] {
        return run(QStringLiteral("xprop"),
                   {QStringLiteral("-root"), QStringLiteral("_NET_SUPPORTING_WM_CHECK")})
            .contains(QStringLiteral("window id"));
    });
    if (!up || !managesWindows())
        fail(name + QStringLiteral(" does not manage the display"));
}

void DesktopSession::stopWindowManager() {
    end(windowManager_);
}

void DesktopSession::killServer() {
    server_->kill();
    server_->waitForFinished();
}

void DesktopSession::killBus() {
    bus_->kill();
    bus_->waitForFinished();
    QFile::remove(home_.path() + QStringLiteral("/bus"));
}

bool waitUntil(const std::function<bool()> &condition, int milliseconds) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(milliseconds))
            return condition();
        // What is waited for may happen in another process, which sends this one no event.
        if (QCoreApplication::instance())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(2);
    }
    return true;
}

}  // namespace pimloft::test
