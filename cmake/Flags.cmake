# Compiler flags that every target of the project shares, as interface targets: inkstone_warnings for all code,
# inkstone_arithmetic for the same results everywhere, inkstone_sanitizers for a build that looks for undefined behaviour
# and bad memory accesses, inkstone_coverage for one that counts what has run. Beside them inkstone_seldom_run for code
# that is built more often than it runs.
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

# Arithmetic that decides pixels and samples is rounded after every operation, to the precision of its type: no fused
# multiplications and additions, which compilers for other processors make by themselves, and on 32-bit x86 no registers
# of 80 bits.
add_library(inkstone_arithmetic INTERFACE)
if(NOT MSVC)
  target_compile_options(inkstone_arithmetic INTERFACE -ffp-contract=off)
  include(CheckCSourceCompiles)
  check_c_source_compiles("
    #if !defined(__i386__)
    #error
    #endif
    int main(void) { return 0; }" INKSTONE_X86_32)
  if(INKSTONE_X86_32)
    target_compile_options(inkstone_arithmetic INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

add_library(inkstone_sanitizers INTERFACE)
if(INKSTONE_SANITIZE)
  set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(inkstone_sanitizers INTERFACE ${flags})
  target_link_options(inkstone_sanitizers INTERFACE ${flags})
endif()

# Clang's counters in the source's own regions, so that lines and branches are told apart whatever was optimised. Lightly
# optimised: the tests time themselves out otherwise. Counters that can be relocated lie in the file of counts itself, so
# that a process which ends without its exit handlers is counted, too.
add_library(inkstone_coverage INTERFACE)
if(INKSTONE_COVERAGE)
  target_compile_options(inkstone_coverage INTERFACE -O1 -fprofile-instr-generate -fcoverage-mapping
    "SHELL:-mllvm -runtime-counter-relocation")
  target_link_options(inkstone_coverage INTERFACE -fprofile-instr-generate)
endif()

add_library(inkstone_flags INTERFACE)
target_link_libraries(inkstone_flags
  INTERFACE inkstone_warnings inkstone_arithmetic inkstone_sanitizers inkstone_coverage)

# Where a file's sizes have 32 bits by default, one of 2 GiB cannot even be opened.
if(UNIX AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  target_compile_definitions(inkstone_flags INTERFACE _FILE_OFFSET_BITS=64)
endif()

# What spends its own time on nothing that counts, such as tests and the reading of a command line, is long in the
# optimiser's hands all the same: most of what a build costs is that, and the reading of large headers. A compiler cache
# serves all files again, but none that takes a precompiled header.
add_library(inkstone_seldom_run INTERFACE)
if(NOT MSVC)
  # At this level GCC 12 sees copies beyond the end in the concatenation of strings, too.
  target_compile_options(inkstone_seldom_run INTERFACE $<$<CONFIG:Release,RelWithDebInfo>:-O1>
    "$<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-stringop-overflow>")
endif()
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

if(WIN32)
  target_compile_definitions(inkstone_warnings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
