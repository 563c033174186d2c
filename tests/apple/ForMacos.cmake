# The project configured for macOS on a system that is not macOS: what CMake on a Mac is told by the preset `macos`,
# with clang, LLVM's tools, and a folder of declarations in the place of Apple's SDK. Included by the scripts here,
# which are given
#   SOURCE WORK                 the project, and a folder of the script's own
#   CLANG CLANGXX LLVM NINJA    the compilers, the folder of LLVM's tools, the build program
#   CXX_HEADERS C_HEADERS       the headers of libc++ and of a C library
#   WRITE_RESOURCE              the program of that name, as it runs here
cmake_minimum_required(VERSION 3.25)

set(sdk ${WORK}/MacOSX.sdk)
set(tools ${WORK}/tools)
file(READ ${SOURCE}/CMakePresets.json presets)

# demand(TEXT PATTERN): the text must match the regular expression.
function(demand text pattern)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "Nothing matches ${pattern} in:\n${text}")
  endif()
endfunction()

# link(FILE NAME): a symbolic link, also where there is one already.
function(link file name)
  if(NOT EXISTS ${name})
    file(CREATE_LINK ${file} ${name} SYMBOLIC)
  endif()
endfunction()

# library(NAME INSTALLED): a library or framework of the system that exports nothing. What is used of it stays open.
function(library name installed)
  set(text "--- !tapi-tbd\ntbd-version: 4\ntargets: [ x86_64-macos, arm64-macos ]\ninstall-name: '${installed}'\n...\n")
  file(CONFIGURE OUTPUT ${sdk}/${name} CONTENT "${text}" @ONLY)
endfunction()

# The declarations and libraries in the places where the compiler and the linker look for Apple's.
function(make_sdk)
  file(MAKE_DIRECTORY ${sdk}/usr/include/c++)
  link(${CXX_HEADERS} ${sdk}/usr/include/c++/v1)
  file(GLOB headers ${SOURCE}/tests/apple/include/*)
  foreach(header ${headers})
    cmake_path(GET header FILENAME name)
    link(${header} ${sdk}/usr/include/${name})
  endforeach()

  foreach(framework AppKit Cocoa Foundation IOKit Metal MetalKit QuartzCore Security WebKit)
    set(folder System/Library/Frameworks/${framework}.framework)
    library(${folder}/${framework}.tbd /${folder}/${framework})
  endforeach()
  link(${SOURCE}/tests/apple/AppKit ${sdk}/System/Library/Frameworks/AppKit.framework/Headers)
  foreach(name libSystem libc++ libobjc)
    library(usr/lib/${name}.tbd /usr/lib/${name}.dylib)
  endforeach()
endfunction()

# Programs under the names by which the compiler asks for them, and what runs the resource's writer.
function(make_tools)
  file(MAKE_DIRECTORY ${tools})
  link(${LLVM}/llvm-lipo ${tools}/lipo)
  link(${LLVM}/ld64.lld ${tools}/ld64.lld)
  file(WRITE ${tools}/run-here "#!/bin/sh
# The program that is built for macOS does not run here: its twin does its work.
shift
exec '${WRITE_RESOURCE}' \"$@\"
")
  file(CHMOD ${tools}/run-here FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endfunction()

# preset_values(RESULT): the variables of the preset `macos`, as options for CMake.
function(preset_values result)
  set(options)
  string(JSON count LENGTH "${presets}" configurePresets)
  math(EXPR last "${count} - 1")
  foreach(i RANGE ${last})
    string(JSON name GET "${presets}" configurePresets ${i} name)
    if(name STREQUAL macos)
      string(JSON variables LENGTH "${presets}" configurePresets ${i} cacheVariables)
      math(EXPR last_variable "${variables} - 1")
      foreach(j RANGE ${last_variable})
        string(JSON variable MEMBER "${presets}" configurePresets ${i} cacheVariables ${j})
        string(JSON value GET "${presets}" configurePresets ${i} cacheVariables ${variable})
        string(REPLACE ";" "\\;" value "${value}")
        list(APPEND options "-D${variable}=${value}")
      endforeach()
    endif()
  endforeach()
  set(${result} "${options}" PARENT_SCOPE)
endfunction()

# configure_for_macos(FOLDER JUCE OPTION...): what CMake says stands in the caller's variable `output`.
function(configure_for_macos folder juce)
  make_sdk()
  make_tools()
  preset_values(preset)
  # Nothing says what Apple's C++ library has since which version but the headers themselves, unless the builder of
  # the library has switched it off: its word is not heard.
  set(compile "-B${tools} -idirafter ${C_HEADERS}")
  set(compile_cxx "${compile} -stdlib=libc++ -D_LIBCPP_CONFIG_SITE")
  set(link "-fuse-ld=lld -stdlib=libc++ -Wl,-undefined,dynamic_lookup")
  set(archive "${LLVM}/llvm-libtool-darwin -static -o <TARGET> <OBJECTS>")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${folder} -G Ninja ${preset}
      -DCMAKE_MAKE_PROGRAM=${NINJA}
      -DCMAKE_SYSTEM_NAME=Darwin
      -DCMAKE_SYSTEM_PROCESSOR=arm64
      -DCMAKE_OSX_SYSROOT=${sdk}
      -DCMAKE_INSTALL_NAME_TOOL=${LLVM}/llvm-install-name-tool
      -DCMAKE_CROSSCOMPILING_EMULATOR=${tools}/run-here
      -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY
      -DCMAKE_C_COMPILER=${CLANG} -DCMAKE_C_COMPILER_WORKS=1 -DCMAKE_C_COMPILER_TARGET=x86_64-apple-darwin
      -DCMAKE_CXX_COMPILER=${CLANGXX} -DCMAKE_CXX_COMPILER_WORKS=1 -DCMAKE_CXX_COMPILER_TARGET=x86_64-apple-darwin
      -DCMAKE_OBJCXX_COMPILER=${CLANGXX} -DCMAKE_OBJCXX_COMPILER_WORKS=1
      -DCMAKE_OBJCXX_COMPILER_TARGET=x86_64-apple-darwin
      -DCMAKE_C_FLAGS=${compile} -DCMAKE_CXX_FLAGS=${compile_cxx} -DCMAKE_OBJCXX_FLAGS=${compile_cxx}
      -DCMAKE_EXE_LINKER_FLAGS=${link} -DCMAKE_MODULE_LINKER_FLAGS=${link}
      -DCMAKE_CXX_CREATE_STATIC_LIBRARY=${archive} -DCMAKE_OBJCXX_CREATE_STATIC_LIBRARY=${archive}
      -DPKG_CONFIG_EXECUTABLE=/bin/false -DCMAKE_DISABLE_FIND_PACKAGE_X11=ON
      -DVORTAN_JUCE_DIR=${juce}
      ${ARGN}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "It does not configure for macOS:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# commands_of(TARGET FOLDER RESULT): all that would be run for the target, a command in each line.
function(commands_of target folder result)
  execute_process(COMMAND ${NINJA} -C ${folder} -t commands ${target}
    OUTPUT_VARIABLE commands RESULT_VARIABLE code)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "There is no target ${target}")
  endif()
  set(${result} "${commands}" PARENT_SCOPE)
endfunction()
