# How this project's own targets are compiled. Third-party code (JUCE) does not pass through here.

option(VORTAN_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

if(VORTAN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Line tables are enough for a stack trace, and keep the debug builds small and quick to link.
set(CMAKE_C_FLAGS_DEBUG "-g1")
set(CMAKE_CXX_FLAGS_DEBUG "-g1")
set(CMAKE_OBJCXX_FLAGS_DEBUG "-g1")

find_program(VORTAN_LLD ld.lld)
if(VORTAN_LLD AND NOT APPLE)
  add_link_options(-fuse-ld=lld)
endif()

find_program(VORTAN_CCACHE ccache)
if(VORTAN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VORTAN_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${VORTAN_CCACHE})
endif()

add_library(vortan-warnings INTERFACE)
target_compile_options(vortan-warnings INTERFACE -Wall -Wextra -Wshadow -Wconversion -Werror)

# vortan_library(NAME SOURCES...): a static library whose headers are included by their path from the root.
function(vortan_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vortan-warnings)
endfunction()

# vortan_program(NAME SOURCES...): an executable of ours.
function(vortan_program name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vortan-warnings)
endfunction()
