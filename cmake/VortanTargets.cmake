# How this project's own targets are compiled. Third-party code (JUCE) does not pass through here.

option(VORTAN_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

if(VORTAN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # For code that is not under test: a quarter of the compiler's time goes into these looks.
  set(vortan_sanitize_less -fno-sanitize=null,alignment,object-size,vptr)
endif()

# Both belong to clang; the presets of these names choose it.
option(VORTAN_FUZZ "Build the programs of fuzz/ with libFuzzer; goes with VORTAN_SANITIZE" OFF)
option(VORTAN_COVERAGE "Count which lines and branches of this project's own code the tests reach" OFF)
set(vortan_instruments)
if(VORTAN_FUZZ)
  # What is only there to drive the code that is fuzzed guides no fuzzer, and is faster without.
  list(APPEND vortan_instruments
    -gline-tables-only $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VORTAN_FUZZ_UNGUIDED>>>:-fsanitize=fuzzer-no-link>)
endif()
if(VORTAN_COVERAGE)
  list(APPEND vortan_instruments -fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

# A debugger shows the locals in the dev build. For a sanitizer's stack trace line tables are enough, and keep the
# programs small and quick to link. A little optimisation costs less time in the compiler than it saves in the tests
# that draw.
if(VORTAN_SANITIZE)
  set(vortan_debug_flags "-g1 -O1")
else()
  set(vortan_debug_flags "-g -Og")
endif()
foreach(language C CXX OBJCXX)
  set(CMAKE_${language}_FLAGS_DEBUG "${vortan_debug_flags}")
endforeach()

find_program(VORTAN_LLD ld.lld)
if(VORTAN_LLD AND NOT APPLE)
  add_link_options(-fuse-ld=lld)
endif()

# The cache is shared by all checkouts of one machine, so paths inside the project do not count. Precompiled
# headers need the two kinds of leniency.
find_program(VORTAN_CCACHE ccache)
if(VORTAN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VORTAN_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
endif()

# With a compiler that has not been tried here, warnings do not keep the bundle from being built.
option(VORTAN_WARNINGS_ARE_ERRORS "Stop at the first warning of the compiler in this project's sources" OFF)
add_library(vortan-warnings INTERFACE)
# Among sources that are compiled together two warnings mean nothing; the other compiler's build has each by itself.
set(vortan_is_together $<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>)
target_compile_options(vortan-warnings INTERFACE -Wall -Wextra $<$<NOT:${vortan_is_together}>:-Wshadow> -Wconversion
  $<$<AND:$<COMPILE_LANGUAGE:CXX>,${vortan_is_together}>:-Wno-subobject-linkage> ${vortan_instruments})
if(VORTAN_WARNINGS_ARE_ERRORS)
  target_compile_options(vortan-warnings INTERFACE -Werror)
endif()

# vortan_build_for_proof(): what proves the product is not what users get. In this folder and below it is
# compiled for the shortest time of compiling and running together.
macro(vortan_build_for_proof)
  foreach(language C CXX OBJCXX)
    string(REPLACE "-O3" "-O1" CMAKE_${language}_FLAGS_RELEASE "${CMAKE_${language}_FLAGS_RELEASE}")
  endforeach()
endmacro()

# Half of the compiler's time goes into headers that it has read before. The other compiler builds without what follows,
# so that a forgotten include shows.
option(VORTAN_READ_HEADERS_ONCE "Precompile headers, and compile sources of the stand-in and the tests together" ON)
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(VORTAN_READ_HEADERS_ONCE OFF)
endif()

# vortan_compile_together(): in this folder and below, several sources of a target are one to the compiler; so the names
# that they keep to themselves must differ. The product is compiled as users get it.
macro(vortan_compile_together)
  if(VORTAN_READ_HEADERS_ONCE)
    set(CMAKE_UNITY_BUILD ON)
  endif()
endmacro()

# vortan_precompile(TARGET HEADERS header...) or vortan_precompile(TARGET AS other): the headers that the target's
# sources share, or those of another target that is compiled with the same options.
function(vortan_precompile target)
  cmake_parse_arguments(ARG "" "AS" "HEADERS" ${ARGN})
  if(NOT VORTAN_READ_HEADERS_ONCE)
    return()
  endif()
  if(ARG_AS)
    target_precompile_headers(${target} REUSE_FROM ${ARG_AS})
  else()
    target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
  endif()
  # The compiler's cache asks for it.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()

# vortan_library(NAME [OBJECT] SOURCES...): a static library, or the bare objects, whose headers are included by their
# path from the root.
function(vortan_library name)
  cmake_parse_arguments(ARG "OBJECT" "" "" ${ARGN})
  if(ARG_OBJECT)
    add_library(${name} OBJECT ${ARG_UNPARSED_ARGUMENTS})
  else()
    add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
  endif()
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vortan-warnings)
endfunction()

# vortan_program(NAME SOURCES...): an executable of ours.
function(vortan_program name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vortan-warnings)
endfunction()
