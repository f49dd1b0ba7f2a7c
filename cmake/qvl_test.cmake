# Each program writes its cases to results/<name>.xml in the build folder. tests/scripts/run_tests.sh
# counts them.

set(QVL_TEST_ENVIRONMENT
  ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1
  UBSAN_OPTIONS=print_stacktrace=1
)

# qvl_test(name sources...): a GoogleTest program and its one ctest entry; nothing without sources.
function(qvl_test name)
  if(NOT ARGN)
    return()
  endif()
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE test_support)
  add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
  # One display has one focus, so programs that open windows on it take turns.
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "${QVL_TEST_ENVIRONMENT};GTEST_OUTPUT=xml:results/${name}.xml"
    RESOURCE_LOCK display
    TIMEOUT 300
  )
endfunction()

# qvl_script_test(name script): a shell script that is one test. It runs on the display, with
# QVL_BUILD_DIR naming the build folder.
function(qvl_script_test name script)
  add_test(NAME ${name}
    COMMAND ${PROJECT_SOURCE_DIR}/tools/with_display.sh ${script}
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
  )
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT QVL_BUILD_DIR=${PROJECT_BINARY_DIR}
    RESOURCE_LOCK display
    TIMEOUT 300
  )
endfunction()
