# Has STANDIN judge MUTANT by one CHECK of its COMMAND, `check` if none is given. The check has to fail and to give
# SAYS as a reason.
cmake_minimum_required(VERSION 3.25)
if(NOT DEFINED COMMAND)
  set(COMMAND check)
endif()

execute_process(
  COMMAND ${STANDIN} ${COMMAND} ${MUTANT} --only ${CHECK}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors)
message("${output}${errors}")

if(NOT result STREQUAL "1")
  message(FATAL_ERROR "standin ${COMMAND} ended with ${result}, and a check that fails gives 1")
endif()
string(FIND "${output}" "${SAYS}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "the check has failed, and does not say: ${SAYS}")
endif()
if(NOT output MATCHES "0 passed, 1 failed\n$")
  message(FATAL_ERROR "the last line is not: 0 passed, 1 failed")
endif()
