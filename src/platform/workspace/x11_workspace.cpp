// SPDX-License-Identifier: MIT
#include "platform/workspace/x11_workspace.h"

#include "platform/workspace/default_programs.h"
#include "platform/workspace/help_topics.h"
#include "platform/workspace/running_programs.h"
#include "platform/workspace/window_icon.h"
#include "platform/x11/x11_window_info.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace pimloft {

namespace {

/// Links can come from the network: what opens them is a browser, and nothing that would do more.
bool isWebLink(const QUrl &url) {
    return url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
}

}  // namespace

X11Workspace::X11Workspace(X11Session &session, X11ActiveWindow &active, QString help, QDBusConnection bus)
    : session_(session), active_(active), help_(std::move(help)), bus_(std::move(bus)) {
    fileIcons_.setOptions(QFileIconProvider::DontUseCustomDirectoryIcons);
    QObject::connect(&active_, &X11ActiveWindow::changed, &events_, [this] { frontMayHaveChanged(); });
    programs_.onChanged = [this] {
        icons_.clear();
        frontMayHaveChanged();
    };
}

X11Workspace::~X11Workspace() = default;

std::optional<Application> X11Workspace::frontmostApplication() {
    return front().application;
}

ShortcutChord X11Workspace::frontmostChord() {
    return front().chord;
}

std::optional<QString> X11Workspace::bundleId(ProcessId process) {
    const std::vector<X11Client> clients = x11Clients(session_);
    const auto client = std::find_if(clients.begin(), clients.end(),
                                     [process](const X11Client &each) { return each.process == process; });
    const X11WindowNames names = client == clients.end() ? X11WindowNames() : client->names;
    return programs_.program(process, names).identity.bundleId;
}

std::optional<QString> X11Workspace::bundleIdOf(xcb_window_t window) {
    const Front found = look(window);
    return found.application ? found.application->bundleId : std::nullopt;
}

const X11Workspace::Front &X11Workspace::front() {
    if (!front_) {
        front_ = look(active_.current());
        announced_ = front_->application;
    }
    return *front_;
}

X11Workspace::Front X11Workspace::look(xcb_window_t window) {
    if (window == XCB_NONE)
        return {};
    const ProcessId process = windowProcess(session_, window).value_or(ProcessId{});
    const ProgramDirectory::Program &program = programs_.program(process, windowNames(session_, window));
    const Identity identity =
        windowType(session_, window) == X11WindowType::desktop ? desktopIdentity() : program.identity;
    return {Application{program.name, identity.bundleId, process, ActivationPolicy::regular}, identity.chord};
}

void X11Workspace::frontMayHaveChanged() {
    const std::optional<Application> before = announced_;
    front_.reset();
    if (front().application != before && onFrontmostChanged)
        onFrontmostChanged();
}

std::vector<Application> X11Workspace::runningApplications() {
    const std::vector<X11Client> clients = x11Clients(session_);
    programs_.keepOnly(clients);
    icons_.removeIf([this](auto each) { return !programs_.known(ProcessId(each.key())); });
    std::vector<RunningProgram> running;
    for (const X11Client &client : clients) {
        const ProgramDirectory::Program &program = programs_.program(client.process, client.names);
        if (program.start == 0)
            continue;  // has ended meanwhile
        running.push_back({{program.name, program.identity.bundleId, client.process, {}},
                           program.executable,
                           program.start,
                           !client.windows.empty()});
    }
    return applicationsAmong(std::move(running));
}

QIcon X11Workspace::icon(const Application &application) {
    const ProgramDirectory::Program *program = programs_.known(application.processId);
    const quint64 start = program ? program->start : 0;
    const auto known = icons_.constFind(qint32(application.processId));
    if (known != icons_.cend() && known->start == start && start != 0)
        return known->icon;
    const QIcon icon = lookUpIcon(application);
    icons_[qint32(application.processId)] = {start, icon};
    return icon;
}

QIcon X11Workspace::lookUpIcon(const Application &application) {
    const ProgramDirectory::Program *program = programs_.known(application.processId);
    if (program && !program->icon.isEmpty()) {
        const QIcon icon =
            QDir::isAbsolutePath(program->icon) ? QIcon(program->icon) : QIcon::fromTheme(program->icon);
        if (!icon.availableSizes().isEmpty())
            return icon;
    }
    for (const X11Client &client : x11Clients(session_)) {
        if (client.process != application.processId)
            continue;
        for (const xcb_window_t window : client.windows)
            if (const QIcon icon = windowIcon(session_.property32(window, session_.atom("_NET_WM_ICON")));
                !icon.isNull())
                return icon;
    }
    return QIcon::fromTheme(QStringLiteral("application-x-executable"));
}

QIcon X11Workspace::fileIcon(const QString &path) {
    const QIcon icon = fileIcons_.icon(QFileInfo(path));
    return icon.isNull() ? fileIcons_.icon(QFileIconProvider::File) : icon;
}

bool X11Workspace::open(const QUrl &url) {
    if (!isSettingsLink(url))
        return isWebLink(url) && openWithDefaultProgram(url);
    const auto page = helpPage(url, help_);
    return page && openWithDefaultProgram(QUrl::fromLocalFile(*page));
}

void X11Workspace::reveal(const QString &path) {
    revealInFileManager(bus_, path);
}

}  // namespace pimloft
