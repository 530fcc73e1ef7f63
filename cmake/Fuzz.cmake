# One program for each tests/fuzz/*Fuzz.cpp; `fuzz_targets` builds them all. clang only.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
  message(FATAL_ERROR "Fuzzing takes clang: use the preset fuzz")
endif()
# The other compiler's opinions are for `./zv lint`; here they must not stop the fuzzing.
target_compile_options(zv_options INTERFACE -fsanitize=fuzzer-no-link -Wno-error)

add_custom_target(fuzz_targets)
file(GLOB fuzz_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/*Fuzz.cpp)
foreach(source IN LISTS fuzz_sources)
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} EXCLUDE_FROM_ALL ${source})
  target_link_libraries(${name} PRIVATE zv_app zv_linux)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzzers)
  add_dependencies(fuzz_targets ${name})
endforeach()
