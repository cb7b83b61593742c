// SPDX-License-Identifier: MIT
#include "platform/workspace/identity_table.h"

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

constexpr std::string_view finder = "com.apple.finder";
constexpr std::string_view terminal = "com.apple.Terminal";
constexpr std::string_view music = "com.apple.Music";
constexpr auto control = ShortcutChord::control;
constexpr auto controlShift = ShortcutChord::controlShift;
constexpr auto shiftInsert = ShortcutChord::shiftInsert;

// clang-format off
constexpr std::array table = {
    // Players, browsers, talk and games: what the volume mixer lists.
    IdentityRow{"com.spotify.client", control, "spotify com.spotify.Client spotify_spotify", "spotify", "spotify"},
    IdentityRow{"org.mozilla.firefox", control, "firefox firefox-esr org.mozilla.firefox firefox_firefox", "firefox firefox-esr", "firefox firefox-esr firefox-bin"},
    IdentityRow{"com.google.Chrome", control, "google-chrome com.google.Chrome", "google-chrome", "chrome"},
    IdentityRow{"com.microsoft.edgemac", control, "microsoft-edge com.microsoft.Edge", "microsoft-edge", "msedge"},
    IdentityRow{"com.brave.Browser", control, "brave-browser com.brave.Browser brave_brave brave", "brave-browser", "brave"},
    IdentityRow{"us.zoom.xos", control, "zoom us.zoom.Zoom zoom-client_zoom-client", "zoom", "zoom"},
    IdentityRow{"com.tinyspeck.slackmacgap", control, "slack com.slack.Slack slack_slack", "slack", "slack"},
    IdentityRow{"com.hnc.Discord", control, "discord com.discordapp.Discord discord_discord", "discord", "discord"},
    IdentityRow{"com.valvesoftware.steam", control, "steam com.valvesoftware.Steam steam_steam", "steam steamwebhelper", "steam steamwebhelper"},
    IdentityRow{"com.vlc-project.vlc", control, "vlc org.videolan.VLC vlc_vlc", "vlc", "vlc"},
    IdentityRow{"io.mpv", control, "mpv io.mpv.Mpv", "mpv", "mpv"},
    // Password managers: nothing is ever recorded of what is copied in them.
    IdentityRow{"com.1password.1password", control, "1password com.onepassword.OnePassword 1password_1password", "1password", "1password"},
    IdentityRow{"com.bitwarden.desktop", control, "bitwarden com.bitwarden.desktop bitwarden_bitwarden", "bitwarden", "bitwarden"},
    IdentityRow{"com.lastpass.LastPass", control, "lastpass com.lastpass.LastPass", "lastpass", "lastpass"},
    // Terminals with identifiers of their own.
    IdentityRow{"net.kovidgoyal.kitty", controlShift, "kitty net.kovidgoyal.kitty", "kitty", "kitty"},
    IdentityRow{"com.mitchellh.ghostty", controlShift, "ghostty com.mitchellh.ghostty", "ghostty com.mitchellh.ghostty", "ghostty"},
    // Terminals that do not bind Control and Shift.
    IdentityRow{terminal, shiftInsert, "xterm debian-xterm uxterm debian-uxterm koi8rxterm", "xterm uxterm koi8rxterm", "xterm"},
    IdentityRow{terminal, shiftInsert, "rxvt urxvt rxvt-unicode", "rxvt urxvt", "rxvt urxvt urxvtd rxvt-unicode"},
    IdentityRow{terminal, shiftInsert, "mlterm", "mlterm", "mlterm"},
    IdentityRow{terminal, shiftInsert, "eterm aterm", "eterm aterm", "eterm aterm"},
    // Terminals that are often run without a desktop entry.
    IdentityRow{terminal, controlShift, "alacritty org.alacritty.Alacritty", "alacritty", "alacritty"},
    IdentityRow{terminal, controlShift, "st", "st st-256color", "st"},
    IdentityRow{terminal, controlShift, "org.wezfurlong.wezterm", "org.wezfurlong.wezterm", "wezterm-gui"},
    IdentityRow{terminal, controlShift, "org.gnome.Terminal", "gnome-terminal gnome-terminal-server", "gnome-terminal-server"},
    // File managers, some of which say so nowhere in their entries.
    IdentityRow{finder, control, "thunar", "thunar", "thunar"},
    IdentityRow{finder, control, "pcmanfm", "pcmanfm", "pcmanfm"},
    IdentityRow{finder, control, "pcmanfm-qt", "pcmanfm-qt", "pcmanfm-qt"},
    IdentityRow{finder, control, "nemo nemo-desktop", "nemo nemo-desktop", "nemo nemo-desktop"},
    IdentityRow{finder, control, "caja caja-browser caja-folder-handler", "caja", "caja"},
    IdentityRow{finder, control, "org.gnome.Nautilus nautilus", "org.gnome.nautilus nautilus", "nautilus"},
    IdentityRow{finder, control, "org.kde.dolphin", "dolphin org.kde.dolphin", "dolphin"},
};

/// Programs that open folders, and are no file managers all the same: no category of theirs tells them apart.
constexpr std::array folderTools = {"baobab", "org.gnome.baobab", "org.kde.filelight", "qdirstat"};

/// Categories of programs that open a folder as a project, an album or a playlist.
constexpr std::array otherTrades = {"Development", "IDE",   "TextEditor",       "AudioVideo", "Audio",
                                    "Video",       "Graphics", "Office", "TerminalEmulator", "Network"};
// clang-format on

bool isListed(std::string_view names, const QString &name) {
    if (name.isEmpty())
        return false;
    while (!names.empty()) {
        const std::size_t length = std::min(names.find(' '), names.size());
        if (name.compare(QLatin1String(names.data(), qsizetype(length)), Qt::CaseInsensitive) == 0)
            return true;
        names.remove_prefix(std::min(length + 1, names.size()));
    }
    return false;
}

const IdentityRow *row(std::string_view IdentityRow::*column, const QString &name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const IdentityRow &each) { return isListed(each.*column, name); });
    return found == table.end() ? nullptr : &*found;
}

const IdentityRow *knownProgram(const ProgramTraits &traits, const std::optional<DesktopEntry> &entry) {
    if (entry)
        if (const IdentityRow *known = row(&IdentityRow::entries, entry->id))
            return known;
    for (const QString &name : {traits.windowClass, traits.windowInstance})
        if (const IdentityRow *known = row(&IdentityRow::classes, name))
            return known;
    const bool isUnknown = !entry && traits.windowClass.isEmpty();
    return isUnknown ? row(&IdentityRow::executables, traits.executable) : nullptr;
}

bool has(const DesktopEntry &entry, const char *category) {
    return entry.categories.contains(QLatin1String(category));
}

bool isFileManager(const DesktopEntry &entry) {
    if (has(entry, "FileManager"))
        return true;
    const auto isTool = [&](const char *id) { return entry.id == QLatin1String(id); };
    return entry.mimeTypes.contains(QLatin1String("inode/directory")) &&
           std::none_of(otherTrades.begin(), otherTrades.end(),
                        [&](const char *category) { return has(entry, category); }) &&
           std::none_of(folderTools.begin(), folderTools.end(), isTool);
}

bool isMusicPlayer(const DesktopEntry &entry) {
    return has(entry, "Audio") && has(entry, "Player") && !has(entry, "Video") && !has(entry, "WebBrowser");
}

Identity identity(std::string_view bundleId, ShortcutChord chord) {
    return {QString::fromLatin1(bundleId.data(), qsizetype(bundleId.size())), chord};
}

}  // namespace

std::span<const IdentityRow> identityTable() {
    return table;
}

Identity identify(const ProgramTraits &traits, const std::optional<DesktopEntry> &entry) {
    if (const IdentityRow *known = knownProgram(traits, entry))
        return identity(known->bundleId, known->chord);
    if (!entry)
        return {};
    if (has(*entry, "TerminalEmulator"))
        return identity(terminal, controlShift);
    if (isFileManager(*entry))
        return identity(finder, control);
    if (isMusicPlayer(*entry))
        return identity(music, control);
    return {entry->id, control};
}

Identity desktopIdentity() {
    return identity(finder, control);
}

}  // namespace pimloft
