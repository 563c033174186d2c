# Looks at what a Mac would run to build the project in each of its forms: nothing is compiled. The parameters are
# those of ForMacos.cmake, and
#   JUCE GTEST ABSL    the folder that holds JUCE's modules, and those of the packages that the tests need
include(${CMAKE_CURRENT_LIST_DIR}/ForMacos.cmake)
file(REMOVE_RECURSE ${WORK})

configure_for_macos(${WORK}/whole ${JUCE}
  -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON)
commands_of(VortanObjectPanel-signed ${WORK}/whole commands)
demand("${commands}" "-arch x86_64 -arch arm64 [^\n]*-mmacosx-version-min=10.15")
demand("${commands}" "-fno-objc-arc [^\n]*/panel/platform/mac/SurfaceView.mm")
demand("${commands}" "-fvisibility=hidden [^\n]*/juce_gui_extra.mm")
demand("${commands}" "-bundle [^\n]*-exported_symbols_list,[^\n]*/exports.txt [^\n]*-o VortanObjectPanel.plugin/Contents/MacOS/VortanObjectPanel ")
# Nothing refers to this class, so that an archive would keep it.
demand("${commands}" "-bundle [^\n]*-o VortanObjectPanel.plugin/[^\n]*/mac/PluginView.mm.o ")
demand("${commands}" "write-resource [^\n]*/VortanObjectPanel.rsrc EffectorAEGP PanelEntryPointFunc")
demand("${commands}" "codesign --force --sign - [^\n]*/VortanObjectPanel.plugin")
string(REPLACE "${SOURCE}" "" paths "${commands}")
string(REPLACE "${WORK}" "" paths "${paths}")
if(paths MATCHES "x11|X11|freetype|GNUstep")
  message(FATAL_ERROR "A part that macOS does not have is built for it: ${CMAKE_MATCH_0}")
endif()
if(commands MATCHES "-Werror")
  message(FATAL_ERROR "A warning of a compiler that nobody here has tried would stop the build")
endif()
file(READ ${WORK}/whole/bundle/VortanObjectPanel/exports.txt exports)
demand("${exports}" "^_EffectorAEGP\n_PanelEntryPointFunc\n$")
file(READ ${WORK}/whole/bundle/cmake_install.cmake installation)
demand("${installation}" "REMOVE_RECURSE [^\n]*/VortanObjectPanel.plugin.*file\\(INSTALL DESTINATION")

# The later generation of JUCE, as far as a build asks for it: its files, with nothing in them.
set(later ${WORK}/later-juce)
foreach(module core events data_structures graphics gui_basics gui_extra)
  file(MAKE_DIRECTORY ${later}/modules/juce_${module}/system)
  file(TOUCH ${later}/modules/juce_${module}/juce_${module}.h ${later}/modules/juce_${module}/juce_${module}.mm)
endforeach()
file(TOUCH ${later}/modules/juce_core/juce_core_CompilationTime.cpp
  ${later}/modules/juce_graphics/juce_graphics_Harfbuzz.cpp ${later}/modules/juce_graphics/juce_graphics_Sheenbidi.c)
file(WRITE ${later}/modules/juce_core/system/juce_StandardHeader.h
  "#define JUCE_MAJOR_VERSION      8\n#define JUCE_MINOR_VERSION      0\n#define JUCE_BUILDNUMBER        12\n")
configure_for_macos(${WORK}/later ${later})
demand("${output}" "JUCE 8\\.0\\.12 in ${later}\n")
commands_of(VortanObjectPanel-signed ${WORK}/later commands)
foreach(file juce_graphics.mm juce_graphics_Harfbuzz.cpp juce_graphics_Sheenbidi.c juce_core_CompilationTime.cpp)
  demand("${commands}" " -c [^\n]*/${file}\n")
endforeach()

configure_for_macos(${WORK}/split ${JUCE} -DVORTAN_SPLIT_BUNDLES=ON "-DVORTAN_SIGNING_IDENTITY=Developer ID")
commands_of(VortanIdleSuite-signed ${WORK}/split commands)
demand("${commands}" "-o VortanIdleSuite.plugin/Contents/MacOS/VortanIdleSuite ")
demand("${commands}" "write-resource [^\n]*/VortanIdleSuite.rsrc EffectorAEGP\n")
demand("${commands}" "codesign --force --options runtime --timestamp --sign \"Developer ID\" ")
commands_of(VortanObjectPanel-signed ${WORK}/split commands)
demand("${commands}" "write-resource [^\n]*/VortanObjectPanel.rsrc PanelEntryPointFunc\n")

configure_for_macos(${WORK}/tests ${JUCE} -DBUILD_TESTING=ON -DGTest_DIR=${GTEST} -Dabsl_DIR=${ABSL})
commands_of(all ${WORK}/tests commands)
demand("${commands}" "-o bundle-test ")
demand("${commands}" "-o items-test ")
demand("${commands}" "-o bin/standin ")
if(commands MATCHES "libX11|libXtst|GNUstep")
  message(FATAL_ERROR "The tests need what macOS does not have: ${CMAKE_MATCH_0}")
endif()
