# Has STANDIN judge MUTANT by one CHECK of its COMMAND. The check has to fail and to give FOUND as a reason.
cmake_minimum_required(VERSION 3.25)

execute_process(
  COMMAND ${STANDIN} ${COMMAND} ${MUTANT} --only ${CHECK}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE errors)
message("${output}${errors}")

if(NOT result STREQUAL "1")
  message(FATAL_ERROR "standin ${COMMAND} ended with ${result}, and a check that fails gives 1")
endif()
string(FIND "${output}" "${FOUND}" place)
if(place EQUAL -1)
  message(FATAL_ERROR "the check has failed, and does not say: ${FOUND}")
endif()
if(NOT output MATCHES "0 passed, 1 failed\n$")
  message(FATAL_ERROR "the last line is not: 0 passed, 1 failed")
endif()
