# Windows for 64-bit processors.
set(mingw_processor x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
