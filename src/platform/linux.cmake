# The Linux/X11 realisation of every service.
find_package(PkgConfig REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET
    xcb xcb-randr xcb-res xcb-shape xcb-xfixes xcb-xinput xcb-xkb xcb-xtest xkbcommon xkbcommon-x11)

pimloft_library(pimloft_platform_linux
    SOURCES
        x11/point_space.cpp x11/point_space.h
        x11/x11_active_window.cpp x11/x11_active_window.h
        x11/x11_session.cpp x11/x11_session.h
        x11/x11_window_info.cpp x11/x11_window_info.h
        x11/key_positions.h
        x11/screen_lock.cpp x11/screen_lock.h
        x11/x11_compositor.cpp x11/x11_compositor.h
        x11/x11_keyboard.cpp x11/x11_keyboard.h
        x11/x11_keymap.cpp x11/x11_keymap.h
        x11/x11_raw_input.cpp x11/x11_raw_input.h
        events/shortcut_chord.h
        events/x11_key_poster.cpp events/x11_key_poster.h
        events/x11_mouse_watch.cpp events/x11_mouse_watch.h
        hotkeys/x11_hotkeys.cpp hotkeys/x11_hotkeys.h
        panels/x11_overlay.cpp panels/x11_overlay.h
        panels/x11_panel.cpp panels/x11_panel.h
        panels/x11_panels.cpp panels/x11_panels.h
        panels/x11_popup.cpp panels/x11_popup.h
        displays/x11_displays.cpp displays/x11_displays.h
    LINK pimloft_platform PkgConfig::XCB Qt6::Widgets Qt6::DBus Qt6::Network)
