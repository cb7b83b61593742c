# What CHANGELOG.md says of the releases. The version itself is that of the project, in the top CMakeLists.
set(changelog ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})

# RELEASES: one element of the metainfo for each, the newest first.
set(RELEASES "")
file(STRINGS ${changelog} headings REGEX "^## [0-9.]+ - [0-9]+-[0-9]+-[0-9]+$")
foreach(heading IN LISTS headings)
    string(REGEX REPLACE "^## (.+) - (.+)$" "    <release version=\"\\1\" date=\"\\2\"/>" release "${heading}")
    list(APPEND RELEASES "${release}")
endforeach()
list(JOIN RELEASES "\n" RELEASES)

list(GET headings 0 newest)
if(NOT newest MATCHES "^## ${PROJECT_VERSION} - ")
    message(FATAL_ERROR "CHANGELOG.md begins with \"${newest}\", but this is ${PROJECT_VERSION}.")
endif()
