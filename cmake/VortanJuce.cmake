# JUCE, compiled once per configuration into one static library with hidden symbols. This is the one place that
# knows where it is and which generation of it: 7.0.5 on Linux, as Debian has it, and 8.0.12 on macOS, whose compilers
# of today refuse the earlier one. The sources of this project build with both.
#
# Only the modules that the panel needs are compiled, straight from their sources: the CMake package of
# JUCE is not needed, and Debian's `juce-modules-source-data` is enough. On macOS the panel's hosting in a
# native view needs one module more.

if(APPLE)
  set(vortan_juce_default ${CMAKE_SOURCE_DIR}/juce)
  set(vortan_juce_remedy "Clone JUCE's release 8.0.12 into that folder")
else()
  set(vortan_juce_default /usr/share/juce)
  set(vortan_juce_remedy "Install juce-modules-source-data (scripts/test does)")
endif()
set(VORTAN_JUCE_DIR ${vortan_juce_default} CACHE PATH "Folder that holds JUCE's `modules` folder")

if(NOT EXISTS ${VORTAN_JUCE_DIR}/modules/juce_gui_basics/juce_gui_basics.h)
  message(FATAL_ERROR "JUCE's modules are not in ${VORTAN_JUCE_DIR}/modules. ${vortan_juce_remedy}, or name another "
    "folder with -DVORTAN_JUCE_DIR=...")
endif()

# vortan_juce_version_in(FOLDER VARIABLE): JUCE's version as it stands in its sources.
function(vortan_juce_version_in folder variable)
  set(numbers)
  foreach(part MAJOR_VERSION MINOR_VERSION BUILDNUMBER)
    file(STRINGS ${folder}/modules/juce_core/system/juce_StandardHeader.h line REGEX "#define +JUCE_${part} +[0-9]+")
    string(REGEX MATCH "[0-9]+$" number "${line}")
    list(APPEND numbers ${number})
  endforeach()
  list(JOIN numbers . version)
  set(${variable} ${version} PARENT_SCOPE)
endfunction()

vortan_juce_version_in(${VORTAN_JUCE_DIR} VORTAN_JUCE_VERSION)
message(STATUS "JUCE ${VORTAN_JUCE_VERSION} in ${VORTAN_JUCE_DIR}")

set(vortan_juce_modules juce_core juce_events juce_data_structures juce_graphics juce_gui_basics)
set(vortan_juce_definitions
  JUCE_GLOBAL_MODULE_SETTINGS_INCLUDED=1
  JUCE_USE_CURL=0
  JUCE_WEB_BROWSER=0
  JUCE_MODAL_LOOPS_PERMITTED=1
  JUCE_DISPLAY_SPLASH_SCREEN=0
  $<IF:$<CONFIG:Debug>,DEBUG=1,NDEBUG=1>
  $<IF:$<CONFIG:Debug>,_DEBUG=1,_NDEBUG=1>)

if(APPLE)
  list(APPEND vortan_juce_modules juce_gui_extra)
  set(vortan_juce_suffix mm)
  set(vortan_juce_needs "-framework Cocoa" "-framework Foundation" "-framework IOKit"
    "-framework QuartzCore" "-framework Security" "-framework WebKit" "-weak_framework Metal" "-weak_framework MetalKit")
else()
  find_package(PkgConfig REQUIRED)
  set(vortan_juce_packages freetype2 libpng libjpeg zlib x11)
  if(VORTAN_JUCE_VERSION VERSION_GREATER_EQUAL 8)
    list(APPEND vortan_juce_packages fontconfig)
  endif()
  pkg_check_modules(VORTAN_JUCE_NEEDS REQUIRED IMPORTED_TARGET ${vortan_juce_packages})
  set(vortan_juce_suffix cpp)
  set(vortan_juce_needs PkgConfig::VORTAN_JUCE_NEEDS ${CMAKE_DL_LIBS} pthread rt)
  list(APPEND vortan_juce_definitions
    LINUX=1
    JUCE_USE_XRANDR=0
    JUCE_USE_XINERAMA=0
    JUCE_USE_XCURSOR=0
    JUCE_USE_XSHM=0
    JUCE_USE_XRENDER=0)
endif()

set(vortan_juce_sources)
if(NOT APPLE)
  list(APPEND vortan_juce_sources ${CMAKE_CURRENT_LIST_DIR}/juce/JuceWindowEvents.cpp)
endif()
foreach(module ${vortan_juce_modules})
  # The later generation keeps some of a module in files beside its main one.
  file(GLOB beside ${VORTAN_JUCE_DIR}/modules/${module}/${module}_*.c ${VORTAN_JUCE_DIR}/modules/${module}/${module}_*.cpp)
  list(APPEND vortan_juce_sources
    ${VORTAN_JUCE_DIR}/modules/${module}/${module}.${vortan_juce_suffix} ${beside})
  list(APPEND vortan_juce_definitions JUCE_MODULE_AVAILABLE_${module}=1)
endforeach()

add_library(juce STATIC ${vortan_juce_sources})
target_include_directories(juce SYSTEM PUBLIC ${VORTAN_JUCE_DIR}/modules)
target_include_directories(juce INTERFACE ${CMAKE_CURRENT_LIST_DIR}/juce)
target_compile_definitions(juce PUBLIC ${vortan_juce_definitions})
target_compile_options(juce PRIVATE -w ${vortan_sanitize_less})
target_link_libraries(juce PUBLIC ${vortan_juce_needs})
