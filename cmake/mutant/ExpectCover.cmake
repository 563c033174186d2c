# Compares the checks that STANDIN lists for its COMMAND, `check` if none is given, with those of the file COVERED, one
# id a line.
cmake_minimum_required(VERSION 3.25)
if(NOT DEFINED COMMAND)
  set(COMMAND check)
endif()

execute_process(COMMAND ${STANDIN} ${COMMAND} --list OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(^|\n)[a-z0-9-]+" listed "${output}")
list(TRANSFORM listed STRIP)
file(STRINGS ${COVERED} covered)

list(LENGTH listed count)
if(count LESS 10)
  message(FATAL_ERROR "no list of checks: ${output}")
endif()
set(bare ${listed})
list(REMOVE_ITEM bare ${covered})
set(unknown ${covered})
list(REMOVE_ITEM unknown ${listed})
if(bare OR unknown)
  message(FATAL_ERROR "checks without a mutant: ${bare}\nmutants of checks that there are not: ${unknown}")
endif()
message("${count} checks, each with a mutant")
