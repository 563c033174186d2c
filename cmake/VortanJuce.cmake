# JUCE 7.0.5, compiled once per configuration into one static library with hidden symbols.
#
# Only the modules that the panel needs are compiled, straight from their sources: the CMake package of
# JUCE is not needed, and Debian's `juce-modules-source-data` is enough. On macOS the panel's hosting in a
# native view needs one module more.

set(VORTAN_JUCE_DIR "/usr/share/juce" CACHE PATH "Folder that holds JUCE's `modules` folder")

if(NOT EXISTS ${VORTAN_JUCE_DIR}/modules/juce_gui_basics/juce_gui_basics.h)
  message(FATAL_ERROR
    "JUCE's modules are not in ${VORTAN_JUCE_DIR}/modules. Install juce-modules-source-data "
    "(scripts/test does) or name another folder with -DVORTAN_JUCE_DIR=...")
endif()

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
    "-framework QuartzCore" "-framework WebKit" "-weak_framework Metal" "-weak_framework MetalKit")
else()
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(VORTAN_JUCE_NEEDS REQUIRED IMPORTED_TARGET freetype2 libpng libjpeg zlib x11)
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
foreach(module ${vortan_juce_modules})
  list(APPEND vortan_juce_sources ${VORTAN_JUCE_DIR}/modules/${module}/${module}.${vortan_juce_suffix})
  list(APPEND vortan_juce_definitions JUCE_MODULE_AVAILABLE_${module}=1)
endforeach()

add_library(juce STATIC ${vortan_juce_sources})
target_include_directories(juce SYSTEM PUBLIC ${VORTAN_JUCE_DIR}/modules)
target_compile_definitions(juce PUBLIC ${vortan_juce_definitions})
target_compile_options(juce PRIVATE -w)
target_link_libraries(juce PUBLIC ${vortan_juce_needs})
