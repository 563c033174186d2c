# PROGRAM, an abi-check, has to say what the regular expression LINE matches, and to end as its last line says.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${PROGRAM} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
message("${output}")

if(NOT output MATCHES "${LINE}")
  message(FATAL_ERROR "it does not say: ${LINE}")
endif()
set(expected 1)
if(output MATCHES " compared, 0 different\n$")
  set(expected 0)
endif()
if(NOT result STREQUAL expected)
  message(FATAL_ERROR "it ended with ${result} and should have ended with ${expected}")
endif()
