# The Debian package, made by `./dev package`.
set(PIMLOFT_MAINTAINER "The Pimloft developers <developers@pimloft.example>" CACHE STRING
    "Who answers for the Debian package: NAME <ADDRESS>")

# What policy wants beside a program: its licence, and its changelog in Debian's form.
set(documents ${CMAKE_INSTALL_DATADIR}/doc/pimloft)
file(READ ${CMAKE_SOURCE_DIR}/LICENSE licence)
string(REGEX REPLACE "^.*\nCopyright [^\n]*\n\n" "" licence "${licence}")
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " LICENCE_TEXT "\n${licence}")
configure_file(copyright.in copyright @ONLY)
set(changelog_of_package ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian)
add_custom_command(OUTPUT ${changelog_of_package}.gz
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/debian-changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md ${PIMLOFT_MAINTAINER}
            > ${changelog_of_package}
    COMMAND gzip -9nf ${changelog_of_package}
    DEPENDS debian-changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md
    VERBATIM)
add_custom_target(pimloft_documents ALL DEPENDS ${changelog_of_package}.gz)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright ${changelog_of_package}.gz DESTINATION ${documents})
install(FILES lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME pimloft)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pimloft)
set(CPACK_PACKAGE_CONTACT ${PIMLOFT_MAINTAINER})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [[window snapping, clipboard history, key remapping and volume
Pimloft lives in the tray of an X11 desktop and gathers five small features,
each with a switch of its own:
 * WindowSnap: a window that is dragged to an edge or corner of the screen
   fills that half, quarter or the whole screen
 * ClipboardPlus: every copy is kept and found again in a popup
 * FinderFix: cut and paste of files, and new files from templates
 * KeyMapper: key remapping that cannot lock its user out
 * QuickVolume: output device, volume and running audio programs in a mixer

It needs an X11 session. Nothing leaves the computer.]])

# The libraries are found by looking at the programs; the modules that the pages import are loaded at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qml6-module-qtquick, qml6-module-qtquick-layouts, qml6-module-qtquick-templates, qml6-module-qtquick-window, qml6-module-qtqml-workerscript")
# In their order: the sound server, the session bus, the file managers' windows, TIFF pictures, Qt's own texts,
# certificates for the check for updates.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "pipewire-pulse | pulseaudio, default-dbus-session-bus | dbus-session-bus, at-spi2-core, qt6-image-formats-plugins, qt6-translations-l10n, ca-certificates")
include(CPack)
