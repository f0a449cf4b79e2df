# The second compiler: clang for the same target, with the C++ library and start-up files of the first one.
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw64.cmake)

execute_process(
  COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++.a
  OUTPUT_VARIABLE mingw_library OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(mingw_dir ${mingw_library} DIRECTORY)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_AR x86_64-w64-mingw32-ar)
set(CMAKE_RANLIB x86_64-w64-mingw32-ranlib)
string(APPEND CMAKE_CXX_FLAGS_INIT
  " -nostdinc++ -isystem ${mingw_dir}/include/c++ -isystem ${mingw_dir}/include/c++/x86_64-w64-mingw32"
  " -isystem ${mingw_dir}/include/c++/backward")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L${mingw_dir} -B${mingw_dir} --ld-path=/usr/bin/x86_64-w64-mingw32-ld")
