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

/// Of entries with one name or program the one in the menus counts, then the one with the plainest id.
bool comesFirst(const DesktopEntry &a, const DesktopEntry &b) {
    if (a.isHidden != b.isHidden)
        return !a.isHidden;
    if (a.id.size() != b.id.size())
        return a.id.size() < b.id.size();
    return a.id < b.id;
}

}  // namespace

/// Tells of changes for as long as it lives.
struct DesktopEntries::Monitor {
    explicit Monitor(DesktopEntries &owner) : entries(owner) {
        handler = g_signal_connect(monitor, "changed", G_CALLBACK(&Monitor::changed), this);
    }
    ~Monitor() {
        g_signal_handler_disconnect(monitor, handler);
        g_object_unref(monitor);
    }

    static void changed(GAppInfoMonitor *, gpointer data) {
        DesktopEntries &entries = static_cast<Monitor *>(data)->entries;
        entries.isRead_ = false;
        if (entries.onChanged)
            entries.onChanged();
    }

    DesktopEntries &entries;
    GAppInfoMonitor *monitor = g_app_info_monitor_get();
    gulong handler = 0;
};

DesktopEntries::DesktopEntries() = default;
DesktopEntries::~DesktopEntries() = default;

void DesktopEntries::read() {
    if (!monitor_)
        monitor_ = std::make_unique<Monitor>(*this);
    entries_.clear();
    GList *all = g_app_info_get_all();
    for (GList *each = all; each; each = each->next)
        if (G_IS_DESKTOP_APP_INFO(each->data))
            entries_.push_back(describe(G_APP_INFO(each->data)));
    g_list_free_full(all, g_object_unref);
    std::sort(entries_.begin(), entries_.end(), comesFirst);

    for (auto *index : {&byId_, &byLastPart_, &byStartupClass_, &byExecutable_})
        index->clear();
    for (int position = 0; position < int(entries_.size()); ++position)
        addToIndex(entries_[std::size_t(position)], position);
    isRead_ = true;
}

void DesktopEntries::addToIndex(const DesktopEntry &entry, int position) {
    const auto add = [position](QHash<QString, int> &index, const QString &key) {
        if (!key.isEmpty() && !index.contains(key.toLower()))
            index.insert(key.toLower(), position);
    };
    add(byId_, entry.id);
    if (entry.id.contains(u'.'))
        add(byLastPart_, entry.id.section(u'.', -1));
    add(byStartupClass_, entry.startupClass);
    add(byExecutable_, entry.executable);
}

std::optional<DesktopEntry> DesktopEntries::find(const QHash<QString, int> &index, const QString &key) const {
    const auto found = index.find(key.toLower());
    return key.isEmpty() || found == index.end() ? std::nullopt
                                                 : std::optional(entries_[std::size_t(*found)]);
}

std::optional<DesktopEntry> DesktopEntries::match(const ProgramTraits &traits) {
    if (!isRead_)
        read();
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

}  // namespace pimloft
