# The package that is shipped: `cmake --install` and `cpack` make Crashvane-<version>-win64.zip of the program, its
# settings file, the documents and the notices of what is linked into it.
#
# Packaging takes the program that was built; script/package builds it and packs it in one go.
if(NOT TARGET Crashvane)
  return()
endif()

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

install(CODE "
  set(host [[${CRASHVANE_SERVER_HOST}]])
  set(allowed [[${CRASHVANE_ALLOW_LOCAL_HOST}]])
")
install(SCRIPT ${CMAKE_CURRENT_LIST_DIR}/RefuseLocalHost.cmake)

# One file of all notices.
file(GLOB notices CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/cmake/notices/*.txt)
set(third_party "Crashvane contains work of others. Their notices follow, one behind another.\n")
string(REPEAT "=" 79 rule)
foreach(notice ${notices})
  file(READ ${notice} text)
  string(APPEND third_party "\n${rule}\n${text}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${notice})
endforeach()
file(WRITE ${CMAKE_BINARY_DIR}/THIRD-PARTY.txt "${third_party}")

install(TARGETS Crashvane RUNTIME DESTINATION .)
install(FILES
  ${CMAKE_SOURCE_DIR}/src/driver/Crashvane.cfg
  ${CMAKE_SOURCE_DIR}/README.md
  ${CMAKE_SOURCE_DIR}/CHANGELOG.md
  ${CMAKE_BINARY_DIR}/THIRD-PARTY.txt
  DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION docs FILES_MATCHING PATTERN "*.md" PATTERN "*.png")

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME Crashvane-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
