# Another FLIC decoder to compare with, libavcodec's, and the files around it as libavformat reads them, where their
# development files are installed. What links this target has HAS_FLIC_PEER defined then. Those of the build machine
# serve no other system.
add_library(inkstone_flic_peer INTERFACE)
if(NOT CMAKE_CROSSCOMPILING)
  find_package(PkgConfig)
endif()
if(PkgConfig_FOUND)
  pkg_check_modules(LIBAV IMPORTED_TARGET libavformat libavcodec libavutil)
endif()
if(LIBAV_FOUND)
  target_link_libraries(inkstone_flic_peer INTERFACE PkgConfig::LIBAV)
  target_compile_definitions(inkstone_flic_peer INTERFACE HAS_FLIC_PEER)
endif()
