# Windows for 32-bit processors.
set(mingw_processor i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
