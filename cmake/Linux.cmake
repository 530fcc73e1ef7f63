find_package(PkgConfig REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
find_package(nlohmann_json REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Widgets DBus Network)
find_package(Threads REQUIRED)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(EXPAT REQUIRED IMPORTED_TARGET expat)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-xkb xcb-shape xcb-damage xcb-randr xcb-xfixes xcb-xinput xkbcommon xkbcommon-x11)
pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)

# The core: no toolkit, no system header.
zv_library(zv_base FOLDERS base platform/files)
zv_library(zv_app FOLDERS app LINK zv_base nlohmann_json::nlohmann_json)
zv_library(zv_cli FOLDERS cli LINK zv_app nlohmann_json::nlohmann_json)

# The rooms without a toolkit, apart from those over Qt, X11 and D-Bus.
set(plain_rooms posix entries files store text bus apps machine session install)
set(toolkit_rooms toolkit x11 icons looks menu tray hotkeys overlay windows settings updates program doctor)
list(TRANSFORM plain_rooms PREPEND platform/linux/ OUTPUT_VARIABLE plain_folders)
list(TRANSFORM toolkit_rooms PREPEND platform/linux/ OUTPUT_VARIABLE toolkit_folders)
zv_library(zv_linux FOLDERS ${plain_folders} LINK zv_base ICU::i18n ICU::uc PkgConfig::PLIST PkgConfig::EXPAT PkgConfig::GIO PkgConfig::SODIUM Threads::Threads)
zv_library(zv_qt FOLDERS ${toolkit_folders} LINK zv_linux zv_app Qt6::Widgets Qt6::DBus Qt6::Network PkgConfig::XCB)
target_compile_definitions(zv_qt PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
if(ZV_PCH)
  target_precompile_headers(zv_qt PRIVATE <QtWidgets/QtWidgets> <QtDBus/QtDBus>)
endif()
set_target_properties(zv_qt PROPERTIES AUTOMOC ON)
include(cmake/Wayland.cmake)
# A program that was built, not installed, shows the icons of its sources; a package holds no path of its build machine.
if(NOT ZV_PACKAGED)
  set(icons_source ${CMAKE_SOURCE_DIR}/packaging/linux/icons)
endif()
set_source_files_properties(${CMAKE_SOURCE_DIR}/platform/linux/icons/LaurelIcon.cpp PROPERTIES COMPILE_DEFINITIONS ZV_ICONS_SOURCE="${icons_source}")

# A program that was built, not installed, finds its resources beside itself.
set(ZV_RESOURCES ${CMAKE_SOURCE_DIR}/app/resources)
file(CREATE_LINK ${ZV_RESOURCES} ${CMAKE_BINARY_DIR}/resources SYMBOLIC)
file(GLOB composition CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/linux/compose/*.cpp)
add_executable(zanthe-vell ${composition})
target_link_libraries(zanthe-vell PRIVATE zv_wayland zv_qt zv_cli)
# The loader looks for each of 15,000 names in one library after the other: those that have most of them come first. A
# sanitizer must come before all.
if(NOT ZV_SANITIZE)
  target_link_options(
    zanthe-vell PRIVATE
    "SHELL:-Wl,--push-state,--no-as-needed $<TARGET_FILE:Qt6::Core> $<TARGET_FILE:Qt6::Gui> $<TARGET_FILE:Qt6::Widgets> -lstdc++ -l:libc.so.6 -Wl,--pop-state")
endif()

include(cmake/Languages.cmake)
if(TARGET zv_catalogues)
  add_dependencies(zanthe-vell zv_catalogues)
endif()

if(ZV_TESTS)
  enable_testing()
  include(cmake/Tests.cmake)
endif()
if(ZV_BENCH)
  include(cmake/Bench.cmake)
endif()
if(ZV_FUZZ)
  include(cmake/Fuzz.cmake)
endif()
include(cmake/Install.cmake OPTIONAL)
