# One name, one meaning. The linker looks for types and functions that are defined twice in different ways, which
# needs the compiler's intermediate code: the libraries of vortan_odr_test() carry it beside their machine code, where
# the compiler is GCC and the build is the release.

function(vortan_odr_test name)
  if(NOT BUILD_TESTING OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    return()
  endif()
  set(files)
  foreach(library IN LISTS ARGN)
    target_compile_options(${library} PRIVATE -flto -ffat-lto-objects)
    list(APPEND files $<TARGET_FILE:${library}>)
  endforeach()
  # Whatever the libraries need of others stays open. The other linker knows nothing of GCC's intermediate code.
  add_test(NAME odr.${name}
    COMMAND ${CMAKE_CXX_COMPILER} -shared -fuse-ld=bfd -flto=2 -Wodr -Werror=odr -Werror=lto-type-mismatch
      -Wl,--whole-archive ${files} -Wl,--no-whole-archive -Wl,--unresolved-symbols=ignore-all -o ${CMAKE_BINARY_DIR}/odr-${name}.so)
  set_tests_properties(odr.${name} PROPERTIES TIMEOUT 300 LABELS programs)
endfunction()
