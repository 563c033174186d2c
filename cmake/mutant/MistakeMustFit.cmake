# A mistake whose text is not in the source, or is there twice, is an error; one that fits is made. WORK is a
# folder for scratch files, SCRIPTS that of MakeMistake.cmake.
cmake_minimum_required(VERSION 3.25)

file(MAKE_DIRECTORY ${WORK})
file(WRITE ${WORK}/original.cpp "int a = f(x); // [1;2]\nint b = \"\\n\" ? 1 : 2;\nint c = 1;\n")

# make(WAS IS RESULT): the script's exit code.
function(make was is result)
  file(REMOVE ${WORK}/copy.cpp)
  file(WRITE ${WORK}/was.txt "${was}")
  file(WRITE ${WORK}/is.txt "${is}")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -D ORIGINAL=${WORK}/original.cpp -D WORK=${WORK} -D COPY=${WORK}/copy.cpp
      -P ${SCRIPTS}/MakeMistake.cmake
    RESULT_VARIABLE code OUTPUT_QUIET ERROR_VARIABLE errors)
  # CMake breaks the lines of its messages, and where depends on the folders' names.
  string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
  set(${result} ${code} PARENT_SCOPE)
  set(errors "${errors}" PARENT_SCOPE)
endfunction()

make("int d" "" code)
if(code EQUAL 0 OR EXISTS ${WORK}/copy.cpp OR NOT errors MATCHES "does not hold")
  message(FATAL_ERROR "a text that is not there was taken: ${errors}")
endif()
make("int " "" code)
if(code EQUAL 0 OR EXISTS ${WORK}/copy.cpp OR NOT errors MATCHES "more than once")
  message(FATAL_ERROR "a text that is there three times was taken: ${errors}")
endif()
make("" "x" code)
if(code EQUAL 0 OR EXISTS ${WORK}/copy.cpp)
  message(FATAL_ERROR "no text was taken")
endif()
make("f(x); // [1;2]\nint b" "g(); // [2;1]\nint b" code)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "a text that fits was refused: ${errors}")
endif()
file(READ ${WORK}/copy.cpp copy)
if(NOT copy STREQUAL "int a = g(); // [2;1]\nint b = \"\\n\" ? 1 : 2;\nint c = 1;\n")
  message(FATAL_ERROR "the copy is not the original with the mistake: ${copy}")
endif()
