// SPDX-License-Identifier: MIT
#include "platform/workspace/identity_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace pimloft {
namespace {

QString text(std::string_view view) {
    return QString::fromLatin1(view.data(), qsizetype(view.size()));
}

QString chordName(ShortcutChord chord) {
    static const std::array names{QStringLiteral("control"), QStringLiteral("controlShift"),
                                  QStringLiteral("shiftInsert")};
    return names.at(std::size_t(chord));
}

std::string summary(const Identity &identity) {
    return (identity.bundleId.value_or(QStringLiteral("(none)")) + QStringLiteral(", ") +
            chordName(identity.chord))
        .toStdString();
}

DesktopEntry entry(const char *id, const char *categories = "", const char *mimeTypes = "") {
    DesktopEntry result;
    result.id = QLatin1String(id);
    result.categories = QString::fromLatin1(categories).split(u';', Qt::SkipEmptyParts);
    result.mimeTypes = QString::fromLatin1(mimeTypes).split(u';', Qt::SkipEmptyParts);
    return result;
}

/// One name that a program is known by, and what it is then known as.
struct Known {
    const char *kind;  ///< of the name: "entry", "class", "executable"
    const char *name;
    const char *identity;

    friend void PrintTo(const Known &known, std::ostream *out) { *out << known.kind << ' ' << known.name; }
};

Identity identityOf(const Known &known) {
    const QString name = QLatin1String(known.name);
    if (std::string_view(known.kind) == "entry")
        return identify({}, entry(known.name));
    ProgramTraits traits;
    (std::string_view(known.kind) == "class" ? traits.windowClass : traits.executable) = name;
    return identify(traits, std::nullopt);
}

// clang-format off
constexpr std::array known = {
    Known{"entry", "spotify", "com.spotify.client, control"},
    Known{"entry", "com.spotify.Client", "com.spotify.client, control"},
    Known{"entry", "spotify_spotify", "com.spotify.client, control"},
    Known{"class", "Spotify", "com.spotify.client, control"},
    Known{"executable", "spotify", "com.spotify.client, control"},
    Known{"entry", "firefox", "org.mozilla.firefox, control"},
    Known{"entry", "firefox-esr", "org.mozilla.firefox, control"},
    Known{"entry", "org.mozilla.firefox", "org.mozilla.firefox, control"},
    Known{"entry", "firefox_firefox", "org.mozilla.firefox, control"},
    Known{"class", "firefox", "org.mozilla.firefox, control"},
    Known{"class", "firefox-esr", "org.mozilla.firefox, control"},
    Known{"executable", "firefox-bin", "org.mozilla.firefox, control"},
    Known{"executable", "firefox-esr", "org.mozilla.firefox, control"},
    Known{"executable", "firefox", "org.mozilla.firefox, control"},
    Known{"entry", "google-chrome", "com.google.Chrome, control"},
    Known{"entry", "com.google.Chrome", "com.google.Chrome, control"},
    Known{"class", "Google-chrome", "com.google.Chrome, control"},
    Known{"executable", "chrome", "com.google.Chrome, control"},
    Known{"entry", "microsoft-edge", "com.microsoft.edgemac, control"},
    Known{"entry", "com.microsoft.Edge", "com.microsoft.edgemac, control"},
    Known{"class", "Microsoft-edge", "com.microsoft.edgemac, control"},
    Known{"executable", "msedge", "com.microsoft.edgemac, control"},
    Known{"entry", "brave-browser", "com.brave.Browser, control"},
    Known{"entry", "com.brave.Browser", "com.brave.Browser, control"},
    Known{"entry", "brave_brave", "com.brave.Browser, control"},
    Known{"entry", "brave", "com.brave.Browser, control"},
    Known{"class", "Brave-browser", "com.brave.Browser, control"},
    Known{"executable", "brave", "com.brave.Browser, control"},
    Known{"entry", "Zoom", "us.zoom.xos, control"},
    Known{"entry", "us.zoom.Zoom", "us.zoom.xos, control"},
    Known{"entry", "zoom-client_zoom-client", "us.zoom.xos, control"},
    Known{"class", "zoom", "us.zoom.xos, control"},
    Known{"executable", "zoom", "us.zoom.xos, control"},
    Known{"entry", "slack", "com.tinyspeck.slackmacgap, control"},
    Known{"entry", "com.slack.Slack", "com.tinyspeck.slackmacgap, control"},
    Known{"entry", "slack_slack", "com.tinyspeck.slackmacgap, control"},
    Known{"class", "Slack", "com.tinyspeck.slackmacgap, control"},
    Known{"executable", "slack", "com.tinyspeck.slackmacgap, control"},
    Known{"entry", "discord", "com.hnc.Discord, control"},
    Known{"entry", "com.discordapp.Discord", "com.hnc.Discord, control"},
    Known{"entry", "discord_discord", "com.hnc.Discord, control"},
    Known{"class", "discord", "com.hnc.Discord, control"},
    Known{"executable", "Discord", "com.hnc.Discord, control"},
    Known{"entry", "steam", "com.valvesoftware.steam, control"},
    Known{"entry", "com.valvesoftware.Steam", "com.valvesoftware.steam, control"},
    Known{"entry", "steam_steam", "com.valvesoftware.steam, control"},
    Known{"class", "steam", "com.valvesoftware.steam, control"},
    Known{"class", "steamwebhelper", "com.valvesoftware.steam, control"},
    Known{"executable", "steam", "com.valvesoftware.steam, control"},
    Known{"executable", "steamwebhelper", "com.valvesoftware.steam, control"},
    Known{"entry", "vlc", "com.vlc-project.vlc, control"},
    Known{"entry", "org.videolan.VLC", "com.vlc-project.vlc, control"},
    Known{"entry", "vlc_vlc", "com.vlc-project.vlc, control"},
    Known{"class", "vlc", "com.vlc-project.vlc, control"},
    Known{"executable", "vlc", "com.vlc-project.vlc, control"},
    Known{"entry", "mpv", "io.mpv, control"},
    Known{"entry", "io.mpv.Mpv", "io.mpv, control"},
    Known{"class", "mpv", "io.mpv, control"},
    Known{"executable", "mpv", "io.mpv, control"},
    Known{"entry", "1password", "com.1password.1password, control"},
    Known{"entry", "com.onepassword.OnePassword", "com.1password.1password, control"},
    Known{"entry", "1password_1password", "com.1password.1password, control"},
    Known{"class", "1Password", "com.1password.1password, control"},
    Known{"executable", "1password", "com.1password.1password, control"},
    Known{"entry", "bitwarden", "com.bitwarden.desktop, control"},
    Known{"entry", "com.bitwarden.desktop", "com.bitwarden.desktop, control"},
    Known{"entry", "bitwarden_bitwarden", "com.bitwarden.desktop, control"},
    Known{"class", "Bitwarden", "com.bitwarden.desktop, control"},
    Known{"executable", "bitwarden", "com.bitwarden.desktop, control"},
    Known{"entry", "lastpass", "com.lastpass.LastPass, control"},
    Known{"entry", "com.lastpass.LastPass", "com.lastpass.LastPass, control"},
    Known{"class", "LastPass", "com.lastpass.LastPass, control"},
    Known{"executable", "lastpass", "com.lastpass.LastPass, control"},
    Known{"entry", "kitty", "net.kovidgoyal.kitty, controlShift"},
    Known{"entry", "net.kovidgoyal.kitty", "net.kovidgoyal.kitty, controlShift"},
    Known{"class", "kitty", "net.kovidgoyal.kitty, controlShift"},
    Known{"executable", "kitty", "net.kovidgoyal.kitty, controlShift"},
    Known{"entry", "com.mitchellh.ghostty", "com.mitchellh.ghostty, controlShift"},
    Known{"entry", "ghostty", "com.mitchellh.ghostty, controlShift"},
    Known{"class", "com.mitchellh.ghostty", "com.mitchellh.ghostty, controlShift"},
    Known{"class", "ghostty", "com.mitchellh.ghostty, controlShift"},
    Known{"executable", "ghostty", "com.mitchellh.ghostty, controlShift"},
    Known{"entry", "xterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "debian-xterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "uxterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "debian-uxterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "koi8rxterm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "XTerm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "UXTerm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "KOI8RXTerm", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "xterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "rxvt", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "urxvt", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "rxvt-unicode", "com.apple.Terminal, shiftInsert"},
    Known{"class", "Rxvt", "com.apple.Terminal, shiftInsert"},
    Known{"class", "URxvt", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "rxvt", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "urxvt", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "urxvtd", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "rxvt-unicode", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "mlterm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "mlterm", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "mlterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "eterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "aterm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "Eterm", "com.apple.Terminal, shiftInsert"},
    Known{"class", "aterm", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "Eterm", "com.apple.Terminal, shiftInsert"},
    Known{"executable", "aterm", "com.apple.Terminal, shiftInsert"},
    Known{"entry", "Alacritty", "com.apple.Terminal, controlShift"},
    Known{"entry", "org.alacritty.Alacritty", "com.apple.Terminal, controlShift"},
    Known{"class", "Alacritty", "com.apple.Terminal, controlShift"},
    Known{"executable", "alacritty", "com.apple.Terminal, controlShift"},
    Known{"entry", "st", "com.apple.Terminal, controlShift"},
    Known{"class", "st", "com.apple.Terminal, controlShift"},
    Known{"class", "st-256color", "com.apple.Terminal, controlShift"},
    Known{"executable", "st", "com.apple.Terminal, controlShift"},
    Known{"entry", "org.wezfurlong.wezterm", "com.apple.Terminal, controlShift"},
    Known{"class", "org.wezfurlong.wezterm", "com.apple.Terminal, controlShift"},
    Known{"executable", "wezterm-gui", "com.apple.Terminal, controlShift"},
    Known{"entry", "org.gnome.Terminal", "com.apple.Terminal, controlShift"},
    Known{"class", "Gnome-terminal", "com.apple.Terminal, controlShift"},
    Known{"class", "gnome-terminal-server", "com.apple.Terminal, controlShift"},
    Known{"executable", "gnome-terminal-server", "com.apple.Terminal, controlShift"},
    Known{"entry", "thunar", "com.apple.finder, control"},
    Known{"class", "Thunar", "com.apple.finder, control"},
    Known{"executable", "thunar", "com.apple.finder, control"},
    Known{"entry", "pcmanfm", "com.apple.finder, control"},
    Known{"class", "Pcmanfm", "com.apple.finder, control"},
    Known{"executable", "pcmanfm", "com.apple.finder, control"},
    Known{"entry", "pcmanfm-qt", "com.apple.finder, control"},
    Known{"class", "pcmanfm-qt", "com.apple.finder, control"},
    Known{"executable", "pcmanfm-qt", "com.apple.finder, control"},
    Known{"entry", "nemo", "com.apple.finder, control"},
    Known{"entry", "nemo-desktop", "com.apple.finder, control"},
    Known{"class", "Nemo", "com.apple.finder, control"},
    Known{"class", "Nemo-desktop", "com.apple.finder, control"},
    Known{"executable", "nemo", "com.apple.finder, control"},
    Known{"executable", "nemo-desktop", "com.apple.finder, control"},
    Known{"entry", "caja", "com.apple.finder, control"},
    Known{"entry", "caja-browser", "com.apple.finder, control"},
    Known{"entry", "caja-folder-handler", "com.apple.finder, control"},
    Known{"class", "Caja", "com.apple.finder, control"},
    Known{"executable", "caja", "com.apple.finder, control"},
    Known{"entry", "org.gnome.Nautilus", "com.apple.finder, control"},
    Known{"entry", "nautilus", "com.apple.finder, control"},
    Known{"class", "org.gnome.Nautilus", "com.apple.finder, control"},
    Known{"class", "nautilus", "com.apple.finder, control"},
    Known{"executable", "nautilus", "com.apple.finder, control"},
    Known{"entry", "org.kde.dolphin", "com.apple.finder, control"},
    Known{"class", "dolphin", "com.apple.finder, control"},
    Known{"class", "org.kde.dolphin", "com.apple.finder, control"},
    Known{"executable", "dolphin", "com.apple.finder, control"},
};
// clang-format on

class ProgramKnownByName : public testing::TestWithParam<Known> {};

TEST_P(ProgramKnownByName, hasItsIdentifierAndItsPasteChord) {
    EXPECT_EQ(summary(identityOf(GetParam())), GetParam().identity);
}

INSTANTIATE_TEST_SUITE_P(IdentityTable, ProgramKnownByName, testing::ValuesIn(known));

TEST(IdentityTable, holdsNoNameThatIsNotChecked) {
    QStringList unchecked;
    const auto check = [&](std::string_view names, const char *kind) {
        for (const QString &name : text(names).split(u' ', Qt::SkipEmptyParts)) {
            const bool isChecked = std::any_of(known.begin(), known.end(), [&](const Known &each) {
                return std::string_view(each.kind) == kind &&
                       name.compare(QLatin1String(each.name), Qt::CaseInsensitive) == 0;
            });
            if (!isChecked)
                unchecked.append(QLatin1String(kind) + QLatin1Char(' ') + name);
        }
    };
    for (const IdentityRow &row : identityTable()) {
        check(row.entries, "entry");
        check(row.classes, "class");
        check(row.executables, "executable");
    }
    EXPECT_EQ(unchecked.join(QStringLiteral(", ")).toStdString(), "");
}

/// A program that is known by its role, told from its desktop entry.
struct Role {
    const char *id;
    const char *categories;
    const char *mimeTypes;
    const char *identity;

    friend void PrintTo(const Role &role, std::ostream *out) { *out << role.id; }
};

class ProgramKnownByRole : public testing::TestWithParam<Role> {};

TEST_P(ProgramKnownByRole, hasTheRolesIdentifier) {
    const Role &role = GetParam();
    EXPECT_EQ(summary(identify({}, entry(role.id, role.categories, role.mimeTypes))), role.identity);
}

// Entries as these programs install them.
INSTANTIATE_TEST_SUITE_P(
    IdentityTable, ProgramKnownByRole,
    testing::Values(
        Role{"xfce4-terminal", "GTK;System;TerminalEmulator;", "", "com.apple.Terminal, controlShift"},
        Role{"org.kde.konsole", "Qt;KDE;System;TerminalEmulator;", "", "com.apple.Terminal, controlShift"},
        Role{"krusader", "Qt;KDE;Utility;FileManager;", "", "com.apple.finder, control"},
        Role{"io.elementary.files", "GNOME;GTK;System;Utility;", "inode/directory;",
             "com.apple.finder, control"},
        Role{"org.gnome.Rhythmbox3", "GNOME;GTK;AudioVideo;Audio;Player;", "audio/mpeg;",
             "com.apple.Music, control"},
        Role{"org.kde.elisa", "Qt;KDE;AudioVideo;Player;Audio;", "inode/directory;audio/mpeg;",
             "com.apple.Music, control"},
        Role{"io.github.celluloid_player.Celluloid", "GTK;AudioVideo;Video;Player;", "video/mp4;",
             "io.github.celluloid_player.Celluloid, control"},
        Role{"smplayer", "Qt;AudioVideo;Video;Audio;Player;", "", "smplayer, control"},
        Role{"radio-tray", "AudioVideo;Audio;Player;WebBrowser;", "", "radio-tray, control"},
        Role{"pavucontrol", "AudioVideo;Audio;Mixer;GTK;", "", "pavucontrol, control"},
        Role{"audacity", "AudioVideo;Audio;AudioVideoEditing;", "", "audacity, control"},
        Role{"code", "TextEditor;Development;IDE;", "text/plain;inode/directory;", "code, control"},
        Role{"org.gnome.gThumb", "GTK;Graphics;Viewer;", "image/png;inode/directory;",
             "org.gnome.gThumb, control"},
        Role{"org.gnome.baobab", "GTK;GNOME;Utility;", "inode/directory;", "org.gnome.baobab, control"},
        Role{"baobab", "GTK;GNOME;Utility;", "inode/directory;", "baobab, control"},
        Role{"org.kde.filelight", "Qt;KDE;System;Utility;", "inode/directory;", "org.kde.filelight, control"},
        Role{"qdirstat", "Qt;System;Filesystem;", "inode/directory;", "qdirstat, control"}));

TEST(IdentityTable, givesAnyOtherProgramTheIdOfItsEntry) {
    EXPECT_EQ(summary(identify({}, entry("org.xfce.mousepad", "Utility;TextEditor;"))),
              "org.xfce.mousepad, control");
}

TEST(IdentityTable, givesAProgramWithoutAnEntryNoIdentifier) {
    EXPECT_EQ(summary(identify({.windowClass = QStringLiteral("Unheard")}, std::nullopt)), "(none), control");
}

TEST(IdentityTable, knowsAProgramThatTheUserStartsByAnEntryOfTheirOwn) {
    const ProgramTraits traits{.windowClass = QStringLiteral("firefox")};
    EXPECT_EQ(summary(identify(traits, entry("my-browser", "Network;"))), "org.mozilla.firefox, control");
}

TEST(IdentityTable, knowsAProgramByTheInstanceOfItsWindow) {
    const ProgramTraits traits{.windowClass = QStringLiteral("Floating"),
                               .windowInstance = QStringLiteral("xterm")};
    EXPECT_EQ(summary(identify(traits, std::nullopt)), "com.apple.Terminal, shiftInsert");
}

TEST(IdentityTable, goesByTheExecutableOnlyWhereNothingElseIsKnown) {
    const QString chrome = QStringLiteral("chrome");
    EXPECT_EQ(
        summary(identify({.windowClass = QStringLiteral("Chromium"), .executable = chrome}, std::nullopt)),
        "(none), control");
    EXPECT_EQ(summary(identify({.executable = chrome}, entry("chromium_chromium"))),
              "chromium_chromium, control");
}

TEST(IdentityTable, takesTheDesktopItselfForAFileManager) {
    EXPECT_EQ(summary(desktopIdentity()), "com.apple.finder, control");
}

}  // namespace
}  // namespace pimloft
