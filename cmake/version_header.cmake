# Generates qvl_version.h with the project's version, for the version resource.

configure_file(
  ${PROJECT_SOURCE_DIR}/cmake/qvl_version.h.in
  ${PROJECT_BINARY_DIR}/generated/qvl_version.h
  @ONLY
)
set(QVL_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)

file(STRINGS ${PROJECT_SOURCE_DIR}/src/core/qvl.h QVL_HEADER_VERSION REGEX "^#define QVL_VERSION ")
if(NOT QVL_HEADER_VERSION STREQUAL "#define QVL_VERSION \"${PROJECT_VERSION}\"")
  message(FATAL_ERROR "QVL_VERSION in src/core/qvl.h is not ${PROJECT_VERSION}")
endif()
