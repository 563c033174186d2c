# Objective-C++, without ARC, for the sources that use AppKit.
#
# On macOS they are part of the bundle. Elsewhere clang compiles them against GNUstep's AppKit, so that
# they are built and driven on every machine that runs the tests. `appkit` is what such a target links.

if(NOT APPLE AND NOT CMAKE_OBJCXX_COMPILER)
  find_program(VORTAN_CLANGXX NAMES clang++ clang++-14 REQUIRED)
  set(CMAKE_OBJCXX_COMPILER ${VORTAN_CLANGXX})
endif()
set(CMAKE_OBJCXX_STANDARD 17)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_VISIBILITY_PRESET hidden)
set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
enable_language(OBJCXX)
# CMake keeps these for all languages in one place, and clang has just put its own there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(CMAKE_PCH_EXTENSION .gch)
  set(CMAKE_PCH_PROLOGUE "#pragma GCC system_header")
endif()

add_library(appkit INTERFACE)
if(APPLE)
  target_compile_options(appkit INTERFACE $<$<COMPILE_LANGUAGE:OBJCXX>:-fno-objc-arc>)
  target_link_libraries(appkit INTERFACE "-framework AppKit" "-framework Foundation")
  return()
endif()

find_path(VORTAN_GNUSTEP_INCLUDE AppKit/AppKit.h PATH_SUFFIXES GNUstep REQUIRED)
find_path(VORTAN_BLOCKS_INCLUDE Block.h REQUIRED)
find_library(VORTAN_GNUSTEP_GUI gnustep-gui REQUIRED)
find_library(VORTAN_GNUSTEP_BASE gnustep-base REQUIRED)
find_library(VORTAN_BLOCKS BlocksRuntime REQUIRED)

# GCC's Objective-C headers and runtime stand in GCC's own folder, which clang does not search.
file(GLOB vortan_gcc_objc_headers /usr/lib/gcc/*/*/include/objc/objc.h)
list(SORT vortan_gcc_objc_headers COMPARE NATURAL ORDER DESCENDING)
list(POP_FRONT vortan_gcc_objc_headers vortan_gcc_objc_header)
if(NOT vortan_gcc_objc_header)
  message(FATAL_ERROR "GCC's Objective-C headers are missing: install libobjc-12-dev")
endif()
cmake_path(GET vortan_gcc_objc_header PARENT_PATH vortan_gcc_objc)
cmake_path(GET vortan_gcc_objc PARENT_PATH vortan_gcc_include)
cmake_path(GET vortan_gcc_include PARENT_PATH vortan_gcc)
find_library(VORTAN_OBJC objc PATHS ${vortan_gcc} REQUIRED)

target_include_directories(appkit SYSTEM INTERFACE
  ${CMAKE_CURRENT_LIST_DIR}/appkit ${VORTAN_GNUSTEP_INCLUDE} ${VORTAN_BLOCKS_INCLUDE})
target_compile_definitions(appkit INTERFACE
  GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_GUI_LIBRARY=1 GNU_RUNTIME=1 _NATIVE_OBJC_EXCEPTIONS)
target_compile_options(appkit INTERFACE
  -fblocks -fobjc-runtime=gcc -fexceptions -fobjc-exceptions -fconstant-string-class=NSConstantString
  "SHELL:-idirafter ${vortan_gcc_include}")
# The blocks runtime comes first: GNUstep's libraries bring a part of their own.
target_link_libraries(appkit INTERFACE
  ${VORTAN_BLOCKS} ${VORTAN_GNUSTEP_GUI} ${VORTAN_GNUSTEP_BASE} ${VORTAN_OBJC} m pthread)
