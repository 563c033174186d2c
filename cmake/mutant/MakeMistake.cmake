# Copies ORIGINAL to COPY with the text of WORK/was.txt, which stands there exactly once, replaced by that of
# WORK/is.txt. Spaces and line breaks do not count.
cmake_minimum_required(VERSION 3.25)

# A copy of a header would never be compiled, and the bundle would be sound.
if(NOT ORIGINAL MATCHES "\\.cpp$")
  message(FATAL_ERROR "${ORIGINAL} is not compiled by itself; the mistake has to be made in a source")
endif()
file(READ ${ORIGINAL} source)
file(READ ${WORK}/was.txt was)
file(READ ${WORK}/is.txt is)

# The text without its blanks, as a pattern that lets blanks stand anywhere.
string(REGEX REPLACE "[ \t\n]+" "" pattern "${was}")
string(REGEX REPLACE "([][\\^$.|()*+?])" "\\\\\\1" pattern "${pattern}")
string(REGEX REPLACE "(\\\\?.)" "\\1[ \t\n]*" pattern "${pattern}")
string(REGEX REPLACE "\\[ \t\n\\]\\*$" "" pattern "${pattern}") # The blanks after it are not its own.
if(pattern STREQUAL "" OR NOT source MATCHES "${pattern}")
  message(FATAL_ERROR "${ORIGINAL} does not hold the text that the mistake replaces:\n${was}")
endif()
set(found "${CMAKE_MATCH_0}")
string(FIND "${source}" "${found}" first)
string(LENGTH "${found}" length)
math(EXPR end "${first} + ${length}")
string(SUBSTRING "${source}" 0 ${first} before)
string(SUBSTRING "${source}" ${end} -1 after)
if(after MATCHES "${pattern}")
  message(FATAL_ERROR "${ORIGINAL} holds more than once the text that the mistake replaces:\n${was}")
endif()
file(WRITE ${COPY} "${before}${is}${after}")
