# Compiler and linker options that every target of our own code shares.
add_library(crashvane_options INTERFACE)

target_compile_definitions(crashvane_options INTERFACE
  WIN32_LEAN_AND_MEAN NOMINMAX STRICT
  _WIN32_WINNT=0x0601 WINVER=0x0601)
# _CRT_... names of the Windows runtime are used on purpose: formats are to mean what that runtime means by them.

target_compile_options(crashvane_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX,C>:-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror>
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual>
  # %I64u and its kin are the runtime's own formats; the pedantic check calls every one of them foreign to ISO C.
  $<$<COMPILE_LANGUAGE:CXX,C>:-Wno-format>
  $<$<COMPILE_LANGUAGE:CXX,C>:-fstack-protector-strong>
  $<$<COMPILE_LANGUAGE:CXX,C>:-ffunction-sections -fdata-sections>
  # No path of the building machine reaches the program: __FILE__ and debug paths are relative to the source tree.
  $<$<COMPILE_LANGUAGE:CXX,C>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>
  $<$<COMPILE_LANGUAGE:CXX,C>:-ffile-prefix-map=${CMAKE_BINARY_DIR}=build>)

target_include_directories(crashvane_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

target_link_options(crashvane_options INTERFACE
  -static -static-libgcc -static-libstdc++
  -fstack-protector-strong
  -Wl,--gc-sections
  -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va
  -Wl,--no-insert-timestamp)

if(CRASHVANE_COVERAGE)
  target_compile_options(crashvane_options INTERFACE --coverage -O0 -fprofile-update=atomic)
  target_link_options(crashvane_options INTERFACE --coverage)
endif()

# Memory checks with a run-time of our own (tests/checked), trapping undefined behaviour, the library's assertions.
if(CRASHVANE_CHECKED)
  target_compile_options(crashvane_options INTERFACE
    -O1 -g
    -fsanitize=kernel-address
    "SHELL:--param asan-instrumentation-with-call-threshold=0"
    "SHELL:--param asan-stack=0" "SHELL:--param asan-globals=0"
    -fsanitize=undefined -fsanitize-undefined-trap-on-error
    -fstack-protector-all
    # The instrumentation hides from the compiler what it needs to know for these.
    -Wno-maybe-uninitialized -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
  target_compile_definitions(crashvane_options INTERFACE _GLIBCXX_ASSERTIONS CRASHVANE_CHECKED)
  set(wrapped malloc calloc realloc free memcpy memmove memset)
  list(TRANSFORM wrapped PREPEND -Wl,--wrap=)
  target_link_options(crashvane_options INTERFACE ${wrapped})
  target_link_libraries(crashvane_options INTERFACE $<TARGET_OBJECTS:crashvane_checked_runtime>)
  add_subdirectory(${CMAKE_SOURCE_DIR}/tests/checked)
endif()
