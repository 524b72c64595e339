# CLI11, whose headers serve every system. They are reached through a directory of their own, for beside them lie those
# of the build machine's C library.
set(CLI11_INCLUDE ${CMAKE_BINARY_DIR}/packages/CLI11)
find_path(CLI11_HEADERS CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CLI11 REQUIRED_VARS CLI11_HEADERS)
if(CLI11_FOUND AND NOT TARGET CLI11::CLI11)
  file(MAKE_DIRECTORY ${CLI11_INCLUDE})
  file(CREATE_LINK ${CLI11_HEADERS}/CLI ${CLI11_INCLUDE}/CLI SYMBOLIC)
  add_library(CLI11::CLI11 INTERFACE IMPORTED)
  target_include_directories(CLI11::CLI11 SYSTEM INTERFACE ${CLI11_INCLUDE})
endif()
