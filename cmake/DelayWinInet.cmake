# wininet.dll is bound on the first call and not while the program is loaded: at that moment a file of that name beside
# the program would win over the system's own. What the main flow does first (driver/Hardening) runs in between.
find_program(CRASHVANE_DLLTOOL NAMES x86_64-w64-mingw32-dlltool REQUIRED)
set(delay_wininet ${CMAKE_BINARY_DIR}/libdelay_wininet.a)
add_custom_command(OUTPUT ${delay_wininet}
  COMMAND ${CRASHVANE_DLLTOOL} --input-def ${CMAKE_SOURCE_DIR}/cmake/wininet.def --output-delaylib ${delay_wininet}
  DEPENDS ${CMAKE_SOURCE_DIR}/cmake/wininet.def
  VERBATIM)
add_custom_target(delay_wininet_archive DEPENDS ${delay_wininet})
add_library(crashvane_delay_wininet INTERFACE)
target_link_libraries(crashvane_delay_wininet INTERFACE ${delay_wininet})
add_dependencies(crashvane_delay_wininet delay_wininet_archive)
