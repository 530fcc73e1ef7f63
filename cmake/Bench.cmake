find_package(benchmark REQUIRED)
file(GLOB benches CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/*Bench.cpp)
foreach(bench IN LISTS benches)
  get_filename_component(name ${bench} NAME_WE)
  add_executable(${name} ${bench})
  target_link_libraries(${name} PRIVATE zv_fakes zv_qt zv_cli benchmark::benchmark)
endforeach()

# Measures the menus of any program; bench/desktop uses it.
find_package(X11 REQUIRED COMPONENTS Xtst Xdamage)
add_executable(click_latency ${CMAKE_SOURCE_DIR}/bench/click_latency.cpp)
target_link_libraries(click_latency PRIVATE zv_options X11::X11 X11::Xtst X11::Xdamage)

# The yardstick of bench/start.
add_executable(bare_start ${CMAKE_SOURCE_DIR}/bench/bare_start.cpp)
target_link_libraries(bare_start PRIVATE zv_options Qt6::Widgets Qt6::DBus)

# The yardstick of bench/desktop.
add_executable(bare_menu ${CMAKE_SOURCE_DIR}/bench/bare_menu.cpp)
target_link_libraries(bare_menu PRIVATE zv_options X11::X11 PkgConfig::GIO)
