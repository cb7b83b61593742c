// SPDX-License-Identifier: MIT
// Before Qt, which makes a macro of a name that GIO uses.
#include <gio/gdesktopappinfo.h>

#include "platform/workspace/desktop_entries.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

/// Programs that run other programs: that two run by the same one says nothing.
constexpr std::array launchers = {"bash", "dash", "electron", "env",  "flatpak", "gjs",
                                  "java", "mono", "node",     "perl", "pkexec",  "ruby",
                                  "sh",   "snap", "sudo",     "wine", "python",  "xterm"};

bool isLauncher(const QString &executable) {
    QString name = executable;
    // "python3.11", "wine64"
    while (!name.isEmpty() && (name.back().isDigit() || name.back() == u'.'))
        name.chop(1);
    return std::any_of(launchers.begin(), launchers.end(),
                       [&](const char *launcher) { return name == QLatin1String(launcher); });
}

QString text(const char *utf8) {
    return QString::fromUtf8(utf8);
}

QStringList list(const char *const *texts) {
    QStringList result;
    for (; texts && *texts; ++texts)
        result.append(text(*texts));
    return result;
}

QString withoutSuffix(const char *id) {
    QString result = text(id);
    const QString suffix = QStringLiteral(".desktop");
    if (result.endsWith(suffix))
        result.chop(suffix.size());
    return result;
}

QString iconText(GAppInfo *info) {
    GIcon *icon = g_app_info_get_icon(info);
    if (!icon)
        return {};
    gchar *form = g_icon_to_string(icon);
    const QString result = text(form);
    g_free(form);
    return result;
}

DesktopEntry describe(GAppInfo *info) {
    GDesktopAppInfo *desktop = G_DESKTOP_APP_INFO(info);
    const QString executable = QFileInfo(text(g_app_info_get_executable(info))).fileName();
    return {.id = withoutSuffix(g_app_info_get_id(info)),
            .name = text(g_app_info_get_name(info)),
            .icon = iconText(info),
            .startupClass = text(g_desktop_app_info_get_startup_wm_class(desktop)),
            .executable = isLauncher(executable) ? QString() : executable,
            .categories = text(g_desktop_app_info_get_categories(desktop)).split(u';', Qt::SkipEmptyParts),
            .mimeTypes = list(g_app_info_get_supported_types(info)),
            .isHidden = g_desktop_app_info_get_nodisplay(desktop) != 0};
}

bool comesFirst(const DesktopEntry &a, const DesktopEntry &b) {
    if (a.isHidden != b.isHidden)
        return !a.isHidden;
    if (a.id.size() != b.id.size())
        return a.id.size() < b.id.size();
    return a.id < b.id;
}

/// What GIO reads files with talks to the session bus, by a connection that would end the process with the
/// bus. Our reference is kept, as the setting goes with the connection.
void outliveTheBus() {
    // They also complain of it, where nobody can do anything about it.
    g_log_set_handler(
        "GVFS", G_LOG_LEVEL_WARNING, [](auto...) {}, nullptr);
    if (GDBusConnection *bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr))
        g_dbus_connection_set_exit_on_close(bus, false);
}

std::vector<DesktopEntry> installedEntries() {
    outliveTheBus();
    std::vector<DesktopEntry> entries;
    GList *all = g_app_info_get_all();
    for (GList *each = all; each; each = each->next)
        if (G_IS_DESKTOP_APP_INFO(each->data))
            entries.push_back(describe(G_APP_INFO(each->data)));
    g_list_free_full(all, g_object_unref);
    return entries;
}

}  // namespace

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries) : entries_(std::move(entries)) {
    std::sort(entries_.begin(), entries_.end(), comesFirst);
    for (int position = 0; position < int(entries_.size()); ++position)
        add(entries_[std::size_t(position)], position);
}

void DesktopEntryIndex::add(const DesktopEntry &entry, int position) {
    const auto insert = [position](QHash<QString, int> &index, const QString &key) {
        if (!key.isEmpty() && !index.contains(key.toLower()))
            index.insert(key.toLower(), position);
    };
    insert(byId_, entry.id);
    if (entry.id.contains(u'.'))
        insert(byLastPart_, entry.id.section(u'.', -1));
    insert(byStartupClass_, entry.startupClass);
    insert(byExecutable_, entry.executable);
}

std::optional<DesktopEntry> DesktopEntryIndex::find(const QHash<QString, int> &index,
                                                    const QString &key) const {
    const auto found = index.find(key.toLower());
    return key.isEmpty() || found == index.end() ? std::nullopt
                                                 : std::optional(entries_[std::size_t(*found)]);
}

std::optional<DesktopEntry> DesktopEntryIndex::match(const ProgramTraits &traits) const {
    const struct {
        const QHash<QString, int> &index;
        QString key;
    } steps[] = {
        {byId_, QFileInfo(traits.launchedEntry).completeBaseName()},
        {byId_, traits.gtkApplicationId},
        {byStartupClass_, traits.windowClass},
        {byStartupClass_, traits.windowInstance},
        {byId_, traits.windowClass},
        {byId_, traits.windowInstance},
        {byLastPart_, traits.windowClass},
        {byLastPart_, traits.windowInstance},
        {byExecutable_, traits.executable},
    };
    for (const auto &step : steps)
        if (const auto entry = find(step.index, step.key))
            return entry;
    return std::nullopt;
}

/// Tells of changes for as long as it lives.
struct DesktopEntries::Monitor {
    explicit Monitor(DesktopEntries &owner) : entries(owner) {
        handler = g_signal_connect(monitor, "changed", G_CALLBACK(&Monitor::changed), this);
    }
    ~Monitor() {
        g_signal_handler_disconnect(monitor, handler);
        g_object_unref(monitor);
    }

    static void changed(GAppInfoMonitor *, gpointer data) { static_cast<Monitor *>(data)->entries.read(); }

    DesktopEntries &entries;
    GAppInfoMonitor *monitor = g_app_info_monitor_get();
    gulong handler = 0;
};

DesktopEntries::DesktopEntries() = default;

DesktopEntries::~DesktopEntries() {
    if (reader_.joinable())
        reader_.join();
}

std::optional<DesktopEntry> DesktopEntries::match(const ProgramTraits &traits) {
    if (!monitor_) {
        monitor_ = std::make_unique<Monitor>(*this);
        read();
    }
    return index_.match(traits);
}

void DesktopEntries::read() {
    isOutdated_ = isReading_;
    if (isReading_)
        return;
    isReading_ = true;
    if (reader_.joinable())
        reader_.join();
    reader_ = std::thread([this] {
        QMetaObject::invokeMethod(
            &receiver_, [this, index = DesktopEntryIndex(installedEntries())] { take(index); },
            Qt::QueuedConnection);
    });
}

void DesktopEntries::take(DesktopEntryIndex index) {
    index_ = std::move(index);
    isReading_ = false;
    if (isOutdated_)
        read();
    if (onChanged)
        onChanged();
}

}  // namespace pimloft
