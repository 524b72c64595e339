include(CMakePackageConfigHelpers)

install(TARGETS inkstone EXPORT inkstone-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/inkstone DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/inkstone)
install(EXPORT inkstone-targets NAMESPACE inkstone:: DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/inkstone-config.cmake.in
  ${PROJECT_BINARY_DIR}/inkstone-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/inkstone-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/inkstone-config.cmake ${PROJECT_BINARY_DIR}/inkstone-config-version.cmake
  DESTINATION ${package_dir})

# The prefix is told relative to the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/inkstone.pc.in ${PROJECT_BINARY_DIR}/inkstone.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/inkstone.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# For Windows, where nobody installs a library: a zip of everything that a game's author needs.
if(WIN32)
  install(FILES ${PROJECT_BINARY_DIR}/lib/inkstone.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION .)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/windows.md DESTINATION docs)
  if(INKSTONE_EXAMPLES)
    install(TARGETS board demo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/content DESTINATION ${CMAKE_INSTALL_BINDIR}
      FILES_MATCHING PATTERN GAME.BND PATTERN music.* PATTERN tour.rec)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/windows DESTINATION examples)
  endif()
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME inkstone-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR})
  include(CPack)
endif()
