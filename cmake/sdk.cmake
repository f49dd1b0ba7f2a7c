# What a host gets: `cmake --install build/windows --prefix <folder>`.

include(CMakePackageConfigHelpers)

install(
  FILES
    ${PROJECT_SOURCE_DIR}/src/core/qvl.h
    ${PROJECT_SOURCE_DIR}/src/core/qvl_records.h
    ${PROJECT_SOURCE_DIR}/host/qvl_host.h
  DESTINATION include/qvl
)
install(FILES $<TARGET_LINKER_FILE:qvl> DESTINATION lib)
install(FILES $<TARGET_FILE:qvl> $<TARGET_FILE:vornutil> DESTINATION bin)

set(QVL_PACKAGE_DIR lib/cmake/qvl)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/qvl-config.cmake.in
  ${QVL_GENERATED_DIR}/qvl-config.cmake
  INSTALL_DESTINATION ${QVL_PACKAGE_DIR}
  NO_SET_AND_CHECK_MACRO
  NO_CHECK_REQUIRED_COMPONENTS_MACRO
)
write_basic_package_version_file(
  ${QVL_GENERATED_DIR}/qvl-config-version.cmake
  COMPATIBILITY SameMajorVersion
)
install(
  FILES
    ${QVL_GENERATED_DIR}/qvl-config.cmake
    ${QVL_GENERATED_DIR}/qvl-config-version.cmake
  DESTINATION ${QVL_PACKAGE_DIR}
)

configure_file(${PROJECT_SOURCE_DIR}/cmake/qvl.pc.in ${QVL_GENERATED_DIR}/qvl.pc @ONLY)
install(FILES ${QVL_GENERATED_DIR}/qvl.pc DESTINATION lib/pkgconfig)
