# What an author does who has nothing but the installed kit and the stand-in: build the example, have it judged, and see
# it work with the panel. BUILD is this project's build, WORK a folder for the kit.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --component sdk --prefix ${WORK}
  COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
file(GLOB_RECURSE installed RELATIVE ${WORK} ${WORK}/*)
set(kit
  for-effect-authors.md
  sdk/VortanFamily.h
  sdk/VortanFamilyAnswers.c
  sdk/VortanFamilyAnswers.h
  sdk/VortanTryEffect.h
  sdk/example/CMakeLists.txt
  sdk/example/PulseEffector.c
  sdk/example/PulseEffector.scenario)
if(NOT installed STREQUAL kit)
  message(FATAL_ERROR "installed is\n  ${installed}\nand should be\n  ${kit}")
endif()

foreach(step
    "${CMAKE_COMMAND};-G;${GENERATOR};-S;sdk/example;-B;build"
    "${CMAKE_COMMAND};--build;build"
    "${STANDIN};check-effect;build/PulseEffector.so"
    "${STANDIN};play;--own-display;--bundle;${BUNDLE};--pictures;${WORK};build/PulseEffector.scenario")
  execute_process(COMMAND ${step} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
