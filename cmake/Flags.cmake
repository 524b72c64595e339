# Compiler flags that every target of the project shares, as two interface targets: inkstone_warnings for all code,
# inkstone_sanitizers for a build that looks for undefined behaviour and bad memory accesses.
add_library(inkstone_warnings INTERFACE)
if(NOT MSVC)
  target_compile_options(inkstone_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>)
  # GCC 12 sees overlapping copies in the concatenation of any two strings.
  target_compile_options(inkstone_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  if(INKSTONE_WERROR)
    target_compile_options(inkstone_warnings INTERFACE -Werror)
  endif()
endif()

add_library(inkstone_sanitizers INTERFACE)
if(INKSTONE_SANITIZE)
  set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(inkstone_sanitizers INTERFACE ${flags})
  target_link_options(inkstone_sanitizers INTERFACE ${flags})
endif()

add_library(inkstone_flags INTERFACE)
target_link_libraries(inkstone_flags INTERFACE inkstone_warnings inkstone_sanitizers)

if(WIN32)
  target_compile_definitions(inkstone_warnings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
