# Builds the bundle for both of Apple's architectures, by the targets and with the options that a Mac has for it. What
# comes out does not load: JUCE is declared in it and not defined. The parameters are those of ForMacos.cmake, and
#   JUCE          the folder that holds JUCE's modules
#   BUILD         the folder to build in
#   ALSO_BUILT    the compile_commands.json of a build for this system
include(${CMAKE_CURRENT_LIST_DIR}/ForMacos.cmake)

# JUCE's headers as they are, and in the place of each of its sources for macOS an empty one.
function(make_juce_of_headers folder)
  file(GLOB modules ${JUCE}/modules/juce_*)
  foreach(module ${modules})
    cmake_path(GET module FILENAME name)
    file(MAKE_DIRECTORY ${folder}/modules/${name})
    file(GLOB entries ${module}/*)
    foreach(entry ${entries})
      cmake_path(GET entry FILENAME file)
      # The later generation of JUCE keeps some of a module in sources beside its main one.
      if(NOT file MATCHES "^${name}(\\.mm|_.*\\.(c|cpp))$")
        link(${entry} ${folder}/modules/${name}/${file})
      elseif(NOT EXISTS ${folder}/modules/${name}/${file})
        file(WRITE ${folder}/modules/${name}/${file} "/* JUCE's own source needs all of Apple's SDK. */\n")
      endif()
    endforeach()
  endforeach()
endfunction()

# sources_in(DATABASE RESULT): the files of the project that a compile_commands.json names, by their paths from its root.
function(sources_in database result)
  file(STRINGS ${database} lines REGEX "^ *\"file\": ")
  list(TRANSFORM lines REPLACE "^ *\"file\": \"(.*)\",?$" "\\1")
  list(FILTER lines INCLUDE REGEX "^${SOURCE}/(host|effects|tree|panel)/")
  list(TRANSFORM lines REPLACE "^${SOURCE}/" "")
  list(REMOVE_DUPLICATES lines)
  set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# No source of the product is left out: what is not compiled for macOS is X11's, and compiled for this system.
function(demand_all_sources)
  file(GLOB_RECURSE sources RELATIVE ${SOURCE}
    ${SOURCE}/host/*.cpp ${SOURCE}/effects/*.cpp ${SOURCE}/tree/*.cpp ${SOURCE}/panel/*.cpp
    ${SOURCE}/host/*.mm ${SOURCE}/effects/*.mm ${SOURCE}/tree/*.mm ${SOURCE}/panel/*.mm)
  sources_in(${BUILD}/compile_commands.json built)
  sources_in(${ALSO_BUILT} built_here)
  foreach(source ${sources})
    if(NOT source IN_LIST built AND NOT (source MATCHES "[xX]11" AND source IN_LIST built_here))
      message(FATAL_ERROR "${source} is a source of the product that is not compiled for macOS")
    endif()
  endforeach()
endfunction()

make_juce_of_headers(${WORK}/juce)
configure_for_macos(${BUILD} ${WORK}/juce -DVORTAN_WARNINGS_ARE_ERRORS=ON)
execute_process(
  COMMAND ${CMAKE_COMMAND} --build ${BUILD} --target VortanObjectPanel VortanObjectPanel-tree
  RESULT_VARIABLE code)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "It does not build for macOS")
endif()
demand_all_sources()
