# GoogleTest, compiled from the distribution's sources for this build.

set(QVL_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "Folder of GoogleTest's sources")
if(NOT EXISTS ${QVL_GOOGLETEST_DIR}/CMakeLists.txt)
  message(FATAL_ERROR "GoogleTest's sources are not in ${QVL_GOOGLETEST_DIR}: run "
                      "tools/install_packages.sh, or set QVL_GOOGLETEST_DIR")
endif()

set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory(${QVL_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
