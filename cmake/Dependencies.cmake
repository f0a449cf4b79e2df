# TinyXML and zlib from Debian's own sources (script/bootstrap fetches and unpacks them, patched), built here with the
# cross compiler; GoogleTest from the sources that Debian's package installs.
foreach(needed tinyxml/tinyxml.cpp zlib/deflate.c)
  if(NOT EXISTS "${CRASHVANE_DEPS}/${needed}")
    message(FATAL_ERROR "${CRASHVANE_DEPS}/${needed} is missing: run script/bootstrap first")
  endif()
endforeach()

set(tinyxml_dir ${CRASHVANE_DEPS}/tinyxml)
add_library(tinyxml STATIC
  ${tinyxml_dir}/tinystr.cpp ${tinyxml_dir}/tinyxml.cpp
  ${tinyxml_dir}/tinyxmlerror.cpp ${tinyxml_dir}/tinyxmlparser.cpp)
target_include_directories(tinyxml SYSTEM PUBLIC ${tinyxml_dir})
# Debian's header switches the STL variant on (std::string, streams); library and users agree by that.
target_compile_options(tinyxml PRIVATE -w -ffunction-sections -fdata-sections -fstack-protector-strong
  -ffile-prefix-map=${CRASHVANE_DEPS}=deps)

set(zlib_dir ${CRASHVANE_DEPS}/zlib)
add_library(zlib STATIC
  ${zlib_dir}/adler32.c ${zlib_dir}/crc32.c ${zlib_dir}/deflate.c ${zlib_dir}/trees.c ${zlib_dir}/zutil.c)
target_include_directories(zlib SYSTEM PUBLIC ${zlib_dir})
target_compile_options(zlib PRIVATE -w -O3 -ffunction-sections -fdata-sections -ffile-prefix-map=${CRASHVANE_DEPS}=deps)
# Reading back (inflate) is for the tests alone.
add_library(zlib_inflate STATIC EXCLUDE_FROM_ALL ${zlib_dir}/inflate.c ${zlib_dir}/inftrees.c ${zlib_dir}/inffast.c)
target_compile_options(zlib_inflate PRIVATE -w -O2)
target_link_libraries(zlib_inflate PUBLIC zlib)

set(gtest_dir /usr/src/googletest)
add_library(gtest STATIC EXCLUDE_FROM_ALL
  ${gtest_dir}/googletest/src/gtest-all.cc ${gtest_dir}/googlemock/src/gmock-all.cc)
target_include_directories(gtest SYSTEM PUBLIC ${gtest_dir}/googletest/include ${gtest_dir}/googlemock/include)
target_include_directories(gtest PRIVATE ${gtest_dir}/googletest ${gtest_dir}/googlemock)
target_compile_options(gtest PRIVATE -w)
