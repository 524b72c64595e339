# Linux for 32-bit x86 processors. Those of 64 bits run its programs by themselves, which its loader starts; what converts
# between character sets is loaded later, by the C library.
set(machine i686)
set(libraries i386-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/machine.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR env GCONV_PATH=${sysroot}/usr/lib/${libraries}/gconv ${sysroot}/lib/ld-linux.so.2 --inhibit-cache
  --library-path ${sysroot}/lib/${libraries}:${sysroot}/usr/lib/${libraries})
set(INKSTONE_EMULATOR_NAME_OPTION --argv0)
