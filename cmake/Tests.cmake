find_package(GTest REQUIRED)

# In one file alone: another tree finds all other objects in the compiler's cache.
set_source_files_properties(${CMAKE_SOURCE_DIR}/tests/main.cpp PROPERTIES COMPILE_DEFINITIONS ZV_SOURCE_DIR="${CMAKE_SOURCE_DIR}")

# One program a layer: what needs no toolkit is built and run without one.
function(zv_tests name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LINK" ${ARGN})
  set(sources)
  foreach(folder IN LISTS ARG_FOLDERS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${CMAKE_SOURCE_DIR}/tests/main.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest)
  if(ZV_PCH)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <functional> <map> <string> <vector>)
  endif()
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

list(TRANSFORM plain_rooms PREPEND linux/ OUTPUT_VARIABLE plain_tests)
list(TRANSFORM toolkit_rooms PREPEND linux/ OUTPUT_VARIABLE toolkit_tests)
zv_tests(zv_core_tests FOLDERS base platform app cli LINK zv_cli zv_app zv_linux)
zv_tests(zv_linux_tests FOLDERS ${plain_tests} macos LINK zv_app zv_linux)
zv_tests(zv_qt_tests FOLDERS ${toolkit_tests} LINK zv_app zv_qt)

# Scripts. Labels: "desktop" needs an X session (its own), "fuzz" runs the fuzz targets.
add_test(NAME arrows COMMAND ${CMAKE_SOURCE_DIR}/tests/arrows)
add_test(NAME macos_check COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/check_all)
set_tests_properties(macos_check PROPERTIES TIMEOUT 600)
add_test(NAME macos_sdk COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/sdk/check)
set_tests_properties(macos_sdk PROPERTIES TIMEOUT 300 PROCESSORS 2 SKIP_RETURN_CODE 77)
# Sanitizers are not for what is linked with another compiler's objects: `./zv test` builds a plain program, too.
if(ZV_SANITIZE)
  set(ZV_PLAIN_BUILD ${CMAKE_SOURCE_DIR}/build/release)
else()
  set(ZV_PLAIN_BUILD ${CMAKE_BINARY_DIR})
endif()
add_test(NAME macos_smoke COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/smoke ${CMAKE_BINARY_DIR}/macos-smoke ${ZV_PLAIN_BUILD})
set_tests_properties(macos_smoke PROPERTIES LABELS desktop TIMEOUT 600 RUN_SERIAL ON)
add_test(NAME macos_bundle COMMAND /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/macos/bundle_test.py)
add_test(NAME documents COMMAND ${CMAKE_SOURCE_DIR}/tests/documents $<TARGET_FILE:zanthe-vell>)

# What is driven on a desktop is the program that people get: `./zv test` builds it beside the
# sanitized one.
if(ZV_SANITIZE)
  set(ZV_DESKTOP_PROGRAM ${CMAKE_SOURCE_DIR}/build/release/zanthe-vell)
else()
  set(ZV_DESKTOP_PROGRAM $<TARGET_FILE:zanthe-vell>)
endif()

set(ZV_PRIVATE_DESKTOP ${CMAKE_SOURCE_DIR}/packaging/linux/private-desktop)

add_test(NAME desktop_hotkeys COMMAND ${CMAKE_COMMAND} -E env PANEL=none ${ZV_PRIVATE_DESKTOP} -- /usr/bin/python3
                                      ${CMAKE_SOURCE_DIR}/tests/desktop/hotkeys_test.py ${ZV_DESKTOP_PROGRAM})
set_tests_properties(desktop_hotkeys PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON)

foreach(session IN ITEMS COMPOSITOR=none COMPOSITOR=picom AUTOHIDE=2)
  add_test(NAME desktop_overlay_${session}
           COMMAND ${CMAKE_COMMAND} -E env PYTHONDONTWRITEBYTECODE=1 ${session} ${ZV_PRIVATE_DESKTOP} --
                   ${CMAKE_SOURCE_DIR}/tests/desktop/overlay_test.py ${ZV_DESKTOP_PROGRAM})
  set_tests_properties(desktop_overlay_${session} PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON)
endforeach()

add_test(NAME desktop_actions COMMAND ${ZV_PRIVATE_DESKTOP} -- /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/desktop/actions_test.py)
set_tests_properties(desktop_actions PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON
                     ENVIRONMENT "ZV_PROGRAM=${ZV_DESKTOP_PROGRAM};PANEL=none;PYTHONDONTWRITEBYTECODE=1")

add_test(NAME desktop_menu COMMAND ${CMAKE_SOURCE_DIR}/tests/desktop/run)
set_tests_properties(desktop_menu PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON ENVIRONMENT "ZV_BUILT_PROGRAM=${ZV_DESKTOP_PROGRAM}")

if(ZV_SANITIZE AND ZV_FUZZ)
  # Short: enough to find what broke.
  add_test(NAME fuzz COMMAND ${CMAKE_SOURCE_DIR}/tests/fuzz/run 10)
  set_tests_properties(fuzz PROPERTIES LABELS fuzz TIMEOUT 600 ENVIRONMENT ZV_FUZZ_PRESET=sanitize)
endif()

add_test(NAME desktop_lists COMMAND ${ZV_PRIVATE_DESKTOP} -- ${CMAKE_SOURCE_DIR}/tests/desktop/lists_test.py ${ZV_DESKTOP_PROGRAM})
set_tests_properties(desktop_lists PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON)

add_test(NAME packaging COMMAND ${CMAKE_SOURCE_DIR}/tests/packaging $<TARGET_FILE:zanthe-vell>)
set_tests_properties(packaging PROPERTIES TIMEOUT 120)
add_test(NAME completions COMMAND ${CMAKE_SOURCE_DIR}/tests/completions $<TARGET_FILE:zanthe-vell>)
set_tests_properties(completions PROPERTIES TIMEOUT 300)

add_test(NAME desktop_settings COMMAND ${ZV_PRIVATE_DESKTOP} -- /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/desktop/settings_test.py)
set_tests_properties(desktop_settings PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON
                     ENVIRONMENT "ZV_PROGRAM=${ZV_DESKTOP_PROGRAM};PANEL=none;NO_AT_BRIDGE=0;PYTHONDONTWRITEBYTECODE=1")

add_test(NAME desktop_updates COMMAND ${ZV_PRIVATE_DESKTOP} -- /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/desktop/updates_test.py)
set_tests_properties(desktop_updates PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON
                     ENVIRONMENT "ZV_PROGRAM=${ZV_DESKTOP_PROGRAM};PANEL=none;NO_AT_BRIDGE=0;PYTHONDONTWRITEBYTECODE=1")
add_test(NAME desktop_shell COMMAND ${ZV_PRIVATE_DESKTOP} -- /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/desktop/shell_test.py)
set_tests_properties(desktop_shell PROPERTIES LABELS desktop TIMEOUT 400 RUN_SERIAL ON
                     ENVIRONMENT "ZV_PROGRAM=${ZV_DESKTOP_PROGRAM};PANEL=none;NO_AT_BRIDGE=0;PYTHONDONTWRITEBYTECODE=1")
