option(ZV_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(ZV_TESTS "Build the tests" ON)
option(ZV_BENCH "Build the measurements" OFF)
option(ZV_PCH "Precompile the headers that most files include" ON)
option(ZV_FUZZ "Build the fuzz targets (clang only)" OFF)
option(ZV_PACKAGED "Build for a package: nothing of this machine in the program" OFF)
option(ZV_DEBIAN "Lay out what is installed as Debian has it" OFF)

# Warnings are errors in the presets, for developers; not with CMake's own release flags, which define NDEBUG:
# a build by another compiler must not stop at its warnings.
string(TOUPPER "${CMAKE_BUILD_TYPE}" ZV_CONFIGURATION)
if(CMAKE_CXX_FLAGS_${ZV_CONFIGURATION} MATCHES NDEBUG)
  set(ZV_WERROR_DEFAULT OFF)
else()
  set(ZV_WERROR_DEFAULT ON)
endif()
option(ZV_WERROR "Treat warnings as errors" ${ZV_WERROR_DEFAULT})

add_library(zv_options INTERFACE)
target_include_directories(zv_options INTERFACE ${CMAKE_SOURCE_DIR})
# Only these are compiled anew for another version.
set_source_files_properties(${CMAKE_SOURCE_DIR}/cli/CommandLine.cpp ${CMAKE_SOURCE_DIR}/cli/DoctorCommand.cpp ${CMAKE_SOURCE_DIR}/platform/linux/files/BundleResources.cpp
                            ${CMAKE_SOURCE_DIR}/platform/linux/toolkit/DesktopDiagnostics.cpp ${CMAKE_SOURCE_DIR}/platform/linux/windows/LinuxApplication.cpp
                            ${CMAKE_SOURCE_DIR}/tests/cli/CommandLineTest.cpp ${CMAKE_SOURCE_DIR}/tests/linux/files/BundleResourcesTest.cpp
                            PROPERTIES COMPILE_DEFINITIONS ZV_VERSION="${PROJECT_VERSION}")
target_compile_options(zv_options INTERFACE -Wall -Wextra $<$<BOOL:${ZV_WERROR}>:-Werror> -Wnon-virtual-dtor -Woverloaded-virtual
                                            -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # Warnings of the optimizer change with its inlining, and gcc 12 is wrong about std::optional and
  # std::string: the first two are noise and off, the others warn but stop nothing.
  target_compile_options(zv_options INTERFACE -Wno-maybe-uninitialized -Wno-restrict -Wno-error=array-bounds -Wno-error=stringop-overflow
                                              -Wno-error=stringop-overread -Wno-error=stringop-truncation -Wno-error=dangling-pointer
                                              -Wno-error=use-after-free -Wno-error=free-nonheap-object -Wno-error=nonnull
                                              -Wno-error=alloc-size-larger-than= -Wno-error=mismatched-new-delete)
endif()

if(ZV_SANITIZE)
  target_compile_options(zv_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(zv_options INTERFACE -fsanitize=address,undefined)
endif()

find_program(ZV_MOLD mold)
if(NOT APPLE)
  # The toolkit's packages name libraries of graphics cards that nothing here uses.
  target_link_options(zv_options INTERFACE -Wl,--as-needed $<$<BOOL:${ZV_MOLD}>:-fuse-ld=mold>)
endif()

find_program(ZV_CCACHE ccache)
if(ZV_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_SOURCE_DIR}/cmake/cached-compiler ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR})
  # clang's precompiled headers hold times and paths; ninja knows their sources.
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(zv_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp" "SHELL:-Xclang -fno-validate-pch")
  endif()
endif()

# Makes a library of all .cpp files in and below these folders.
function(zv_library name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LINK" ${ARGN})
  list(TRANSFORM ARG_FOLDERS REPLACE "(.+)" "${CMAKE_SOURCE_DIR}/\\1/*.cpp")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${ARG_FOLDERS})
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC zv_options ${ARG_LINK})
  if(ZV_PCH AND NOT APPLE)
    target_precompile_headers(${name} PRIVATE <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <string> <variant> <vector>)
  endif()
endfunction()
