# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# A small desktop of its own on a virtual display. To be sourced; needs bash.
#
#   desktop_start SIZE SCALE LOOK   "1280x800", 1 or 2, "light", "dark", "contrast" or "contrast-dark"; sets DISPLAY,
#                                   HOME and the like
#   desktop_look LOOK               changes it while it runs
#   desktop_compositor on|off
#   desktop_end                     ends everything that was started here; a trap does so too
#
# It has a home folder of its own, so that nothing of the user's is read or changed.

desktop_pids=()
desktop_home=
compositor_pid=
settings_pid=
panel_pid=
manager_pid=

# spawn COMMAND...: starts a program that ends with the desktop; its pid is in $spawned. Ctrl-C in the terminal does
# not reach it: the display would go before the programs that are on it.
spawn() {
    setsid "$@" >>"$desktop_home/log" 2>&1 &
    spawned=$!
    desktop_pids+=("$spawned")
}

# until_true SECONDS COMMAND...: waits for a state that nobody announces to a shell.
until_true() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || {
            echo "The demo desktop does not come up: $* (see $desktop_home/log)" >&2
            return 1
        }
        sleep 0.05
    done
}

# What the server that was spawned last says about itself when it is up; fails when it ends before.
first_answer() {
    local line
    while kill -0 "$spawned" 2>/dev/null; do
        if read -rt 0.5 line <>"$desktop_home/answer"; then
            echo "$line"
            return
        fi
    done
    return 1
}

# Two servers that look for a free display at the same moment can end up with none.
start_server() {
    local attempt number
    for attempt in 1 2 3 4 5; do
        spawn Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3<>"$desktop_home/answer"
        if number=$(first_answer); then
            export DISPLAY=:$number
            return
        fi
    done
    tail -n 5 "$desktop_home/log" >&2
    echo "There is no virtual display to be had, after $attempt attempts" >&2
    return 1
}

desktop_end() {
    trap - EXIT
    trap '' INT TERM HUP  # a second Ctrl-C does not leave half of it behind
    local pid i
    # The X server was started first and goes last, so that nobody complains about it.
    for ((i = ${#desktop_pids[@]} - 1; i >= 0; i--)); do
        pid=${desktop_pids[i]}
        kill "$pid" 2>/dev/null || continue
        wait "$pid" 2>/dev/null || true
    done
    desktop_pids=()
    compositor_pid='' settings_pid='' panel_pid='' manager_pid=''
    [ -z "$desktop_home" ] || rm -rf "$desktop_home"
    desktop_home=
}

write_settings() {
    local theme
    case $1 in
    light) theme=Adwaita ;;
    dark) theme=Adwaita-dark ;;
    contrast) theme=HighContrast ;;
    contrast-dark) theme=HighContrastInverse ;;
    esac
    cat >"$desktop_home/xsettingsd.conf" <<TEXT
Net/ThemeName "$theme"
Net/IconThemeName "Adwaita"
Gtk/FontName "Inter 10"
Gtk/DecorationLayout ":minimize,maximize,close"
Xft/Antialias 1
Xft/Hinting 1
Xft/HintStyle "hintslight"
Xft/RGBA "none"
TEXT
}

write_window_theme() {
    local bar='#f1f1f3' text='#303034' idle='#8d8d93' line='#c9c9ce'
    [[ $1 = *dark ]] && bar='#2d2d32' text='#ececf0' idle='#85858c' line='#111114'
    local folder=$HOME/.themes/Loft/openbox-3
    mkdir -p "$folder" "$XDG_CONFIG_HOME/openbox"
    cat >"$folder/themerc" <<TEXT
border.width: 1
padding.width: $((6 * desktop_scale))
padding.height: $((5 * desktop_scale))
window.handle.width: 0
window.client.padding.width: 0
window.active.border.color: $line
window.inactive.border.color: $line
window.active.title.separator.color: $line
window.inactive.title.separator.color: $line
window.*.title.bg: flat solid
window.*.title.bg.color: $bar
window.*.label.bg: parentrelative
window.active.label.text.color: $text
window.inactive.label.text.color: $idle
window.*.button.*.bg: parentrelative
window.active.button.*.image.color: $text
window.inactive.button.*.image.color: $idle
window.label.text.justify: center
menu.items.bg: flat solid
menu.items.bg.color: $bar
menu.items.text.color: $text
TEXT
    sed -e 's|<name>Clearlooks</name>|<name>Loft</name>|' \
        -e 's|<titleLayout>.*</titleLayout>|<titleLayout>LIMC</titleLayout>|' \
        -e 's|<name>sans</name>|<name>Inter</name>|' \
        -e "s|<size>8</size>|<size>$((9 * desktop_scale))</size>|" \
        -e 's|<number>4</number>|<number>1</number>|' \
        /etc/xdg/openbox/rc.xml >"$XDG_CONFIG_HOME/openbox/rc.xml"
}

write_panel() {
    local bar='#f7f7f8 92' text='#26262a 100'
    [[ $1 = *dark ]] && bar='#1b1b1f 92' text='#ececf0 100'
    cat >"$desktop_home/tint2rc" <<TEXT
rounded = 0
border_width = 0
background_color = $bar
border_color = #000000 0
rounded = 5
border_width = 0
background_color = #808088 24
border_color = #000000 0
panel_items = TSC
panel_size = 100% $((32 * desktop_scale))
panel_position = top center horizontal
panel_padding = 8 0 8
panel_background_id = 1
panel_layer = top
strut_policy = follow_size
wm_menu = 0
taskbar_padding = 4 3 4
task_icon = 1
task_text = 1
task_centered = 0
task_maximum_size = $((180 * desktop_scale)) $((26 * desktop_scale))
task_padding = 8 2 6
task_font = Inter $((9 * desktop_scale))
task_font_color = $text
task_active_background_id = 2
systray_padding = 8 4 8
systray_icon_size = $((20 * desktop_scale))
time1_format = %H:%M
time1_font = Inter Medium $((9 * desktop_scale))
clock_font_color = $text
clock_padding = 8 0
TEXT
}

paint_wallpaper() {
    if [[ $1 = *dark ]]; then
        spawn hsetroot -add '#0d1526' -add '#1d3a5f' -add '#3b2f63' -gradient 215
    else
        spawn hsetroot -add '#5b8def' -add '#8fb8f6' -add '#f3d9d2' -gradient 215
    fi
    wait "$spawned"
}

desktop_look() {
    write_settings "$1"
    write_window_theme "$1"
    write_panel "$1"
    paint_wallpaper "$1"
    [ -z "$settings_pid" ] || kill -HUP "$settings_pid"
    [ -z "$panel_pid" ] || kill -USR1 "$panel_pid"
    [ -z "$manager_pid" ] || openbox --reconfigure
}

desktop_compositor() {
    if [ "$1" = off ]; then
        kill "$compositor_pid"
        wait "$compositor_pid" 2>/dev/null || true
        return
    fi
    spawn picom --backend xrender --config /dev/null --shadow --shadow-radius 14 --shadow-opacity 0.35 \
        --shadow-offset-x -14 --shadow-offset-y -10 \
        --shadow-exclude "window_type = 'dock'" --shadow-exclude 'override_redirect = 1' \
        --shadow-exclude '_GTK_FRAME_EXTENTS@:c'
    compositor_pid=$spawned
}

desktop_start() {
    desktop_home=$(mktemp -d "${TMPDIR:-/tmp}/pimloft-demo.XXXXXX")
    trap desktop_end EXIT
    trap 'desktop_end; exit 130' INT
    trap 'desktop_end; exit 143' TERM
    trap 'desktop_end; exit 129' HUP
    desktop_scale=$2
    export HOME=$desktop_home/ada  # a file manager shows it
    mkdir "$HOME"
    export XDG_CONFIG_HOME=$HOME/.config XDG_DATA_HOME=$HOME/.local/share XDG_CACHE_HOME=$HOME/.cache
    export XDG_RUNTIME_DIR=$HOME/.runtime XDG_SESSION_TYPE=x11 XDG_CURRENT_DESKTOP=Openbox
    unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER
    # A file system daemon of another desktop would keep the file manager waiting.
    export NO_AT_BRIDGE=1 GSETTINGS_BACKEND=memory GIO_USE_VFS=local GDK_SCALE=$2
    mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME"
    mkdir -m 700 "$XDG_RUNTIME_DIR"
    mkdir -p "$HOME/Documents/Letters" "$HOME/Documents/Plans" "$HOME/Music" "$HOME/Pictures" "$HOME/Downloads"
    printf 'Windows go to the edges.\n' >"$HOME/Documents/Notes.txt"
    printf 'a,b\n1,2\n' >"$HOME/Documents/Budget.csv"
    printf "PS1='\\[\\e[34m\\]~\\[\\e[0m\\] \$ '\n" >"$HOME/.bashrc"
    # Thunar warns whoever works as root, as in a container.
    mkdir -p "$XDG_CONFIG_HOME/gtk-3.0"
    echo 'infobar, infobar * { min-height: 0; margin: 0; padding: 0; border: none; font-size: 0; background: none; }' \
        >"$XDG_CONFIG_HOME/gtk-3.0/gtk.css"

    # Folders as buttons: the path of this home says nothing to anybody.
    mkdir -p "$XDG_CONFIG_HOME/xfce4/xfconf/xfce-perchannel-xml"
    cat >"$XDG_CONFIG_HOME/xfce4/xfconf/xfce-perchannel-xml/thunar.xml" <<'TEXT'
<channel name="thunar" version="1.0">
  <property name="last-location-bar" type="string" value="ThunarLocationButtons"/>
</channel>
TEXT

    mkfifo "$desktop_home/answer"
    start_server "$1"
    spawn dbus-daemon --session --nofork --print-address=3 3<>"$desktop_home/answer"
    DBUS_SESSION_BUS_ADDRESS=$(first_answer)
    export DBUS_SESSION_BUS_ADDRESS

    start_sound
    desktop_look "$3"
    spawn xsettingsd -c "$desktop_home/xsettingsd.conf"
    settings_pid=$spawned
    spawn openbox
    manager_pid=$spawned
    until_true 20 eval 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"'
    desktop_compositor on
    spawn tint2 -c "$desktop_home/tint2rc"
    panel_pid=$spawned
}

# Two outputs that play to nowhere.
start_sound() {
    export PULSE_SERVER=unix:$XDG_RUNTIME_DIR/pulse/native
    spawn pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes --log-target=stderr \
        -L module-native-protocol-unix \
        -L 'module-null-sink sink_name=speakers sink_properties=device.description=Speakers' \
        -L 'module-null-sink sink_name=headphones sink_properties=device.description=Headphones'
    until_true 20 pactl info
    pactl set-default-sink speakers
    pactl set-sink-volume speakers 65%
}

# Programs that a visitor finds in it. Sizes are in points.
desktop_programs() {
    local background='#fbfbfd' foreground='#26262a' blue='#1d4ed8'
    [[ $1 = *dark ]] && background='#1a1b20' foreground='#dcdce2' blue='#83b1ff'
    pushd "$HOME" >/dev/null || return
    spawn xterm -T Terminal -fa 'DejaVu Sans Mono' -fs $((10 * desktop_scale)) -bg "$background" -fg "$foreground" \
        -xrm "XTerm*color4: $blue" \
        -b $((8 * desktop_scale)) -geometry "72x18+$((90 * desktop_scale))+$((110 * desktop_scale))" \
        -e bash --rcfile "$HOME/.bashrc" -i
    spawn thunar --daemon
    spawn thunar "$HOME/Documents"
    # Whatever is started next comes in front of them.
    until_true 30 eval 'xprop -root _NET_CLIENT_LIST | grep -q "0x.*, 0x"' || return
    popd >/dev/null || return
}
