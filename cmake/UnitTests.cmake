# crashvane_unit_tests(<room> SOURCES <files> LIBRARIES <targets>)
# One test program a room, <room>_tests.exe, run under Wine by ctest from a folder of its own.
function(crashvane_unit_tests room)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${room}_tests ${arg_SOURCES} ${CMAKE_SOURCE_DIR}/tests/unit/support/Main.cpp)
  target_link_libraries(${room}_tests PRIVATE ${arg_LIBRARIES} gtest crashvane_options)
  target_include_directories(${room}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests/unit)
  # GoogleTest's macros convert and shadow as they please.
  target_compile_options(${room}_tests PRIVATE -Wno-conversion -Wno-sign-conversion -Wno-shadow)
  set_target_properties(${room}_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/unit)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/tests/run/${room})
  add_test(NAME ${room} COMMAND ${room}_tests WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests/run/${room})
  set_tests_properties(${room} PROPERTIES TIMEOUT 600)
endfunction()
