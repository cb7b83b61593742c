# The macOS realisation of every service: one list, built by the system's own compiler on a Mac and against
# stand-ins for the system's frameworks by the tests elsewhere, so that no file escapes them.
set(PIMLOFT_MAC_SOURCES
    mac_host.cpp
    mac/cf_ref.h
    mac/cf_text.cpp mac/cf_text.h
    mac/event_tap.cpp mac/event_tap.h
    mac/mac_application.h mac/mac_application.mm
    mac/mac_drawing.mm
    mac/mac_geometry.h
    mac/mac_notice.h mac/mac_notice.mm
    mac/mac_picture.cpp mac/mac_picture.h
    mac/ns_text.h
    mac/posted_key.cpp mac/posted_key.h
    appearance/mac_appearance.cpp appearance/mac_appearance.h
    appearance/mac_effective_appearance.h appearance/mac_effective_appearance.mm
    audio/mac_audio.cpp audio/mac_audio.h
    audio/mac_audio_listener.mm audio/mac_audio_property.h
    diagnosis/mac_diagnosis.cpp diagnosis/mac_diagnosis.h
    dialogs/qt_dialogs.cpp dialogs/qt_dialogs.h
    displays/mac_displays.cpp displays/mac_displays.h
    displays/mac_screens.h displays/mac_screens.mm
    events/mac_key_poster.cpp events/mac_key_poster.h
    events/mac_key_tap.cpp events/mac_key_tap.h
    events/mac_mouse_watch.cpp events/mac_mouse_watch.h
    events/mac_pointer.h events/mac_pointer.mm
    files/file_error.cpp files/file_error.h
    files/mac_files.cpp files/mac_files.h
    files/mac_staged_copy.cpp files/mac_staged_copy.h
    hotkeys/mac_hotkeys.cpp hotkeys/mac_hotkeys.h
    instance/local_instance.cpp instance/local_instance.h
    instance/mac_instance.cpp
    loginitem/mac_app_service.h loginitem/mac_app_service.mm
    loginitem/mac_login_item.cpp loginitem/mac_login_item.h
    panels/mac_floating_windows.cpp panels/mac_floating_windows.h
    panels/mac_panel.cpp panels/mac_panel.h
    panels/mac_panel_window.h panels/mac_panel_window.mm
    panels/mac_panels.cpp panels/mac_panels.h
    panels/mac_popup.cpp panels/mac_popup.h
    pasteboard/mac_general_pasteboard.h pasteboard/mac_general_pasteboard.mm
    pasteboard/mac_pasteboard.cpp pasteboard/mac_pasteboard.h
    preferences/cf_value.cpp preferences/cf_value.h
    preferences/mac_preferences.cpp preferences/mac_preferences.h
    scripting/mac_apple_script.h scripting/mac_apple_script.mm
    scripting/mac_scripting.cpp scripting/mac_scripting.h
    templates_menu/mac_templates_menu.h
    windows/mac_windows.cpp windows/mac_windows.h
    workspace/mac_applications.h workspace/mac_applications.mm
    workspace/mac_workspace.cpp workspace/mac_workspace.h)
list(TRANSFORM PIMLOFT_MAC_SOURCES PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
set(PIMLOFT_MAC_FRAMEWORKS
    AppKit ApplicationServices AudioToolbox Carbon CoreAudio CoreFoundation CoreGraphics Foundation ServiceManagement)
