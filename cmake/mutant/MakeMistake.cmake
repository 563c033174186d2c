# Copies ORIGINAL to COPY with the text of WORK/was.txt, which stands there exactly once, replaced by that of
# WORK/is.txt.
cmake_minimum_required(VERSION 3.25)

file(READ ${ORIGINAL} source)
file(READ ${WORK}/was.txt was)
file(READ ${WORK}/is.txt is)

string(FIND "${source}" "${was}" first)
string(FIND "${source}" "${was}" last REVERSE)
if(was STREQUAL "" OR first EQUAL -1)
  message(FATAL_ERROR "${ORIGINAL} does not hold the text that the mistake replaces:\n${was}")
endif()
if(NOT first EQUAL last)
  message(FATAL_ERROR "${ORIGINAL} holds more than once the text that the mistake replaces:\n${was}")
endif()

string(REPLACE "${was}" "${is}" source "${source}")
file(WRITE ${COPY} "${source}")
