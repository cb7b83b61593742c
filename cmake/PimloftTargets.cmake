# The shapes that every target of the tree takes: a library per folder, a test binary per library.

add_library(pimloft_options INTERFACE)
target_include_directories(pimloft_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(pimloft_options INTERFACE -Wall -Wextra)
if(NOT APPLE)
    # There the compiler and the headers are the user's own.
    target_compile_options(pimloft_options INTERFACE -Werror)
endif()
target_compile_definitions(pimloft_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DEPRECATED_WARNINGS_SINCE=0x060400)
if(PIMLOFT_SANITIZE)
    target_compile_options(pimloft_options INTERFACE -fsanitize=${PIMLOFT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(pimloft_options INTERFACE -fsanitize=${PIMLOFT_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
        target_compile_options(pimloft_options INTERFACE
            -fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/cmake/sanitizer-exceptions.txt)
    endif()
endif()

if(PIMLOFT_FUZZ)
    # The fuzzer is led by what the code under test runs through.
    target_compile_options(pimloft_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(PIMLOFT_COVERAGE)
    target_compile_options(pimloft_options INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(pimloft_options INTERFACE -fprofile-instr-generate)
endif()

# pimloft_library(name SOURCES ... LINK ...): a static library of the tree.
function(pimloft_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    qt_add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC pimloft_options ${ARG_LINK})
    # Lets a QML module in another target register these types for its pages.
    qt_extract_metatypes(${name})
endfunction()

option(PIMLOFT_QML_AHEAD "Compile the pages ahead of time: off for quicker builds while working on them" ON)
if(NOT PIMLOFT_QML_AHEAD)
    set(qml_options NO_CACHEGEN)
endif()

# pimloft_qml_library(name URI uri QML_FILES ... SOURCES ... LINK ... DEPENDENCIES ...): a static library with a QML module.
function(pimloft_qml_library name)
    cmake_parse_arguments(ARG "" "URI" "QML_FILES;SOURCES;LINK;RESOURCES;DEPENDENCIES" ${ARGN})
    qt_add_library(${name} STATIC)
    qt_add_qml_module(${name} URI ${ARG_URI} VERSION 1.0 RESOURCE_PREFIX /qt/qml DEPENDENCIES QtQuick ${ARG_DEPENDENCIES} ${qml_options}
        QML_FILES ${ARG_QML_FILES} SOURCES ${ARG_SOURCES} RESOURCES ${ARG_RESOURCES})
    target_link_libraries(${name} PUBLIC pimloft_options ${ARG_LINK})
endfunction()

# pimloft_test(name SOURCES ... LINK ... [WIDGETS]): one test binary; each of its tests is a test of ctest.
# WIDGETS for tests of what is linked to Qt Widgets.
function(pimloft_test name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    set(main pimloft_test_main)
    if(ARG_WIDGETS)
        set(main pimloft_widget_test_main)
    endif()
    target_link_libraries(${name} PRIVATE pimloft_options ${main} ${ARG_LINK})
    if(NOT ARG_LABELS)
        set(ARG_LABELS unit)
    endif()
    # What `./dev test` builds of a sanitizer's preset: unit_tests, threaded_tests.
    foreach(label IN LISTS ARG_LABELS)
        if(NOT TARGET ${label}_tests)
            add_custom_target(${label}_tests)
        endif()
        add_dependencies(${label}_tests ${name})
    endforeach()
    # A sanitizer costs several times the time, and the machine may be a slow one.
    set(timeout 120)
    if(PIMLOFT_SANITIZE)
        set(timeout 400)
    endif()
    # Values of records are printed as bytes, and these are other ones each time.
    gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${timeout}
        ENVIRONMENT "TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/thread-sanitizer-exceptions.txt")
    # A list of labels does not survive the discovery.
    set(labels ${CMAKE_CURRENT_BINARY_DIR}/${name}_labels.cmake)
    file(WRITE ${labels} "if(${name}_TESTS)
    set_tests_properties(\${${name}_TESTS} PROPERTIES LABELS \"${ARG_LABELS}\")
endif()
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${labels})
endfunction()
