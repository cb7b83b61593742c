# The Linux/X11 realisation of every service.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET
    xcb xcb-randr xcb-res xcb-shape xcb-shm xcb-xfixes xcb-xinput xcb-xkb xcb-xtest xkbcommon xkbcommon-x11)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-unix-2.0)
pkg_check_modules(PULSE REQUIRED IMPORTED_TARGET libpulse)

# What the key tap shares with its guard: the C++ and X libraries only.
add_library(pimloft_x11_keys STATIC
    x11/key_devices.cpp x11/key_devices.h
    x11/xcb_reply.h
    events/key_guard_channel.h)
pkg_check_modules(XCB_KEYS REQUIRED IMPORTED_TARGET xcb xcb-xinput xcb-xtest)
target_link_libraries(pimloft_x11_keys PUBLIC pimloft_options PkgConfig::XCB_KEYS)
set_target_properties(pimloft_x11_keys PROPERTIES AUTOMOC OFF)

pimloft_library(pimloft_platform_linux
    SOURCES
        linux_host.cpp
        x11/client_process.cpp x11/client_process.h
        x11/key_positions.h
        x11/keymap_image.cpp x11/keymap_image.h
        x11/point_space.cpp x11/point_space.h
        x11/qt_connection.cpp x11/qt_connection.h
        x11/screen_lock.cpp x11/screen_lock.h
        x11/selection_content.h
        x11/selection_link.cpp x11/selection_link.h
        x11/selection_loan.cpp x11/selection_loan.h
        x11/selection_reader.cpp x11/selection_reader.h
        x11/selection_sender.cpp x11/selection_sender.h
        x11/x11_active_window.cpp x11/x11_active_window.h
        x11/x11_compositor.cpp x11/x11_compositor.h
        x11/x11_end.cpp x11/x11_end.h
        x11/x11_keyboard.cpp x11/x11_keyboard.h
        x11/x11_keymap.cpp x11/x11_keymap.h
        x11/x11_obstacle.cpp x11/x11_obstacle.h
        x11/x11_raw_input.cpp x11/x11_raw_input.h
        x11/x11_selection.cpp x11/x11_selection.h
        x11/x11_session.cpp x11/x11_session.h
        x11/x11_window_geometry.cpp x11/x11_window_geometry.h
        x11/x11_window_info.cpp x11/x11_window_info.h
        x11/xcb_extension.h
        x11/xinput_version.cpp x11/xinput_version.h
        appearance/linux_appearance.cpp appearance/linux_appearance.h
        appearance/xsettings.cpp appearance/xsettings.h
        background.h
        audio/pulse_audio.cpp audio/pulse_audio.h
        audio/pulse_loop.cpp audio/pulse_loop.h
        audio/pulse_server.cpp audio/pulse_server.h
        audio/pulse_state.cpp audio/pulse_state.h
        audio/pulse_volume.cpp audio/pulse_volume.h
        diagnosis/x11_diagnosis.cpp diagnosis/x11_diagnosis.h
        dialogs/qt_dialogs.cpp dialogs/qt_dialogs.h
        displays/monitor_list.cpp displays/monitor_list.h
        displays/work_area.cpp displays/work_area.h
        displays/x11_displays.cpp displays/x11_displays.h
        displays/x11_struts.cpp displays/x11_struts.h
        filemanager/accessible_reader.cpp filemanager/accessible_reader.h
        filemanager/accessible_tree.h
        filemanager/bus_call.cpp filemanager/bus_call.h
        filemanager/dolphin_window.cpp filemanager/dolphin_window.h
        filemanager/file_manager_copy.cpp filemanager/file_manager_copy.h
        filemanager/file_manager_tools.h
        filemanager/file_manager_window.cpp filemanager/file_manager_window.h
        filemanager/file_managers.cpp filemanager/file_managers.h
        filemanager/folder_question.cpp filemanager/folder_question.h
        filemanager/folder_routes.cpp filemanager/folder_routes.h
        filemanager/inotify_watches.cpp filemanager/inotify_watches.h
        filemanager/open_locations.cpp filemanager/open_locations.h
        filemanager/path_bar.cpp filemanager/path_bar.h
        filemanager/selection_question.cpp filemanager/selection_question.h
        filemanager/window_ping.cpp filemanager/window_ping.h
        events/key_guard.cpp events/key_guard.h
        events/tap_connection.cpp events/tap_connection.h
        events/tap_keys.h
        events/tap_mailbox.cpp events/tap_mailbox.h
        events/tap_state.cpp events/tap_state.h
        events/tap_thread.cpp events/tap_thread.h
        events/x11_key_poster.cpp events/x11_key_poster.h
        events/x11_key_tap.cpp events/x11_key_tap.h
        events/x11_mouse_watch.cpp events/x11_mouse_watch.h
        events/x11_tap_keys.cpp events/x11_tap_keys.h
        files/copied_entry.h
        files/descriptor.h
        files/file_calls.cpp files/file_calls.h
        files/file_error.cpp files/file_error.h
        files/file_content.cpp files/file_content.h
        files/file_metadata.cpp
        files/linux_files.cpp files/linux_files.h
        files/no_replace_rename.cpp files/no_replace_rename.h
        files/staged_tree.cpp files/staged_tree.h
        files/tree_copy.cpp files/tree_copy.h
        files/tree_removal.cpp files/tree_removal.h
        hotkeys/x11_hotkeys.cpp hotkeys/x11_hotkeys.h
        instance/instance_on_bus.cpp instance/instance_on_bus.h
        instance/linux_instance.cpp
        instance/local_instance.cpp instance/local_instance.h
        loginitem/xdg_login_item.cpp loginitem/xdg_login_item.h
        panels/x11_overlay.cpp panels/x11_overlay.h
        panels/x11_panel.cpp panels/x11_panel.h
        panels/x11_panels.cpp panels/x11_panels.h
        panels/x11_popup.cpp panels/x11_popup.h
        pasteboard/copied_files.cpp pasteboard/copied_files.h
        pasteboard/copied_text.cpp pasteboard/copied_text.h
        pasteboard/paste_targets.cpp pasteboard/paste_targets.h
        pasteboard/x11_pasteboard.cpp pasteboard/x11_pasteboard.h
        preferences/json_preferences.cpp preferences/json_preferences.h
        preferences/preferences_document.cpp preferences/preferences_document.h
        scripting/finder_scripts.cpp scripting/finder_scripts.h
        scripting/linux_scripting.cpp scripting/linux_scripting.h
        scripting/mpris_player.h
        scripting/mpris_players.cpp scripting/mpris_players.h
        scripting/player_scripts.cpp scripting/player_scripts.h
        scripting/session_bus.cpp scripting/session_bus.h
        templates_menu/template_entries.cpp templates_menu/template_entries.h
        templates_menu/template_record.cpp templates_menu/template_record.h
        templates_menu/xdg_templates_menu.cpp templates_menu/xdg_templates_menu.h
        windows/x11_placement.cpp windows/x11_placement.h
        windows/x11_windows.cpp windows/x11_windows.h
        workspace/default_programs.cpp workspace/default_programs.h
        workspace/desktop_entries.cpp workspace/desktop_entries.h
        workspace/help_topics.cpp workspace/help_topics.h
        workspace/identity_table.cpp workspace/identity_table.h
        workspace/process_info.cpp workspace/process_info.h
        workspace/program_directory.cpp workspace/program_directory.h
        workspace/program_traits.h
        workspace/running_programs.cpp workspace/running_programs.h
        workspace/window_icon.cpp workspace/window_icon.h
        workspace/x11_clients.cpp workspace/x11_clients.h
        workspace/x11_workspace.cpp workspace/x11_workspace.h
    LINK pimloft_platform pimloft_x11_keys PkgConfig::XCB PkgConfig::GIO PkgConfig::PULSE Threads::Threads
        Qt6::Widgets Qt6::DBus Qt6::Network)

# Qt's plugin finds the program's own in place of libxcb's: see qt_connection.cpp.
target_link_options(pimloft_platform_linux INTERFACE -Wl,--export-dynamic-symbol=xcb_shm_query_version_reply)

# GIO's headers come before any of Qt's, whose keywords they use as names.
set_source_files_properties(
    loginitem/xdg_login_item.cpp workspace/default_programs.cpp workspace/desktop_entries.cpp
    PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
