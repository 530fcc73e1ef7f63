find_package(GTest REQUIRED)

# The path is in one file alone: another tree finds all other objects in the compiler's cache.
set_source_files_properties(${CMAKE_SOURCE_DIR}/tests/main.cpp PROPERTIES COMPILE_DEFINITIONS ZV_SOURCE_DIR="${CMAKE_SOURCE_DIR}")

# A program for each layer: tests that need no toolkit are built and run without one.
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
  # Tests go without these checks of pointers: the address sanitizer sees the same faults in half the time to compile.
  if(ZV_SANITIZE)
    target_compile_options(${name} PRIVATE -fno-sanitize=null,alignment,object-size,vptr)
  endif()
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# The machine in memory, for tests and measurements.
add_library(zv_fakes STATIC ${CMAKE_SOURCE_DIR}/tests/fakes/FakeSystem.cpp)
target_link_libraries(zv_fakes PUBLIC zv_app)

list(TRANSFORM plain_rooms PREPEND linux/ OUTPUT_VARIABLE plain_tests)
list(TRANSFORM toolkit_rooms PREPEND linux/ OUTPUT_VARIABLE toolkit_tests)
zv_tests(zv_core_tests FOLDERS base platform app cli LINK zv_fakes zv_cli zv_app zv_linux)
# The Mac's plain C++, which needs none of its frameworks, runs here, too.
zv_library(zv_macos_plain FOLDERS platform/macos LINK zv_base)
zv_tests(zv_linux_tests FOLDERS ${plain_tests} macos LINK zv_app zv_linux zv_macos_plain)
find_package(Qt6 REQUIRED COMPONENTS Test) # presses keys
zv_tests(zv_qt_tests FOLDERS ${toolkit_tests} LINK zv_fakes zv_app zv_qt Qt6::Test)

# Scripts. Labels: "desktop" needs an X session (its own), "fuzz" runs the fuzz targets.
add_test(NAME arrows COMMAND ${CMAKE_SOURCE_DIR}/tests/arrows)
add_test(NAME texts COMMAND ${CMAKE_SOURCE_DIR}/tests/texts)
add_test(NAME catalogues COMMAND ${CMAKE_SOURCE_DIR}/tests/catalogues)
add_test(NAME faults_apply COMMAND ${CMAKE_SOURCE_DIR}/tests/faults/run --check)
add_test(NAME macos_check COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/unless_same tests/macos/check_all)
set_tests_properties(macos_check PROPERTIES TIMEOUT 600)
add_test(NAME macos_sdk COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/unless_same tests/macos/sdk/check)
set_tests_properties(macos_sdk PROPERTIES TIMEOUT 600 PROCESSORS 2 SKIP_RETURN_CODE 77)
# The plain program that people get is driven on a desktop, killed or linked with another compiler's objects:
# `./zv test` builds it beside the sanitized one. Label "plain": needs that build, too.
if(ZV_SANITIZE)
  set(ZV_PLAIN_BUILD ${CMAKE_SOURCE_DIR}/build/release)
else()
  set(ZV_PLAIN_BUILD ${CMAKE_BINARY_DIR})
endif()
set(ZV_PLAIN_PROGRAM ${ZV_PLAIN_BUILD}/zanthe-vell)
add_test(NAME macos_smoke COMMAND ${CMAKE_SOURCE_DIR}/tests/macos/smoke ${CMAKE_BINARY_DIR}/macos-smoke ${ZV_PLAIN_BUILD})
set_tests_properties(macos_smoke PROPERTIES LABELS "desktop;plain" TIMEOUT 600 PROCESSORS 4)
add_test(NAME macos_bundle COMMAND /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/macos/bundle_test.py)
add_test(NAME documents COMMAND ${CMAKE_SOURCE_DIR}/tests/documents $<TARGET_FILE:zanthe-vell>)
if(ZV_SANITIZE)
  add_test(NAME documents_killed COMMAND ${CMAKE_SOURCE_DIR}/tests/documents ${ZV_PLAIN_PROGRAM} -k killing)
  set_tests_properties(documents_killed PROPERTIES LABELS plain)
endif()
add_test(NAME packaging COMMAND ${CMAKE_SOURCE_DIR}/tests/packaging $<TARGET_FILE:zanthe-vell>)
set_tests_properties(packaging PROPERTIES TIMEOUT 120)
add_test(NAME guide COMMAND ${CMAKE_SOURCE_DIR}/tests/guide $<TARGET_FILE:zanthe-vell>)
set_tests_properties(guide PROPERTIES LABELS desktop TIMEOUT 600)
add_test(NAME guide_pages COMMAND ${CMAKE_SOURCE_DIR}/docs/guide/build ${CMAKE_BINARY_DIR}/guide)
set_tests_properties(guide_pages PROPERTIES SKIP_RETURN_CODE 77)
add_test(NAME completions COMMAND ${CMAKE_SOURCE_DIR}/tests/completions $<TARGET_FILE:zanthe-vell>)
set_tests_properties(completions PROPERTIES TIMEOUT 300)

if(ZV_SANITIZE)
  add_test(NAME threads COMMAND ${CMAKE_SOURCE_DIR}/tests/threads/run ${CMAKE_BINARY_DIR}/threads)
  set_tests_properties(threads PROPERTIES TIMEOUT 120 PROCESSORS 2)
endif()

if(ZV_SANITIZE AND ZV_FUZZ)
  # Replays the corpora, then runs a short while: enough to find a new fault.
  add_test(NAME fuzz COMMAND ${CMAKE_SOURCE_DIR}/tests/fuzz/run 6)
  set_tests_properties(fuzz PROPERTIES LABELS fuzz TIMEOUT 600)
endif()

# Tests that use a whole processor count as two for `ctest -j`, which runs two a processor.
set_tests_properties(zv_core_tests zv_linux_tests zv_qt_tests documents completions PROPERTIES PROCESSORS 2)
set_tests_properties(macos_check PROPERTIES PROCESSORS 4)

# desktop_NAME [VARIABLE=VALUE…]: a script of tests/desktop, each in a session of its own, side by side.
function(zv_desktop_test name)
  string(REGEX REPLACE "_.*" "" script ${name})
  add_test(NAME desktop_${name} COMMAND ${CMAKE_SOURCE_DIR}/tests/desktop/run ${script})
  set_tests_properties(desktop_${name} PROPERTIES LABELS "desktop;plain" TIMEOUT 900 COST 100
                       ENVIRONMENT "ZV_PROGRAM=${ZV_PLAIN_PROGRAM};ZV_TRIES=2;${ARGN}")
endfunction()
foreach(name IN ITEMS actions hotkeys lists menu settings shell updates)
  zv_desktop_test(${name})
endforeach()
foreach(compositor IN ITEMS sway kwin)
  zv_desktop_test(wayland_${compositor} COMPOSITOR=${compositor})
  set_tests_properties(desktop_wayland_${compositor} PROPERTIES SKIP_RETURN_CODE 77)
endforeach()
# Whole desktops that start quickly; ./zv desktops has the others, and pictures.
foreach(whole IN ITEMS bare xfce mate lxqt)
  add_test(NAME whole_desktop_${whole} COMMAND ${CMAKE_SOURCE_DIR}/tests/desktops/run --check ${whole})
  set_tests_properties(whole_desktop_${whole} PROPERTIES LABELS "desktop;plain" TIMEOUT 130 COST 50 SKIP_RETURN_CODE 77
                       ENVIRONMENT "ZV_PROGRAM=${ZV_PLAIN_PROGRAM}")
endforeach()
foreach(session IN ITEMS COMPOSITOR=none COMPOSITOR=picom AUTOHIDE=2)
  zv_desktop_test(overlay_${session} ${session})
endforeach()
