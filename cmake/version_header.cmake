# qvl_version.h, for the version resource: numbers and text made from the project's version.

configure_file(
  ${PROJECT_SOURCE_DIR}/cmake/qvl_version.h.in
  ${PROJECT_BINARY_DIR}/generated/qvl_version.h
  @ONLY
)
set(QVL_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
