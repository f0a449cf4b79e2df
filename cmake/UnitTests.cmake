set(CRASHVANE_TEST_OPTIONS -O0 -g0)
add_executable(test_headers EXCLUDE_FROM_ALL ${CMAKE_SOURCE_DIR}/tests/unit/support/Main.cpp)
target_link_libraries(test_headers PRIVATE gtest crashvane_options)
target_compile_options(test_headers PRIVATE ${CRASHVANE_TEST_OPTIONS})
target_precompile_headers(test_headers PRIVATE
  <gmock/gmock.h> <gtest/gtest.h> <windows.h> <filesystem> <fstream> <map> <string> <vector>)

# crashvane_unit_tests(<room> SOURCES <files> LIBRARIES <targets>)
# One test program a room, <room>_tests.exe, run under Wine by ctest from a folder of its own.
function(crashvane_unit_tests room)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${room}_tests ${arg_SOURCES} ${CMAKE_SOURCE_DIR}/tests/unit/support/Main.cpp)
  target_link_libraries(${room}_tests PRIVATE ${arg_LIBRARIES} gtest crashvane_options)
  target_include_directories(${room}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests/unit)
  # The framework's headers cost most of a test's compilation: they are read once for all programs, and unoptimised.
  target_compile_options(${room}_tests PRIVATE ${CRASHVANE_TEST_OPTIONS})
  target_precompile_headers(${room}_tests REUSE_FROM test_headers)
  set_target_properties(${room}_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/unit)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tests/run/${room})
  add_test(NAME ${room} COMMAND ${room}_tests WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests/run/${room})
  set_tests_properties(${room} PROPERTIES TIMEOUT 600)
endfunction()
