# Sources are listed by hand, and a file of tests that no list names is missed by nobody else.

# vortan_no_test_is_forgotten(PROGRAM...): each file of tests below the current folder is compiled into one of the
# programs.
function(vortan_no_test_is_forgotten)
  set(compiled)
  foreach(program IN LISTS ARGN)
    get_target_property(folder ${program} SOURCE_DIR)
    get_target_property(sources ${program} SOURCES)
    foreach(source IN LISTS sources)
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder} NORMALIZE)
      list(APPEND compiled ${source})
    endforeach()
  endforeach()
  file(GLOB_RECURSE written CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  list(REMOVE_ITEM written ${compiled})
  if(written)
    list(JOIN written "\n  " forgotten)
    message(FATAL_ERROR "no program of tests is built from\n  ${forgotten}")
  endif()
endfunction()
