# The loadable bundle: a module that exports its entry points and nothing else, and the folder tree in
# which the host on macOS looks for it. On other systems the tree is complete but for the executable, and
# the module is next to it.

set(VORTAN_MACOS_MINIMUM 10.15)
if(APPLE AND CMAKE_OSX_DEPLOYMENT_TARGET)
  set(VORTAN_MACOS_MINIMUM ${CMAKE_OSX_DEPLOYMENT_TARGET})
endif()
set(VORTAN_SIGNING_IDENTITY "-" CACHE STRING "Who signs the bundle on macOS; - signs it ad hoc")
set(vortan_bundle_sources ${CMAKE_SOURCE_DIR}/bundle)

# vortan_plugin(TARGET BUNDLE name IDENTIFIER id ENTRIES entry... LINKS library... DESTINATION folder)
function(vortan_plugin target)
  cmake_parse_arguments(ARG "" "BUNDLE;IDENTIFIER;DESTINATION" "ENTRIES;LINKS" ${ARGN})
  set(tree ${ARG_DESTINATION}/${ARG_BUNDLE}.plugin)
  vortan_plugin_tree(${target}-tree ${tree} ${ARG_BUNDLE} ${ARG_IDENTIFIER} ${ARG_ENTRIES})
  vortan_plugin_module(${target} ${ARG_BUNDLE} "${ARG_ENTRIES}" "${ARG_LINKS}")
  if(APPLE)
    set_target_properties(${target} PROPERTIES SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${tree}/Contents/MacOS)
    vortan_sign(${target}-signed ${tree} ${target} ${target}-tree)
  else()
    set_target_properties(${target} PROPERTIES SUFFIX ".so" LIBRARY_OUTPUT_DIRECTORY ${ARG_DESTINATION})
  endif()
endfunction()

# Everything in the tree but the executable.
function(vortan_plugin_tree target tree bundle identifier)
  set(plist ${CMAKE_CURRENT_BINARY_DIR}/${target}/Info.plist)
  configure_file(${vortan_bundle_sources}/Info.plist.in ${plist} @ONLY)
  set(contents ${tree}/Contents)
  set(resource ${contents}/Resources/${bundle}.rsrc)
  add_custom_command(OUTPUT ${contents}/Info.plist
    COMMAND ${CMAKE_COMMAND} -E copy ${plist} ${contents}/Info.plist
    DEPENDS ${plist})
  add_custom_command(OUTPUT ${contents}/PkgInfo
    COMMAND ${CMAKE_COMMAND} -E copy ${vortan_bundle_sources}/PkgInfo ${contents}/PkgInfo
    DEPENDS ${vortan_bundle_sources}/PkgInfo)
  add_custom_command(OUTPUT ${resource}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${contents}/Resources
    COMMAND write-resource ${resource} ${ARGN}
    DEPENDS write-resource)
  add_custom_target(${target} ALL DEPENDS ${contents}/Info.plist ${contents}/PkgInfo ${resource})
endfunction()

# The module takes the entry points from its libraries, and whatever they need.
function(vortan_plugin_module target bundle entries links)
  set(work ${CMAKE_CURRENT_BINARY_DIR}/${target})
  vortan_export_lists(${work} ${entries})
  file(CONFIGURE OUTPUT ${work}/Bundle.cpp CONTENT
    "// The module's code is in its libraries; the linker is told which functions to take from them.\n")
  add_library(${target} MODULE ${work}/Bundle.cpp)
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${bundle})
  target_link_libraries(${target} PRIVATE ${links})
  if(APPLE)
    list(TRANSFORM entries PREPEND "-Wl,-u,_" OUTPUT_VARIABLE wanted)
    set(list ${work}/exports.txt)
    target_link_options(${target} PRIVATE ${wanted} -Wl,-exported_symbols_list,${list} -Wl,-dead_strip)
  else()
    list(TRANSFORM entries PREPEND "-Wl,--undefined=" OUTPUT_VARIABLE wanted)
    set(list ${work}/exports.map)
    target_link_options(${target} PRIVATE ${wanted} -Wl,--version-script=${list} -Wl,--gc-sections)
  endif()
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list})
endfunction()

# The names that a module exports, in the forms of both linkers.
function(vortan_export_lists folder)
  list(JOIN ARGN "\n_" symbols)
  file(CONFIGURE OUTPUT ${folder}/exports.txt CONTENT "_${symbols}\n" @ONLY)
  list(JOIN ARGN ";\n    " symbols)
  file(CONFIGURE OUTPUT ${folder}/exports.map CONTENT
    "{\n  global:\n    ${symbols};\n  local:\n    *;\n};\n" @ONLY)
endfunction()

# The seal comes last: nothing in the tree may change after it.
function(vortan_sign target tree)
  set(options)
  if(NOT VORTAN_SIGNING_IDENTITY STREQUAL "-")
    set(options --options runtime --timestamp)
  endif()
  add_custom_target(${target} ALL
    COMMAND codesign --force ${options} --sign ${VORTAN_SIGNING_IDENTITY} ${tree}
    COMMAND codesign --verify --strict --all-architectures ${tree}
    VERBATIM)
  add_dependencies(${target} ${ARGN})
endfunction()

# Installs a tree into the folder that the user names, in place of a former one: files that a former
# version leaves behind break the seal.
function(vortan_install_plugin tree)
  cmake_path(GET tree FILENAME name)
  install(CODE "
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr/local\")
      message(FATAL_ERROR \"Name the host's plug-in folder: cmake --install <build> --prefix <folder>\")
    endif()
    file(REMOVE_RECURSE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${name}\")")
  install(DIRECTORY ${tree} DESTINATION . USE_SOURCE_PERMISSIONS)
endfunction()
