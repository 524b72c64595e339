# Linux for IBM Z, where numbers begin with their highest byte and a plain char has no sign.
set(machine s390x)
include(${CMAKE_CURRENT_LIST_DIR}/machine.cmake)
