# The stand-in's checks as rows: what a check is called and says, what runs it, and what is known to fail it. The table
# that is compiled into `standin`, the known-bad bundles and effects, and their tests are made from the rows.

# vortan_check(ID SENTENCE RUNS function [SCREEN] | PLAYS scenario  [MINUTES number]
#              MUTANT name source WAS text IS text FOUND text [EXPORTS function])
#   SENTENCE  what holds of a bundle that passes
#   RUNS      the function of namespace standin::check::bundles; with SCREEN it needs an X server
#   PLAYS     the file of tests/scenarios/, without its ending, that the check plays instead
#   MINUTES   how long it may take, 1 if nothing is said
#   MUTANT    the bundle with one mistake, in this source of the product, that the check has to fail
#   WAS, IS   the text that stands once in the source, whatever its spaces and line breaks, and what takes its place
#   FOUND     what the failed check has to say; a bundle that does not even load says something else
#   EXPORTS   what the bundle exports beside its entry points
function(vortan_check id sentence)
  cmake_parse_arguments(PARSE_ARGV 2 ROW "SCREEN" "RUNS;PLAYS;MINUTES;WAS;IS;FOUND;EXPORTS" "MUTANT")
  list(LENGTH ROW_MUTANT words)
  if(ROW_UNPARSED_ARGUMENTS OR NOT words EQUAL 2 OR NOT ROW_WAS OR NOT ROW_FOUND)
    message(FATAL_ERROR "the row of the check ${id} lacks its known-bad bundle: ${ROW_UNPARSED_ARGUMENTS}")
  endif()
  list(GET ROW_MUTANT 0 ROW_NAME)
  list(GET ROW_MUTANT 1 ROW_SOURCE)
  vortan_check_row(BUNDLE NAME SOURCE WAS IS EXPORTS)
endfunction()

# vortan_effect_check(ID SENTENCE RUNS function BAD mistake text [mistake text...])
#   RUNS  the function of namespace standin::check::effects
#   BAD   a mistake of tests/sdk/bad/BadEffect.cpp, and what the check has to say of the effect that makes it
function(vortan_effect_check id sentence)
  cmake_parse_arguments(PARSE_ARGV 2 ROW "" "RUNS" "BAD")
  if(ROW_UNPARSED_ARGUMENTS OR NOT ROW_BAD)
    message(FATAL_ERROR "the row of the check ${id} lacks its known-bad effect: ${ROW_UNPARSED_ARGUMENTS}")
  endif()
  vortan_check_row(EFFECT BAD)
endfunction()

# Keeps the row of the function that calls it: what all rows have, and these fields.
macro(vortan_check_row kind)
  get_property(all GLOBAL PROPERTY VORTAN_${kind}_CHECKS)
  if(id IN_LIST all)
    message(FATAL_ERROR "the check ${id} has two rows")
  endif()
  if("${ROW_RUNS}${ROW_PLAYS}" STREQUAL "")
    message(FATAL_ERROR "nothing runs the check ${id}")
  endif()
  set(ROW_SENTENCE "${sentence}")
  foreach(field SENTENCE SCREEN RUNS PLAYS MINUTES FOUND ${ARGN})
    set_property(GLOBAL PROPERTY VORTAN_${id}_${field} "${ROW_${field}}")
  endforeach()
  set_property(GLOBAL APPEND PROPERTY VORTAN_${kind}_CHECKS ${id})
endmacro()

# vortan_check_field(ID FIELD): the field, in a variable of that name.
macro(vortan_check_field id field)
  get_property(${field} GLOBAL PROPERTY VORTAN_${id}_${field})
endmacro()

# vortan_check_table(KIND NAMESPACE RESULT): a source that defines NAMESPACE::Table() with the rows of this kind, those
# that need a screen left out where there is none. The scenarios that checks play are embedded in it.
function(vortan_check_table kind namespace result)
  get_property(ids GLOBAL PROPERTY VORTAN_${kind}_CHECKS)
  foreach(id IN LISTS ids)
    foreach(field SENTENCE SCREEN RUNS PLAYS MINUTES)
      vortan_check_field(${id} ${field})
    endforeach()
    if((SCREEN OR PLAYS) AND NOT VORTAN_STANDIN_SCREEN)
      continue()
    endif()
    set(run "&${RUNS}")
    if(PLAYS)
      set(file ${CMAKE_SOURCE_DIR}/tests/scenarios/${PLAYS}.scenario)
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
      file(READ ${file} text)
      set(run "[](Trial& trial) { PlayCheck(trial, \"${PLAYS}\", R\"scenario(${text})scenario\"); }")
    else()
      string(APPEND declarations "void ${RUNS}(Trial& trial);\n")
    endif()
    if(NOT MINUTES)
      set(MINUTES 1)
    endif()
    string(APPEND rows "{\"${id}\", \"${SENTENCE}\", ${run}, std::chrono::minutes(${MINUTES})},\n")
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${namespace}Table.cpp @ONLY CONTENT [[
#include "standin/check/Check.h"
#include "standin/check/PlayedCheck.h"

namespace standin::check::@namespace@
{
@declarations@
std::vector<Check> Table()
{
    return {@rows@};
}
} // namespace standin::check::@namespace@
]])
  set(${result} ${CMAKE_CURRENT_BINARY_DIR}/${namespace}Table.cpp PARENT_SCOPE)
endfunction()
