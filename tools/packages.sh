# Sourced: the distribution's packages that the project needs.

# To build, to run what was built, and to test.
build_packages=(
  build-essential
  cmake
  ninja-build
  g++-mingw-w64-x86-64-posix
  googletest
  wine64
  xvfb
  xdotool
  imagemagick
)

# For `make format` and `make lint` only.
lint_packages=(
  clang-format
  clang-tidy
)

# For `make fuzz` only.
fuzz_packages=(
  clang
  libclang-rt-14-dev
)

# For `make coverage` only.
coverage_packages=(
  gcovr
)
