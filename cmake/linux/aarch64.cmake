# Linux for 64-bit ARM processors, where a plain char has no sign.
set(machine aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/machine.cmake)
