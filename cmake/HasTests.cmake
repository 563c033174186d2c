# Fails if PROGRAM, a test program, has no test: CTest would not miss it.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
if(NOT output MATCHES "\n  [A-Za-z0-9_]")
  message(FATAL_ERROR "${PROGRAM} has no test")
endif()
