find_package(PkgConfig REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
find_package(nlohmann_json REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Widgets DBus Network)
find_package(Threads REQUIRED)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-xkb xcb-shape xcb-damage xcb-randr xcb-xfixes xcb-xinput xkbcommon xkbcommon-x11)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)

# The core: no toolkit, no system header.
zv_library(zv_base FOLDER base)
file(GLOB seam_helpers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/*.cpp)
target_sources(zv_base PRIVATE ${seam_helpers})
zv_library(zv_app FOLDER app RECURSE LINK zv_base nlohmann_json::nlohmann_json)
zv_library(zv_cli FOLDER cli LINK zv_app nlohmann_json::nlohmann_json)

# What main puts together from all of the layers.
file(GLOB composition CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/linux/CommandLine*.cpp)

# The Linux seams, those without a toolkit apart from those over Qt, X11 and D-Bus.
zv_library(zv_linux FOLDER platform/linux LINK zv_base ICU::i18n ICU::uc PkgConfig::PLIST PkgConfig::GIO PkgConfig::SODIUM Threads::Threads)
zv_library(zv_qt FOLDER platform/linux/qt RECURSE LINK zv_linux zv_app Qt6::Widgets Qt6::DBus Qt6::Network PkgConfig::XCB)
target_compile_definitions(zv_qt PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
if(ZV_PCH)
  target_precompile_headers(zv_qt PRIVATE <QtWidgets/QtWidgets> <QtDBus/QtDBus>)
endif()
set_target_properties(zv_qt PROPERTIES AUTOMOC ON)
# A program that was built, not installed, shows the icons of its sources; a package knows of no place on the machine it was made on.
if(NOT ZV_PACKAGED)
  set(icons_source ${CMAKE_SOURCE_DIR}/packaging/linux/icons)
endif()
set_source_files_properties(${CMAKE_SOURCE_DIR}/platform/linux/qt/LaurelIcon.cpp PROPERTIES COMPILE_DEFINITIONS ZV_ICONS_SOURCE="${icons_source}")

# A program that was built, not installed, finds its resources beside itself.
set(ZV_RESOURCES ${CMAKE_SOURCE_DIR}/app/resources)
file(CREATE_LINK ${ZV_RESOURCES} ${CMAKE_BINARY_DIR}/resources SYMBOLIC)
add_executable(zanthe-vell platform/linux/main.cpp ${composition})
target_link_libraries(zanthe-vell PRIVATE zv_qt zv_cli)

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
