# Known-bad bundles. A mutant is the bundle with one mistake in one of its sources, and a test that the
# stand-in's check of that kind of mistake finds it. Each costs one compilation and one link.

set(vortan_mutant_scripts ${CMAKE_CURRENT_LIST_DIR}/mutant)
set(vortan_mutant_folder ${CMAKE_BINARY_DIR}/mutants)

# vortan_mutant(NAME CHECK id SOURCE file WAS text IS text SAYS text [EXPORTS function...])
#   CHECK   the check that has to fail
#   SOURCE  the product's file, from the root of the project
#   WAS     stands exactly once in that file; anything else is an error of the build
#   IS      takes its place
#   SAYS    what the failed check has to say; a bundle that does not even load says something else
#   EXPORTS what the bundle exports beside its entry points
function(vortan_mutant name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "CHECK;SOURCE;WAS;IS;SAYS" "EXPORTS")
  vortan_mutant_source(${name} ${ARG_SOURCE} "${ARG_WAS}" "${ARG_IS}" source)
  vortan_mutant_bundle(mutant-${name} ${name} ${source} ${ARG_EXPORTS})
  vortan_mutant_test(${name} ${ARG_CHECK} "${ARG_SAYS}")
  set_property(GLOBAL APPEND PROPERTY VORTAN_CHECKS_WITH_MUTANT ${ARG_CHECK})
endfunction()

# The copy of the source that has the mistake.
function(vortan_mutant_source name original was is result)
  set(work ${CMAKE_CURRENT_BINARY_DIR}/${name})
  set(original ${CMAKE_SOURCE_DIR}/${original})
  cmake_path(GET original FILENAME file)
  file(CONFIGURE OUTPUT ${work}/was.txt CONTENT "@was@" @ONLY)
  file(CONFIGURE OUTPUT ${work}/is.txt CONTENT "@is@" @ONLY)
  add_custom_command(OUTPUT ${work}/${file}
    COMMAND ${CMAKE_COMMAND} -D ORIGINAL=${original} -D WORK=${work} -D COPY=${work}/${file}
      -P ${vortan_mutant_scripts}/MakeMistake.cmake
    DEPENDS ${original} ${work}/was.txt ${work}/is.txt ${vortan_mutant_scripts}/MakeMistake.cmake
    COMMENT "Making the mistake ${name}"
    VERBATIM)
  set(${result} ${work}/${file} PARENT_SCOPE)
endfunction()

# The object with the mistake stands before the libraries, so that the linker takes from them what it still
# needs, and that is everything but the object's original.
function(vortan_mutant_bundle target name source)
  add_library(${target} MODULE ${source})
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR})
  target_compile_options(${target} PRIVATE -w)
  target_link_libraries(${target} PRIVATE host effects panel panel-platform tree juce)
  vortan_export_lists(${CMAKE_CURRENT_BINARY_DIR}/${name} EffectorAEGP PanelEntryPointFunc ${ARGN})
  target_link_options(${target} PRIVATE
    -Wl,--undefined=EffectorAEGP -Wl,--undefined=PanelEntryPointFunc -Wl,--gc-sections
    -Wl,--version-script=${CMAKE_CURRENT_BINARY_DIR}/${name}/exports.map)
  set_target_properties(${target} PROPERTIES
    PREFIX "" OUTPUT_NAME ${name} LIBRARY_OUTPUT_DIRECTORY ${vortan_mutant_folder})
endfunction()

function(vortan_mutant_test name check says)
  add_test(NAME mutant.${name}
    COMMAND ${CMAKE_COMMAND} -D STANDIN=$<TARGET_FILE:standin> -D MUTANT=$<TARGET_FILE:mutant-${name}>
      -D CHECK=${check} -D SAYS=${says} -P ${vortan_mutant_scripts}/ExpectFailure.cmake)
  set_tests_properties(mutant.${name} PROPERTIES TIMEOUT 200 LABELS mutants)
endfunction()

# A test that a mistake is only made where its text stands once.
function(vortan_mutants_must_fit)
  add_test(NAME mutants.mistake-must-fit
    COMMAND ${CMAKE_COMMAND} -D WORK=${CMAKE_CURRENT_BINARY_DIR}/mistake-must-fit
      -D SCRIPTS=${vortan_mutant_scripts} -P ${vortan_mutant_scripts}/MistakeMustFit.cmake)
  set_tests_properties(mutants.mistake-must-fit PROPERTIES LABELS mutants)
endfunction()

# A test that every check of the program has a mutant, and that no mutant is for a check that there is not.
function(vortan_mutants_cover_checks)
  get_property(checks GLOBAL PROPERTY VORTAN_CHECKS_WITH_MUTANT)
  list(REMOVE_DUPLICATES checks)
  list(JOIN checks "\n" lines)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/checks-with-mutant.txt)
  file(CONFIGURE OUTPUT ${file} CONTENT "@lines@\n" @ONLY)
  add_test(NAME mutants.cover-every-check
    COMMAND ${CMAKE_COMMAND} -D STANDIN=$<TARGET_FILE:standin> -D COVERED=${file}
      -P ${vortan_mutant_scripts}/ExpectCover.cmake)
  set_tests_properties(mutants.cover-every-check PROPERTIES LABELS mutants)
endfunction()
