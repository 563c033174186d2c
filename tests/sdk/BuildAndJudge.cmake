# Builds the example of the kit in folder SDK with COMPILER as STANDARD with WARNINGS, and the headers by themselves. Has
# STANDIN judge what comes out. WORK is a folder for scratch files.
cmake_minimum_required(VERSION 3.25)

string(REGEX MATCH "^c(\\+\\+)?" language ${STANDARD})
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(compile ${COMPILER} -x ${language} -std=${STANDARD} -O2 -fPIC ${WARNINGS} -I ${SDK})

execute_process(
  COMMAND ${compile} -shared -o ${WORK}/PulseEffector.so ${SDK}/example/PulseEffector.c ${SDK}/VortanFamilyAnswers.c
  COMMAND_ERROR_IS_FATAL ANY)

# An author may be stricter still where the headers are all that is included.
set(stricter)
if(language STREQUAL "c++")
  set(stricter -Wold-style-cast)
endif()
foreach(header VortanFamily.h VortanFamilyAnswers.h VortanTryEffect.h)
  file(WRITE ${WORK}/alone.c "#include \"${header}\"\n#include \"${header}\"\nint unused_name;\n")
  execute_process(COMMAND ${compile} ${stricter} -fsyntax-only ${WORK}/alone.c COMMAND_ERROR_IS_FATAL ANY)
endforeach()

execute_process(COMMAND ${STANDIN} check-effect ${WORK}/PulseEffector.so COMMAND_ERROR_IS_FATAL ANY)
