<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AppVolumeRow</name>
    <message>
        <source>Unmute %1</source>
        <translation>Stummschaltung von %1 aufheben</translation>
    </message>
    <message>
        <source>Mute %1</source>
        <translation>%1 stummschalten</translation>
    </message>
</context>
<context>
    <name>ClipboardItemRow</name>
    <message>
        <source>Unpin</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>ClipboardPopup</name>
    <message>
        <source>Search clipboard history...</source>
        <translation>Zwischenablage durchsuchen …</translation>
    </message>
    <message>
        <source>Clipboard history</source>
        <translation>Verlauf der Zwischenablage</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alle löschen</translation>
    </message>
</context>
<context>
    <name>ClipboardSettings</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Clear Unpinned History</source>
        <translation>Nicht angeheftete löschen</translation>
    </message>
    <message>
        <source>Excluded Apps</source>
        <translation>Ausgeschlossene Programme</translation>
    </message>
    <message>
        <source>Clipboard content from these apps is never saved (e.g., password managers).</source>
        <translation>Was aus diesen Programmen kopiert wird, wird nie gespeichert (z. B. aus Passwortverwaltungen).</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>App name</source>
        <translation>Name des Programms</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Smart Features</source>
        <translation>Kluge Funktionen</translation>
    </message>
    <message>
        <source>Duplicate detection: identical consecutive copies are merged into one entry.</source>
        <translation>Doppelte Einträge: Gleiche Kopien nacheinander werden zu einem Eintrag zusammengefasst.</translation>
    </message>
    <message>
        <source>Password managers (1Password, Bitwarden, LastPass) are auto-excluded.</source>
        <translation>Passwortverwaltungen (1Password, Bitwarden, LastPass) sind immer ausgeschlossen.</translation>
    </message>
    <message>
        <source>Images larger than 50MB are skipped to prevent memory issues.</source>
        <translation>Bilder über 50 MB werden übergangen, um den Speicher zu schonen.</translation>
    </message>
    <message>
        <source>Cmd+Shift+V</source>
        <translation>Cmd+Umschalt+V</translation>
    </message>
    <message>
        <source>Open clipboard history</source>
        <translation>Verlauf der Zwischenablage öffnen</translation>
    </message>
    <message>
        <source>Cmd+Shift+Ctrl+V</source>
        <translation>Cmd+Umschalt+Strg+V</translation>
    </message>
    <message>
        <source>Paste as plain text</source>
        <translation>Als reinen Text einfügen</translation>
    </message>
    <message>
        <source>Enter / Click</source>
        <translation>Eingabe / Klick</translation>
    </message>
    <message>
        <source>Paste selected item</source>
        <translation>Gewählten Eintrag einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Remove selected item</source>
        <translation>Gewählten Eintrag entfernen</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Dismiss popup</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Another application uses this shortcut.</source>
        <translation>Ein anderes Programm verwendet dieses Tastenkürzel.</translation>
    </message>
</context>
<context>
    <name>ConfirmationSheet</name>
    <message>
        <source>Confirm Key Remapping</source>
        <translation>Tastenbelegung bestätigen</translation>
    </message>
    <message>
        <source>Enabling "%1"</source>
        <translation>„%1“ wird eingeschaltet</translation>
    </message>
    <message>
        <source>Press "Keep" to confirm, or wait %1 seconds to auto-revert.</source>
        <translation>Mit „Behalten“ bestätigen, oder in %1 Sekunden wird sie zurückgenommen.</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
</context>
<context>
    <name>CustomMappingRow</name>
    <message>
        <source>Key %1 → Key %2</source>
        <translation>Taste %1 → Taste %2</translation>
    </message>
    <message>
        <source>Key %1</source>
        <translation>Taste %1</translation>
    </message>
    <message>
        <source>Remove the mapping of key %1</source>
        <translation>Belegung der Taste %1 entfernen</translation>
    </message>
</context>
<context>
    <name>Diagnosis</name>
    <message>
        <source>There is no X server that Pimloft could talk to.</source>
        <translation>Es gibt keinen X-Server, mit dem Pimloft sprechen könnte.</translation>
    </message>
    <message>
        <source>Wayland, where a program cannot reach other programs' windows and keys. Choose an X11 session when you log in.</source>
        <translation>Wayland, wo ein Programm die Fenster und Tasten anderer nicht erreicht. Wählen Sie bei der Anmeldung eine X11-Sitzung.</translation>
    </message>
    <message>
        <source>Out of reach under Wayland: dragging a window does not snap it.</source>
        <translation>Unter Wayland nicht erreichbar: Gezogene Fenster rasten nicht ein.</translation>
    </message>
    <message>
        <source>The X server does not offer XInput 2.2: dragging a window does not snap it.</source>
        <translation>Der X-Server bietet kein XInput 2.2: Gezogene Fenster rasten nicht ein.</translation>
    </message>
    <message>
        <source>Out of reach under Wayland: shortcuts and key mappings do nothing.</source>
        <translation>Unter Wayland nicht erreichbar: Tastenkürzel und Tastenbelegungen bewirken nichts.</translation>
    </message>
    <message>
        <source>The X server does not offer XInput 2.2: key mappings do nothing.</source>
        <translation>Der X-Server bietet kein XInput 2.2: Tastenbelegungen bewirken nichts.</translation>
    </message>
    <message>
        <source>The X server does not offer XTEST: shortcuts and key mappings do nothing.</source>
        <translation>Der X-Server bietet kein XTEST: Tastenkürzel und Tastenbelegungen bewirken nichts.</translation>
    </message>
</context>
<context>
    <name>FileTemplate</name>
    <message>
        <source>Text File</source>
        <translation>Textdatei</translation>
    </message>
    <message>
        <source>Markdown File</source>
        <translation>Markdown-Datei</translation>
    </message>
    <message>
        <source>HTML File</source>
        <translation>HTML-Datei</translation>
    </message>
    <message>
        <source>Python Script</source>
        <translation>Python-Skript</translation>
    </message>
    <message>
        <source>Shell Script</source>
        <translation>Shell-Skript</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>A folder cannot be moved into itself.</source>
        <translation>Ein Ordner kann nicht in sich selbst bewegt werden.</translation>
    </message>
</context>
<context>
    <name>FinderFixSettings</name>
    <message>
        <source>Cut &amp; Paste</source>
        <translation>Ausschneiden &amp; Einfügen</translation>
    </message>
    <message>
        <source>Cmd+X in Finder cuts selected files</source>
        <translation>Cmd+X im Finder schneidet die gewählten Dateien aus</translation>
    </message>
    <message>
        <source>Works across different Finder windows. Handles locked files, permission errors, and cross-volume moves automatically.</source>
        <translation>Auch von einem Finder-Fenster in ein anderes. Gesperrte Dateien, fehlende Berechtigungen und andere Datenträger werden berücksichtigt.</translation>
    </message>
    <message>
        <source>New File Templates</source>
        <translation>Vorlagen für neue Dateien</translation>
    </message>
    <message>
        <source>Open Templates Folder</source>
        <translation>Vorlagenordner öffnen</translation>
    </message>
    <message>
        <source>Add custom templates to this folder. They'll appear in the "New File" submenu.</source>
        <translation>Legen Sie eigene Vorlagen in diesen Ordner. Sie erscheinen im Untermenü „Neue Datei“.</translation>
    </message>
    <message>
        <source>Finder Extension</source>
        <translation>Finder-Erweiterung</translation>
    </message>
    <message>
        <source>The Finder Sync Extension must be enabled in System Settings for "New File" to appear in Finder's context menu.</source>
        <translation>Damit „Neue Datei“ im Kontextmenü des Finders erscheint, muss die Finder-Erweiterung in den Systemeinstellungen eingeschaltet sein.</translation>
    </message>
    <message>
        <source>Open Finder Extension Settings</source>
        <translation>Einstellungen der Finder-Erweiterung öffnen</translation>
    </message>
</context>
<context>
    <name>GeneralSettingsView</name>
    <message>
        <source>Startup</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Bedienungshilfen</translation>
    </message>
    <message>
        <source>Permission Granted</source>
        <translation>Berechtigung erteilt</translation>
    </message>
    <message>
        <source>Permission Required</source>
        <translation>Berechtigung erforderlich</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>WindowSnap, KeyMapper, and FinderFix require Accessibility permission to function.</source>
        <translation>WindowSnap, KeyMapper und FinderFix brauchen die Berechtigung für Bedienungshilfen.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Build</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Aktualisierungen</translation>
    </message>
    <message>
        <source>v%1 available</source>
        <translation>v%1 verfügbar</translation>
    </message>
    <message>
        <source>Download Update</source>
        <translation>Aktualisierung laden</translation>
    </message>
    <message>
        <source>Up to date</source>
        <translation>Auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>Checking...</source>
        <translation>Wird geprüft …</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Jetzt prüfen</translation>
    </message>
</context>
<context>
    <name>InfoRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>KeyMapperSettings</name>
    <message>
        <source>Presets</source>
        <translation>Voreinstellungen</translation>
    </message>
    <message>
        <source>Custom Mappings</source>
        <translation>Eigene Belegungen</translation>
    </message>
    <message>
        <source>Per-App Exclusions</source>
        <translation>Ausnahmen</translation>
    </message>
    <message>
        <source>Terminal apps (Terminal, iTerm2, Kitty, Ghostty) are automatically excluded from Windows Mode to preserve Unix keybindings.</source>
        <translation>Terminals (Terminal, iTerm2, Kitty, Ghostty) sind vom Windows Mode ausgenommen, damit die Tastenkürzel von Unix erhalten bleiben.</translation>
    </message>
    <message>
        <source>Safety</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>Panic Hotkey</source>
        <translation>Notaus-Taste</translation>
    </message>
    <message>
        <source>Triple-press Right Shift to instantly disable all remapping</source>
        <translation>Die rechte Umschalttaste dreimal drücken schaltet sofort alle Belegungen aus</translation>
    </message>
    <message>
        <source>10-Second Confirmation</source>
        <translation>Bestätigung in 10 Sekunden</translation>
    </message>
    <message>
        <source>New mappings auto-revert if not confirmed within 10 seconds</source>
        <translation>Neue Belegungen, die nicht in 10 Sekunden bestätigt werden, werden zurückgenommen</translation>
    </message>
    <message>
        <source>Import / Export</source>
        <translation>Import / Export</translation>
    </message>
    <message>
        <source>Export Mappings</source>
        <translation>Belegungen exportieren</translation>
    </message>
    <message>
        <source>Import Mappings</source>
        <translation>Belegungen importieren</translation>
    </message>
</context>
<context>
    <name>KeyMappingPreset</name>
    <message>
        <source>Swap Ctrl and Cmd for all shortcuts (Ctrl+C copies, etc.)</source>
        <translation>Strg und Cmd für alle Tastenkürzel tauschen (Strg+C kopiert usw.)</translation>
    </message>
    <message>
        <source>Home/End go to beginning/end of line, not document</source>
        <translation>Pos1/Ende gehen an Anfang/Ende der Zeile, nicht des Dokuments</translation>
    </message>
    <message>
        <source>Fn+Delete works as forward-delete consistently</source>
        <translation>Fn+Rücktaste löscht überall vorwärts</translation>
    </message>
    <message>
        <source>F1-F12 as function keys by default (not media keys)</source>
        <translation>F1 bis F12 sind Funktionstasten (keine Medientasten)</translation>
    </message>
</context>
<context>
    <name>LayoutRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>MenuBarPopover</name>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Accessibility permission is required for some modules</source>
        <translation>Einige Module brauchen die Berechtigung für Bedienungshilfen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>ModuleQuickToggle</name>
    <message>
        <source>%1, enabled</source>
        <translation>%1, eingeschaltet</translation>
    </message>
    <message>
        <source>%1, disabled</source>
        <translation>%1, ausgeschaltet</translation>
    </message>
    <message>
        <source>Hide %1</source>
        <translation>%1 ausblenden</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 einblenden</translation>
    </message>
</context>
<context>
    <name>NoteRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>OnboardingModules</name>
    <message>
        <source>Choose Your Modules</source>
        <translation>Wählen Sie Ihre Module</translation>
    </message>
    <message>
        <source>All modules are enabled by default. Disable any you don't need.</source>
        <translation>Alle Module sind eingeschaltet. Schalten Sie aus, was Sie nicht brauchen.</translation>
    </message>
</context>
<context>
    <name>OnboardingReady</name>
    <message>
        <source>You're All Set!</source>
        <translation>Alles bereit!</translation>
    </message>
    <message>
        <source>Pimloft lives in your menu bar.
Click the icon to access all features.</source>
        <translation>Pimloft wohnt in der Menüleiste.
Ein Klick auf das Symbol öffnet alle Funktionen.</translation>
    </message>
    <message>
        <source>Look for this icon in your menu bar</source>
        <translation>Dieses Symbol steht in Ihrer Menüleiste</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Get Started</source>
        <translation>Los geht's</translation>
    </message>
</context>
<context>
    <name>OnboardingWelcome</name>
    <message>
        <source>Welcome to Pimloft</source>
        <translation>Willkommen bei Pimloft</translation>
    </message>
    <message>
        <source>Everything you miss from Windows, in one app.</source>
        <translation>Alles, was Sie von Windows vermissen, in einem Programm.</translation>
    </message>
</context>
<context>
    <name>PermissionStepRow</name>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
</context>
<context>
    <name>PermissionView</name>
    <message>
        <source>Accessibility Permission Required</source>
        <translation>Berechtigung für Bedienungshilfen erforderlich</translation>
    </message>
    <message>
        <source>Pimloft needs Accessibility access to manage windows, remap keys, and enhance Finder. Your data stays completely private — nothing leaves your Mac.</source>
        <translation>Pimloft braucht Zugriff auf die Bedienungshilfen, um Fenster anzuordnen, Tasten umzulegen und den Finder zu ergänzen. Ihre Daten bleiben privat – nichts verlässt Ihren Mac.</translation>
    </message>
    <message>
        <source>Click the button below to open System Settings</source>
        <translation>Öffnen Sie mit der Taste unten die Systemeinstellungen</translation>
    </message>
    <message>
        <source>Find Pimloft in the list</source>
        <translation>Suchen Sie Pimloft in der Liste</translation>
    </message>
    <message>
        <source>Toggle the switch ON</source>
        <translation>Schalten Sie den Schalter EIN</translation>
    </message>
    <message>
        <source>Permission Granted!</source>
        <translation>Berechtigung erteilt!</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Systemeinstellungen öffnen</translation>
    </message>
    <message>
        <source>Skip for Now</source>
        <translation>Vorerst überspringen</translation>
    </message>
</context>
<context>
    <name>QuickVolumeSettings</name>
    <message>
        <source>Volume Mixer</source>
        <translation>Lautstärkemischer</translation>
    </message>
    <message>
        <source>The volume mixer is accessible from the Pimloft menu bar popover.</source>
        <translation>Den Lautstärkemischer finden Sie im Menü von Pimloft in der Menüleiste.</translation>
    </message>
    <message>
        <source>Output Device</source>
        <translation>Ausgabegerät</translation>
    </message>
    <message>
        <source>No output devices found</source>
        <translation>Keine Ausgabegeräte gefunden</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Set Default</source>
        <translation>Als Standard</translation>
    </message>
    <message>
        <source>Per-App Volume</source>
        <translation>Lautstärke je Programm</translation>
    </message>
    <message>
        <source>System Volume</source>
        <translation>Systemlautstärke</translation>
    </message>
    <message>
        <source>Audio Apps Detected</source>
        <translation>Erkannte Audioprogramme</translation>
    </message>
    <message>
        <source>Supported Apps</source>
        <translation>Unterstützte Programme</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Music</translation>
    </message>
    <message>
        <source>Volume slider via AppleScript</source>
        <translation>Lautstärkeregler über AppleScript</translation>
    </message>
    <message>
        <source>Spotify</source>
        <translation>Spotify</translation>
    </message>
    <message>
        <source>Browsers</source>
        <translation>Browser</translation>
    </message>
    <message>
        <source>Mute toggle</source>
        <translation>Stummschalten</translation>
    </message>
    <message>
        <source>Other media apps</source>
        <translation>Andere Medienprogramme</translation>
    </message>
    <message>
        <source>Per-app volume works via AppleScript for supported apps (Music, Spotify). For other apps, a mute toggle is provided.</source>
        <translation>Die Lautstärke einzelner Programme wird über AppleScript geregelt, wo sie es unterstützen (Music, Spotify). Andere Programme lassen sich stummschalten.</translation>
    </message>
    <message>
        <source>Full per-app volume control (like Windows Volume Mixer) requires a virtual audio driver, planned for a future update.</source>
        <translation>Für eine eigene Lautstärke jedes Programms (wie im Lautstärkemixer von Windows) ist ein virtueller Audiotreiber nötig. Er ist für eine spätere Version geplant.</translation>
    </message>
</context>
<context>
    <name>RelativeTime</name>
    <message numerus="yes">
        <source>%n yr. ago</source>
        <translation>
            <numerusform>vor %n J.</numerusform>
            <numerusform>vor %n J.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n yr.</source>
        <translation>
            <numerusform>in %n J.</numerusform>
            <numerusform>in %n J.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n mo. ago</source>
        <translation>
            <numerusform>vor %n Mon.</numerusform>
            <numerusform>vor %n Mon.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n mo.</source>
        <translation>
            <numerusform>in %n Mon.</numerusform>
            <numerusform>in %n Mon.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n wk. ago</source>
        <translation>
            <numerusform>vor %n Wo.</numerusform>
            <numerusform>vor %n Wo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n wk.</source>
        <translation>
            <numerusform>in %n Wo.</numerusform>
            <numerusform>in %n Wo.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>vor %n Tag</numerusform>
            <numerusform>vor %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>vor %n Tag</numerusform>
            <numerusform>vor %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n day</source>
        <translation>
            <numerusform>in %n Tag</numerusform>
            <numerusform>in %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n days</source>
        <translation>
            <numerusform>in %n Tag</numerusform>
            <numerusform>in %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hr. ago</source>
        <translation>
            <numerusform>vor %n Std.</numerusform>
            <numerusform>vor %n Std.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n hr.</source>
        <translation>
            <numerusform>in %n Std.</numerusform>
            <numerusform>in %n Std.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min. ago</source>
        <translation>
            <numerusform>vor %n Min.</numerusform>
            <numerusform>vor %n Min.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n min.</source>
        <translation>
            <numerusform>in %n Min.</numerusform>
            <numerusform>in %n Min.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sec. ago</source>
        <translation>
            <numerusform>vor %n Sek.</numerusform>
            <numerusform>vor %n Sek.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>in %n sec.</source>
        <translation>
            <numerusform>in %n Sek.</numerusform>
            <numerusform>in %n Sek.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Clear search</source>
        <translation>Suche leeren</translation>
    </message>
</context>
<context>
    <name>ShortcutRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>SnapLayout</name>
    <message>
        <source>Half &amp; Half</source>
        <translation>Zwei Hälften</translation>
    </message>
    <message>
        <source>70/30</source>
        <translation>70/30</translation>
    </message>
    <message>
        <source>30/70</source>
        <translation>30/70</translation>
    </message>
    <message>
        <source>Thirds</source>
        <translation>Drittel</translation>
    </message>
    <message>
        <source>Half + Quarters</source>
        <translation>Hälfte + Viertel</translation>
    </message>
    <message>
        <source>Quarters</source>
        <translation>Viertel</translation>
    </message>
</context>
<context>
    <name>StepDots</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
</context>
<context>
    <name>SupportedAppRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>SystemVolumeRow</name>
    <message>
        <source>Unmute</source>
        <translation>Ton an</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Ton aus</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
</context>
<context>
    <name>VolumeDisplay</name>
    <message>
        <source>%1%</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>VolumeMixerView</name>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
</context>
<context>
    <name>WhatsNewRow</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>WhatsNewView</name>
    <message>
        <source>What's New in v%1</source>
        <translation>Neu in v%1</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
</context>
<context>
    <name>WindowSnapSettings</name>
    <message>
        <source>Snap Zones</source>
        <translation>Einrasten</translation>
    </message>
    <message>
        <source>Edge Sensitivity</source>
        <translation>Empfindlichkeit der Ränder</translation>
    </message>
    <message>
        <source>How close to the screen edge you need to drag before the snap preview appears.</source>
        <translation>Wie nah am Bildschirmrand der Mauszeiger sein muss, bis die Vorschau erscheint.</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Snap Layouts</source>
        <translation>Anordnungen</translation>
    </message>
    <message>
        <source>Multi-Monitor</source>
        <translation>Mehrere Bildschirme</translation>
    </message>
    <message>
        <source>Snap zones are disabled on screen edges shared with another display to prevent accidental snapping.</source>
        <translation>An Rändern, an die ein anderer Bildschirm grenzt, rastet nichts ein, damit es nicht versehentlich geschieht.</translation>
    </message>
    <message>
        <source>Snap left 50%</source>
        <translation>Linke Hälfte</translation>
    </message>
    <message>
        <source>Snap right 50%</source>
        <translation>Rechte Hälfte</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Restore previous size</source>
        <translation>Vorherige Größe</translation>
    </message>
    <message>
        <source>Quick layouts</source>
        <translation>Schnelle Anordnungen</translation>
    </message>
    <message>
        <source>Another application uses some of these shortcuts.</source>
        <translation>Ein anderes Programm verwendet einige dieser Tastenkürzel.</translation>
    </message>
    <message>
        <source>Another application uses this shortcut.</source>
        <translation>Ein anderes Programm verwendet dieses Tastenkürzel.</translation>
    </message>
</context>
<context>
    <name>pimloft::AppDelegate</name>
    <message>
        <source>Welcome to Pimloft</source>
        <translation>Willkommen bei Pimloft</translation>
    </message>
    <message>
        <source>What's New</source>
        <translation>Neuigkeiten</translation>
    </message>
</context>
<context>
    <name>pimloft::ClipboardModule</name>
    <message>
        <source>Clipboard history with Cmd+Shift+V popup</source>
        <translation>Verlauf der Zwischenablage mit Cmd+Umschalt+V</translation>
    </message>
</context>
<context>
    <name>pimloft::ClipboardPopup</name>
    <message>
        <source>No clipboard history</source>
        <translation>Noch nichts kopiert</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Keine Treffer</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pimloft::ClipboardSettings</name>
    <message>
        <source>Max items: %1</source>
        <translation>Höchstzahl: %1</translation>
    </message>
    <message>
        <source>Current items: %1</source>
        <translation>Einträge: %1</translation>
    </message>
    <message>
        <source>Pinned items: %1</source>
        <translation>Angeheftet: %1</translation>
    </message>
</context>
<context>
    <name>pimloft::EntryList</name>
    <message numerus="yes">
        <source>%n chars</source>
        <translation>
            <numerusform>%n Zeichen</numerusform>
            <numerusform>%n Zeichen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pimloft::FinderFixModule</name>
    <message>
        <source>Cmd+X cut-paste for files, New File in Finder</source>
        <translation>Dateien mit Cmd+X ausschneiden, Neue Datei im Finder</translation>
    </message>
</context>
<context>
    <name>pimloft::KeyMapperModule</name>
    <message>
        <source>One-click Ctrl/Cmd swap, Windows key behavior</source>
        <translation>Strg und Cmd mit einem Klick tauschen, Tasten wie unter Windows</translation>
    </message>
    <message>
        <source>Key Remapping Disabled</source>
        <translation>Tastenbelegung ausgeschaltet</translation>
    </message>
    <message>
        <source>All key remapping has been disabled via the panic hotkey (triple Right Shift). Re-enable in Pimloft settings.</source>
        <translation>Alle Tastenbelegungen wurden mit der Notaus-Taste ausgeschaltet (dreimal rechte Umschalttaste). In den Einstellungen von Pimloft lassen sie sich wieder einschalten.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>pimloft::KeyMapperSettings</name>
    <message>
        <source>Export Mappings</source>
        <translation>Belegungen exportieren</translation>
    </message>
    <message>
        <source>Import Mappings</source>
        <translation>Belegungen importieren</translation>
    </message>
</context>
<context>
    <name>pimloft::MoveAlerts</name>
    <message>
        <source>Permission denied. The file may be locked or you may not have access.</source>
        <translation>Zugriff verweigert. Die Datei ist vielleicht gesperrt, oder Ihnen fehlt die Berechtigung.</translation>
    </message>
    <message>
        <source>Not enough disk space at the destination.</source>
        <translation>Am Ziel ist nicht genug Speicherplatz frei.</translation>
    </message>
    <message>
        <source>Could not move "%1"</source>
        <translation>„%1“ konnte nicht bewegt werden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>pimloft::Onboarding</name>
    <message>
        <source>Windows 11-style window snapping with visual layout picker</source>
        <translation>Fenster einrasten wie in Windows 11, mit Auswahl von Anordnungen</translation>
    </message>
    <message>
        <source>Clipboard history with Cmd+Shift+V popup</source>
        <translation>Verlauf der Zwischenablage mit Cmd+Umschalt+V</translation>
    </message>
    <message>
        <source>Cmd+X cut-paste for files, New File in Finder</source>
        <translation>Dateien mit Cmd+X ausschneiden, Neue Datei im Finder</translation>
    </message>
    <message>
        <source>One-click Ctrl↔Cmd swap, Windows key behavior</source>
        <translation>Strg ↔ Cmd mit einem Klick tauschen, Tasten wie unter Windows</translation>
    </message>
    <message>
        <source>Per-app volume mixer in your menu bar</source>
        <translation>Lautstärke je Programm in der Menüleiste</translation>
    </message>
</context>
<context>
    <name>pimloft::QuickVolumeModule</name>
    <message>
        <source>Per-app volume mixer in your menu bar</source>
        <translation>Lautstärke je Programm in der Menüleiste</translation>
    </message>
</context>
<context>
    <name>pimloft::SettingsWindow</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Pimloft Settings</source>
        <translation>Einstellungen von Pimloft</translation>
    </message>
</context>
<context>
    <name>pimloft::TrayIcon</name>
    <message>
        <source>Open Pimloft</source>
        <translation>Pimloft öffnen</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>pimloft::WhatsNew</name>
    <message>
        <source>Windows 11-style drag-to-edge snapping with 6 layout presets</source>
        <translation>Fenster an den Rand ziehen und einrasten wie in Windows 11, mit 6 Anordnungen</translation>
    </message>
    <message>
        <source>Clipboard history with Cmd+Shift+V popup, search, and pinning</source>
        <translation>Verlauf der Zwischenablage mit Cmd+Umschalt+V, Suche und Anheften</translation>
    </message>
    <message>
        <source>Cmd+X cut-paste for files and New File in Finder right-click</source>
        <translation>Dateien mit Cmd+X ausschneiden und Neue Datei im Kontextmenü des Finders</translation>
    </message>
    <message>
        <source>One-click Ctrl/Cmd swap with safety panic hotkey</source>
        <translation>Strg und Cmd mit einem Klick tauschen, mit Notaus-Taste</translation>
    </message>
    <message>
        <source>Per-app volume mixer and output device switcher</source>
        <translation>Lautstärke je Programm und Wahl des Ausgabegeräts</translation>
    </message>
</context>
<context>
    <name>pimloft::WindowSnapModule</name>
    <message>
        <source>Windows 11-style window snapping with visual layout picker</source>
        <translation>Fenster einrasten wie in Windows 11, mit Auswahl von Anordnungen</translation>
    </message>
</context>
<context>
    <name>pimloft::WindowSnapSettings</name>
    <message>
        <source>%1px</source>
        <translation>%1 px</translation>
    </message>
</context>
</TS>
