# Language, output folders and code generation for every target, third-party ones included.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The platform looks for libraries beside the program first.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

set(QVL_SANITIZE "" CACHE STRING "Comma-separated sanitizers for every target, linux builds only")
option(QVL_COVERAGE "Instrument every target for coverage, linux builds only" OFF)

# Images contain no path of the build machine. The compiler tries the last map first, and the build
# folder may be inside the source folder.
add_compile_options(
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
  -ffile-prefix-map=${PROJECT_BINARY_DIR}=build
)

if(QVL_SANITIZE)
  add_compile_options(
    -fsanitize=${QVL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
  )
  add_link_options(-fsanitize=${QVL_SANITIZE})
endif()

if(QVL_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

if(WIN32)
  enable_language(RC)
  # -static links the compiler's runtime and winpthread into each image; system libraries stay
  # imports. Without a timestamp the same sources give the same bytes.
  add_link_options(
    -static
    -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va
    -Wl,--no-insert-timestamp
  )
endif()
