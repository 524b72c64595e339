# The programs of this project that run while it is built: <name>_tool is the target of each. A build for another system
# takes them from one for this machine, since what they make is the same everywhere, unless its own run here, too.
if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
  set(INKSTONE_NATIVE_BUILD ${PROJECT_SOURCE_DIR}/build/release CACHE PATH "A build for this machine, whose tools are used")
  foreach(program IN ITEMS tools/ink/ink demo/content/paint/paint_content demo/content/people/paint_people
      demo/content/sound/make_sounds)
    get_filename_component(tool ${program} NAME)
    if(NOT EXISTS ${INKSTONE_NATIVE_BUILD}/${program})
      message(FATAL_ERROR "The content of the demo and the examples is made by ${INKSTONE_NATIVE_BUILD}/${program}, which "
        "is not there. Build it first: cmake --preset release && cmake --build --preset release --target ink paint_content paint_people make_sounds")
    endif()
    add_executable(native_${tool} IMPORTED GLOBAL)
    set_target_properties(native_${tool} PROPERTIES IMPORTED_LOCATION ${INKSTONE_NATIVE_BUILD}/${program})
    set(${tool}_tool native_${tool})
  endforeach()
else()
  set(ink_tool ink)
  set(paint_content_tool paint_content)
  set(paint_people_tool paint_people)
  set(make_sounds_tool make_sounds)
endif()
