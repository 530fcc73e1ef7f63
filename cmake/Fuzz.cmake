# A program for each tests/fuzz/*Fuzz.cpp; `fuzz_targets` builds them all. clang only.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
  message(FATAL_ERROR "Fuzzing takes clang: use the preset sanitize")
endif()

# A second build of the fuzzed readers, instrumented by the fuzzer and optimized.
add_library(zv_fuzz_options INTERFACE)
target_compile_options(zv_fuzz_options INTERFACE -O1 -fsanitize=fuzzer-no-link)
zv_library(zv_fuzzed FOLDERS base app/model app/updates platform/files platform/linux/text platform/linux/store platform/linux/posix platform/linux/entries
                     platform/linux/files
           LINK zv_fuzz_options nlohmann_json::nlohmann_json ICU::i18n ICU::uc PkgConfig::PLIST PkgConfig::EXPAT PkgConfig::GIO PkgConfig::SODIUM Qt6::Core)
# Of rooms that need a desktop, the readers alone.
set(lone_readers app/menu/DisplayText app/menu/ScriptOutput app/menu/TextColor app/shell/ProgramMessage platform/linux/apps/LaunchLog platform/linux/apps/RecentlyUsedFile platform/linux/icons/XSettings
    platform/linux/updates/Appcast)
list(TRANSFORM lone_readers REPLACE "(.+)" "${CMAKE_SOURCE_DIR}/\\1.cpp")
target_sources(zv_fuzzed PRIVATE ${lone_readers})
set_target_properties(zv_fuzzed PROPERTIES EXCLUDE_FROM_ALL ON)

add_custom_target(fuzz_targets)
file(GLOB fuzz_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/*Fuzz.cpp)
foreach(source IN LISTS fuzz_sources)
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} EXCLUDE_FROM_ALL ${source})
  target_link_libraries(${name} PRIVATE zv_fuzzed)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzzers)
  add_dependencies(fuzz_targets ${name})
endforeach()
