# How every target of the project is built: language level, warnings, sanitizers, Qt's stricter modes.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
if(TINTWELL_DESKTOP)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(tintwell_options INTERFACE)
# Without contraction every expression rounds as it is written, on every machine.
target_compile_options(tintwell_options INTERFACE
    -ffp-contract=off
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    -Wswitch-enum
    $<$<BOOL:${TINTWELL_WERROR}>:-Werror>)
if(TINTWELL_SANITIZE)
    target_compile_options(tintwell_options INTERFACE
        -fsanitize=${TINTWELL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # GCC loses track of an optional's or a std::regex's state behind the inserted checks.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(tintwell_options INTERFACE -fsanitize=${TINTWELL_SANITIZE})
endif()
include(Hardening)

# One layer of the tree: a static library whose headers are included by their bare names.
function(tintwell_add_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE tintwell_options)
endfunction()

# Stops when a target of the folder, just added, links a room that is not there yet.
function(tintwell_check_links folder)
    get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
    foreach(target IN LISTS targets)
        get_target_property(libraries ${target} LINK_LIBRARIES)
        foreach(library IN LISTS libraries)
            if(library MATCHES "^(platform|tintwell)_" AND NOT TARGET ${library})
                message(FATAL_ERROR "${target} links ${library}, which does not stand before ${folder}")
            endif()
        endforeach()
    endforeach()
endfunction()

# Builds a target against Qt with its implicit conversions and keywords turned off.
function(tintwell_use_qt name)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${name} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH
        QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
endfunction()

# One test program, run whole as one ctest entry. Libraries follow the word LIBS.
function(tintwell_add_test name)
    cmake_parse_arguments(TEST "" "" "LIBS" ${ARGN})
    add_executable(${name} ${TEST_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE tintwell_options ${TEST_LIBS} tintwell_test_main)
    target_compile_definitions(${name} PRIVATE TINTWELL_TEST_DATA="${CMAKE_SOURCE_DIR}/Tests/Data")
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 120)
endfunction()

# Lays the application's resources beside a program, where it looks for them when it is not installed.
function(tintwell_bundle_resources name)
    add_custom_command(TARGET ${name} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E copy_directory "${CMAKE_SOURCE_DIR}/Resources" "$<TARGET_FILE_DIR:${name}>/Resources")
endfunction()
