# Known-bad bundles. A mutant is the bundle with one mistake in one of its sources, and a test that the stand-in's check
# of that kind of mistake finds it. Each costs one compilation and one link. VortanChecks.cmake says where they come from.

set(vortan_mutant_scripts ${CMAKE_CURRENT_LIST_DIR}/mutant)
set(vortan_mutant_folder ${CMAKE_BINARY_DIR}/mutants)

# vortan_mutant(CHECK): the known-bad bundle of this check, and the test that the check finds its mistake.
function(vortan_mutant check)
  foreach(field NAME SOURCE WAS IS EXPORTS FOUND)
    vortan_check_field(${check} ${field})
  endforeach()
  vortan_further_mutant(${check} ${NAME} ${SOURCE}
    WAS "${WAS}" IS "${IS}" FOUND "${FOUND}" EXPORTS "${EXPORTS}")
endfunction()

# vortan_further_mutant(CHECK name source WAS text IS text FOUND text [EXPORTS function]): one more that the check has to
# fail, in the words of vortan_check.
function(vortan_further_mutant check name source)
  cmake_parse_arguments(PARSE_ARGV 3 ROW "" "WAS;IS;FOUND;EXPORTS" "")
  vortan_mutant_source(${name} ${source} "${ROW_WAS}" "${ROW_IS}" copy)
  vortan_mutant_bundle(mutant-${name} ${name} ${copy} ${ROW_EXPORTS})
  vortan_finds_mistake(mutant.${name} check mutant-${name} ${check} "${ROW_FOUND}")
endfunction()

# vortan_finds_mistake(TEST COMMAND TARGET CHECK FOUND): the check of `standin COMMAND` fails the target and says this.
function(vortan_finds_mistake test command target check found)
  add_test(NAME ${test}
    COMMAND ${CMAKE_COMMAND} -D STANDIN=$<TARGET_FILE:standin> -D COMMAND=${command}
      -D MUTANT=$<TARGET_FILE:${target}> -D CHECK=${check} -D FOUND=${found}
      -P ${vortan_mutant_scripts}/ExpectFailure.cmake)
  set_tests_properties(${test} PROPERTIES TIMEOUT 200 LABELS mutants)
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

# A test that a mistake is only made where its text stands once.
function(vortan_mutants_must_fit)
  add_test(NAME mutants.mistake-must-fit
    COMMAND ${CMAKE_COMMAND} -D WORK=${CMAKE_CURRENT_BINARY_DIR}/mistake-must-fit
      -D SCRIPTS=${vortan_mutant_scripts} -P ${vortan_mutant_scripts}/MistakeMustFit.cmake)
  set_tests_properties(mutants.mistake-must-fit PROPERTIES LABELS mutants)
endfunction()
